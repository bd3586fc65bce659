// SPDX-License-Identifier: MIT
#include "HardeningLaw.h"

#include "ProcessSetup.h"
#include "SetupFields.h"

#include <algorithm>
#include <cmath>

namespace {

struct Parameter
{
    double HardeningLaw::*value;
    const char *key; // of the field
};

constexpr Parameter s_parameters[] = {
    {&HardeningLaw::coefficient, "hardeningCoefficient"},
    {&HardeningLaw::prestrain, "prestrain"},
    {&HardeningLaw::exponent, "hardeningExponent"},
};

int fieldOf(const Parameter &parameter)
{
    return SetupFields::findField(SetupFields::findGroup(QStringLiteral("material")),
                                  QLatin1String(parameter.key));
}

} // namespace

HardeningLaw::HardeningLaw(const ProcessSetup &setup)
{
    for (const Parameter &parameter : s_parameters)
        this->*parameter.value = setup.number(fieldOf(parameter));
}

bool HardeningLaw::isComplete() const
{
    return std::all_of(std::begin(s_parameters), std::end(s_parameters),
                       [this](const Parameter &parameter) {
                           return this->*parameter.value != FieldValues::noValue();
                       });
}

QStringList HardeningLaw::missing() const
{
    QStringList labels;
    for (const Parameter &parameter : s_parameters) {
        if (this->*parameter.value == FieldValues::noValue())
            labels << SetupFields::field(fieldOf(parameter)).labelText();
    }
    return labels;
}

double HardeningLaw::stress(double strain) const
{
    return coefficient * std::pow(prestrain + strain, exponent);
}

std::vector<QPointF> HardeningLaw::curve(double maximumStrain, int count) const
{
    std::vector<QPointF> points;
    if (!isComplete())
        return points;
    for (int i = 0; i < count; ++i) {
        const double part = double(i) / (count - 1);
        const double strain = maximumStrain * part * part;
        points.emplace_back(strain, stress(strain));
    }
    return points;
}

bool HardeningLaw::operator==(const HardeningLaw &other) const
{
    return coefficient == other.coefficient && prestrain == other.prestrain &&
           exponent == other.exponent;
}

AxisScale::AxisScale(double maximum, int mostSteps)
{
    const double end = std::isfinite(maximum) && maximum > 0.0 ? maximum : 1.0;
    const double least = end / std::max(1, mostSteps);
    const double decade = std::pow(10.0, std::floor(std::log10(least)));
    step = 10.0 * decade;
    for (const double factor : {5.0, 2.0, 1.0}) {
        if (factor * decade >= least)
            step = factor * decade;
    }
    steps = std::max(1, int(std::ceil(end / step - 1e-9))); // what is but rounding is no step
}
