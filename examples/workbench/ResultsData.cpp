// SPDX-License-Identifier: MIT
#include "ResultsData.h"

#include <QCoreApplication>

#include <cmath>

namespace {

constexpr double s_thickness = 0.78;       // mm, of the blank
constexpr double s_roomTemperature = 20.0; // degC
constexpr int s_longRunCups = 32;
constexpr int s_longRunSteps = 284;

enum VariableIndex {
    Thickness,
    Thinning,
    MajorStrain,
    MinorStrain,
    PlasticStrain,
    Stress,
    Pressure,
    Temperature,
    PunchForce,
    HolderForce,
};

#define TEXT(text) QT_TRANSLATE_NOOP("ResultsData", text)

// clang-format off
const std::vector<ResultVariable> s_variables = {
    {TEXT("Thickness"),          "mm",   1, ResultVariable::LowerLimit, 0.62},
    {TEXT("Thinning"),           "%",    0, ResultVariable::UpperLimit, 20.0},
    {TEXT("Major strain"),       "",     0, ResultVariable::UpperLimit, 0.32},
    {TEXT("Minor strain"),       "",     0, ResultVariable::NoLimit,    0.0},
    {TEXT("Plastic strain"),     "",     0, ResultVariable::NoLimit,    0.0},
    {TEXT("Von Mises stress"),   "MPa",  0, ResultVariable::UpperLimit, 460.0},
    {TEXT("Contact pressure"),   "MPa",  0, ResultVariable::NoLimit,    0.0},
    {TEXT("Temperature"),        "degC", -1, ResultVariable::UpperLimit, 120.0},
    {TEXT("Punch force"),        "kN",   0, ResultVariable::UpperLimit, 75.0},
    {TEXT("Blank-holder force"), "kN",   0, ResultVariable::NoLimit,    0.0},
};

/// An operation on the cup, and how far the sheet has been strained before and after it.
struct Stage
{
    const char *name;
    bool hasStroke;
    bool isPressed; ///< punch and blank holder act
    int steps;
    double end; ///< s or mm
    double strainBefore;
    double strainAfter;
    double stressFactor; ///< what is left of the flow stress
};

const Stage s_stages[] = {
    {TEXT("Gravity"),    false, false, 2, 0.2,  0.0,   0.002, 0.2},
    {TEXT("Holding"),    true,  true,  3, 1.2,  0.002, 0.02,  0.7},
    {TEXT("Drawing"),    true,  true,  8, 40.0, 0.02,  0.42,  1.0},
    {TEXT("Trimming"),   false, false, 2, 0.8,  0.42,  0.42,  0.6},
    {TEXT("Springback"), false, false, 3, 0.3,  0.42,  0.4,   0.3},
};
// clang-format on

#undef TEXT

/// What the sheet is like at one moment.
struct Moment
{
    double strain;      ///< the largest plastic one
    double progress;    ///< of the operation, from 0 to 1
    double temperature; ///< of the tools, degC
    double stressFactor;
    bool isPressed;
};

double flowStress(double strain)
{
    return 565.32 * std::pow(0.007117 + strain, 0.2589); // MPa
}

std::vector<ResultRange> rangesAt(const Moment &moment)
{
    const double strain = moment.strain;
    const double thinnest = s_thickness * std::exp(-0.56 * strain);
    const double thickest = s_thickness * std::exp(0.27 * strain);
    const double warming = 95.0 * strain * moment.progress;
    std::vector<ResultRange> ranges = {
        {Thickness, thinnest, thickest},
        {Thinning, 100.0 * (1.0 - thickest / s_thickness), 100.0 * (1.0 - thinnest / s_thickness)},
        {MajorStrain, 0.02 * strain, 0.84 * strain},
        {MinorStrain, -0.61 * strain, 0.22 * strain},
        {PlasticStrain, 0.0, strain},
        {Stress, 0.08 * moment.stressFactor * flowStress(strain),
         moment.stressFactor * flowStress(strain)},
    };
    if (moment.isPressed) {
        const double force = 172.0 * std::sqrt(strain) * std::exp(-1.1 * strain);
        ranges.push_back({Pressure, 0.0, 4.0 + 61.0 * std::sqrt(strain)});
        ranges.push_back({Temperature, moment.temperature, moment.temperature + warming});
        ranges.push_back({PunchForce, 0.0, force});
        ranges.push_back({HolderForce, 19.4, 19.6 + 0.4 * strain});
    }
    return ranges;
}

ResultOperation operation(const Stage &stage, int steps, double toolTemperature)
{
    ResultOperation result;
    result.hasStroke = stage.hasStroke;
    for (int i = 1; i <= steps; ++i) {
        const double progress = double(i) / steps;
        const double strain =
            stage.strainBefore + (stage.strainAfter - stage.strainBefore) * progress;
        result.steps.push_back(
            {stage.end * progress,
             rangesAt({strain, progress, toolTemperature, stage.stressFactor, stage.isPressed})});
    }
    return result;
}

QString translated(const char *text)
{
    return QCoreApplication::translate("ResultsData", text);
}

} // namespace

QString ResultVariable::nameText() const
{
    return translated(name);
}

namespace ResultsData {

const std::vector<ResultVariable> &variables()
{
    return s_variables;
}

ResultOperations cup()
{
    ResultOperations operations;
    for (const Stage &stage : s_stages) {
        operations.push_back(operation(stage, stage.steps, s_roomTemperature));
        operations.back().name = translated(stage.name);
    }
    return operations;
}

ResultOperations longRun()
{
    const Stage &drawing = s_stages[2];
    ResultOperations operations;
    for (int cup = 1; cup <= s_longRunCups; ++cup) {
        const double warm = s_roomTemperature + 75.0 * (1.0 - std::exp(-cup / 9.0));
        operations.push_back(operation(drawing, s_longRunSteps, warm));
        operations.back().name =
            QCoreApplication::translate("ResultsData", "Drawing of cup %1").arg(cup);
    }
    return operations;
}

int rowCount(const ResultOperations &operations)
{
    size_t count = operations.size();
    for (const ResultOperation &operation : operations) {
        count += operation.steps.size();
        for (const ResultStep &step : operation.steps)
            count += step.ranges.size();
    }
    return int(count);
}

} // namespace ResultsData
