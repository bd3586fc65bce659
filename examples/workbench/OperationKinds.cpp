// SPDX-License-Identifier: MIT
#include "OperationKinds.h"

namespace {

constexpr SetupField::Kind Number = SetupField::Number;

#define TEXT(text) QT_TRANSLATE_NOOP("SetupFields", text)

// clang-format off
const std::vector<OperationKind> s_kinds = {
    {"draw", TEXT("Draw"), TEXT("The punch draws the blank into the die."), {
        {Number, 0, "blankHolderForce", TEXT("Blank-holder force"), "", "kN", 0.0, 50000.0, 2,
         TEXT("Force on the whole blank holder during this stroke")},
        {Number, 0, "punchStroke", TEXT("Punch stroke"), "", "mm", 0.1, 5000.0, 1,
         TEXT("Travel of the punch from first contact")},
        {Number, 0, "friction", TEXT("Friction coefficient"), "\u00b5", "", 0.0, 1.0, 1,
         TEXT("Coulomb friction between sheet and tools, from 0 to 1"), 0.01},
        {Number, 0, "dieGap", TEXT("Die gap"), "", "mm", 0.0, 100.0, 1,
         TEXT("Clearance between punch wall and die wall, on each side")},
    }},
    {"trim", TEXT("Trim"), TEXT("The edge of the part is cut off along a line."), {
        {Number, 0, "lineOffset", TEXT("Line offset"), "", "mm", -1000.0, 1000.0, 1,
         TEXT("Distance of the cut from the outline of the part; outwards is positive")},
        {Number, 0, "cuttingAngle", TEXT("Cutting angle"), "", "deg", -60.0, 60.0, 1,
         TEXT("Angle between the cutting direction and the stroke of the press")},
    }},
    {"pierce", TEXT("Pierce"), TEXT("A round hole is punched."), {
        {Number, 0, "holeDiameter", TEXT("Hole diameter"), "", "mm", 0.1, 1000.0, 1,
         TEXT("Diameter of the piercing punch")},
        {Number, 0, "clearance", TEXT("Clearance"), "", "mm", 0.0, 10.0, 2,
         TEXT("Gap between piercing punch and die, on each side")},
    }},
    {"flange", TEXT("Flange"), TEXT("The edge is bent up or down."), {
        {Number, 0, "angle", TEXT("Flange angle"), "\u03b1", "deg", -180.0, 180.0, 1,
         TEXT("Angle by which the edge is bent; upwards is positive")},
        {Number, 0, "radius", TEXT("Bending radius"), "r", "mm", 0.0, 1000.0, 1,
         TEXT("Radius of the edge over which the sheet is bent")},
        {Number, 0, "padForce", TEXT("Pad force"), "", "kN", 0.0, 50000.0, 2,
         TEXT("Force of the pad that holds the part")},
    }},
    {"springback", TEXT("Spring-back"), TEXT("The part leaves the tools and changes its shape."), {
        {Number, 0, "temperature", TEXT("Temperature"), "T", "degC", -200.0, 1500.0, 0,
         TEXT("Temperature of the part when it leaves the tools")},
        {Number, 0, "tolerance", TEXT("Shape tolerance"), "", "mm", 0.001, 100.0, 2,
         TEXT("Largest distance from the wanted shape that is accepted")},
    }},
};
// clang-format on

#undef TEXT

} // namespace

namespace OperationKinds {

const std::vector<OperationKind> &kinds()
{
    return s_kinds;
}

const OperationKind &kind(int index)
{
    return s_kinds[size_t(index)];
}

int find(const QString &key)
{
    for (size_t i = 0; i < s_kinds.size(); ++i) {
        if (key == QLatin1String(s_kinds[i].key))
            return int(i);
    }
    return -1;
}

int findField(int kind, const QString &key)
{
    return SetupFields::find(OperationKinds::kind(kind).fields, 0, key);
}

} // namespace OperationKinds
