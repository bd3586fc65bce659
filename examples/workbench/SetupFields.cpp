// SPDX-License-Identifier: MIT
#include "SetupFields.h"

#include "FieldValues.h"

#include <QCoreApplication>

namespace {

enum GroupIndex { Blank, Material, Tools, Press };

constexpr SetupField::Kind Number = SetupField::Number;
constexpr SetupField::Kind Text = SetupField::Text;

#define TEXT(text) QT_TRANSLATE_NOOP("SetupFields", text)

// clang-format off
const std::vector<SetupGroup> s_groups = {
    {"blank",    TEXT("&Dimensions")},
    {"material", TEXT("&Properties")},
    {"tools",    TEXT("&Geometry and friction")},
    {"press",    TEXT("&Press")},
};

// A range says what makes sense, not what is usual.
const std::vector<SetupField> s_fields = {
    {Number, Blank, "length", TEXT("Length"), "", "mm", 1.0, 10000.0, 1,
     TEXT("Blank size along the rolling direction at angle 0")},
    {Number, Blank, "width", TEXT("Width"), "", "mm", 1.0, 10000.0, 1,
     TEXT("Blank size across the rolling direction at angle 0")},
    {Number, Blank, "thickness", TEXT("Thickness"), "t\u2080", "mm", 0.01, 50.0, 1,
     TEXT("Initial sheet thickness")},

    {Text, Material, "name", TEXT("Name"), "", "", 0.0, 0.0, 0,
     TEXT("Name of the sheet material")},
    {Number, Material, "youngsModulus", TEXT("Young's modulus"), "E", "MPa", 1.0, 1.0e6, 0,
     TEXT("Elastic stiffness in tension")},
    {Number, Material, "poissonsRatio", TEXT("Poisson's ratio"), "\u03bd", "", 0.0, 0.5, 1,
     TEXT("Elastic contraction over extension, from 0 to 0.5")},
    {Number, Material, "yieldStress", TEXT("Yield stress"), "\u03c3\u2080", "MPa", 0.1, 1.0e4, 1,
     TEXT("Stress at the onset of plastic strain")},
    {Number, Material, "hardeningCoefficient", TEXT("Hardening coefficient"), "K", "MPa", 0.1, 1.0e4, 1,
     TEXT("K of the hardening law \u03c3 = K (\u03b5\u2080 + \u03b5)\u207f")},
    {Number, Material, "prestrain", TEXT("Prestrain"), "\u03b5\u2080", "", 0.0, 1.0, 4,
     TEXT("\u03b5\u2080 of the hardening law \u03c3 = K (\u03b5\u2080 + \u03b5)\u207f")},
    {Number, Material, "hardeningExponent", TEXT("Hardening exponent"), "n", "", 0.0, 1.0, 2,
     TEXT("n of the hardening law \u03c3 = K (\u03b5\u2080 + \u03b5)\u207f")},
    {Number, Material, "density", TEXT("Density"), "\u03c1", "kg/m^3", 100.0, 25000.0, -2,
     TEXT("Mass per volume of the sheet")},

    {Number, Tools, "punchWidth", TEXT("Punch width"), "", "mm", 1.0, 10000.0, 1,
     TEXT("Side length of the square punch")},
    {Number, Tools, "punchCornerRadius", TEXT("Punch corner radius"), "", "mm", 0.0, 1000.0, 1,
     TEXT("Radius of the punch corners seen along the stroke")},
    {Number, Tools, "punchProfileRadius", TEXT("Punch profile radius"), "", "mm", 0.0, 1000.0, 1,
     TEXT("Radius between punch face and punch wall")},
    {Number, Tools, "dieOpening", TEXT("Die opening"), "", "mm", 1.0, 10000.0, 1,
     TEXT("Side length of the square die opening")},
    {Number, Tools, "dieCornerRadius", TEXT("Die corner radius"), "", "mm", 0.0, 1000.0, 1,
     TEXT("Radius of the corners of the die opening seen along the stroke")},
    {Number, Tools, "dieProfileRadius", TEXT("Die profile radius"), "", "mm", 0.0, 1000.0, 1,
     TEXT("Radius over which the sheet is drawn into the die")},
    {Number, Tools, "gap", TEXT("Gap"), "", "mm", 0.0, 100.0, 1,
     TEXT("Clearance between punch wall and die wall, on each side")},
    {Number, Tools, "friction", TEXT("Friction coefficient"), "\u00b5", "", 0.0, 1.0, 1,
     TEXT("Coulomb friction between sheet and tools, from 0 to 1"), 0.01},

    {Number, Press, "blankHolderForce", TEXT("Blank-holder force"), "", "kN", 0.0, 50000.0, 2,
     TEXT("Force on the whole blank holder")},
    {Number, Press, "punchSpeed", TEXT("Punch speed"), "", "mm/s", 0.001, 10000.0, 0,
     TEXT("Speed of the punch during the stroke"), 1.0},
    {Number, Press, "stroke", TEXT("Punch stroke"), "", "mm", 0.0, 5000.0, 1,
     TEXT("Travel of the punch from first contact")},
    {Number, Press, "temperature", TEXT("Temperature"), "T", "degC", -200.0, 1500.0, 0,
     TEXT("Temperature of blank and tools")},
    {Number, Press, "rollingDirection", TEXT("Rolling direction"), "", "deg", -180.0, 180.0, 0,
     TEXT("Angle from the blank's length to the rolling direction")},
};

// Values that are usual for cups of this size, drawn on a small hydraulic press.
const std::vector<SetupSlider> s_sliders = {
    {SetupSlider::Design,      Tools, "dieProfileRadius", 2.0, 12.0,   100, 4.5, 7.5,  6.8},
    {SetupSlider::Admissible,  Press, "blankHolderForce", 0.0, 60.0,   600, 8.0, 40.0, 0.0},
    {SetupSlider::Logarithmic, Press, "punchSpeed",       1.0, 1000.0, 300, 0.0, 0.0,  0.0},
};
// clang-format on

#undef TEXT

} // namespace

QString SetupField::labelText() const
{
    return SetupFields::translated(label);
}

namespace SetupFields {

const std::vector<SetupGroup> &groups()
{
    return s_groups;
}

const std::vector<SetupField> &fields()
{
    return s_fields;
}

int count()
{
    return int(s_fields.size());
}

const SetupField &field(int index)
{
    return s_fields[size_t(index)];
}

const SetupSlider *slider(const SetupField &field)
{
    for (const SetupSlider &slider : s_sliders) {
        const int index = findField(slider.group, QLatin1String(slider.key));
        if (&SetupFields::field(index) == &field)
            return &slider;
    }
    return nullptr;
}

int findGroup(const QString &key)
{
    for (size_t i = 0; i < s_groups.size(); ++i) {
        if (key == QLatin1String(s_groups[i].key))
            return int(i);
    }
    return -1;
}

int findField(int group, const QString &key)
{
    return find(s_fields, group, key);
}

int find(const std::vector<SetupField> &fields, int group, const QString &key)
{
    for (size_t i = 0; i < fields.size(); ++i) {
        if (fields[i].group == group && key == QLatin1String(fields[i].key))
            return int(i);
    }
    return -1;
}

QStringList missing(const std::vector<SetupField> &fields, const FieldValues &values)
{
    QStringList labels;
    for (size_t i = 0; i < fields.size(); ++i) {
        const bool isText = fields[i].kind == SetupField::Text;
        if (isText ? values.text(int(i)).isEmpty()
                   : values.number(int(i)) == FieldValues::noValue())
            labels << fields[i].labelText();
    }
    return labels;
}

QString translated(const char *text)
{
    return QCoreApplication::translate("SetupFields", text);
}

} // namespace SetupFields
