// SPDX-License-Identifier: MIT
#include "units/BVStepping_p.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double s_noise = 1e-12; // relative; what sums of steps may miss a limit by

/// Whether both limits are finite and apart.
bool canWrap(double minimum, double maximum)
{
    return maximum > minimum && std::isfinite(maximum - minimum);
}

} // namespace

double BVStepping::roundedToStep(double value, double step, double direction, double tolerance)
{
    if (!(tolerance < std::fabs(step)))
        return value;
    const double quotient = value / step;
    return (direction > 0.0 ? std::ceil(quotient - 0.5) : std::floor(quotient + 0.5)) * step;
}

double BVStepping::linear(double current, double step, double count)
{
    return current + step * count;
}

double BVStepping::linearOnGrid(double current, double step, double count, double tolerance)
{
    const double rounded = roundedToStep(current, step, count, tolerance);
    return (rounded - current) * count > tolerance ? rounded : linear(current, step, count);
}

double BVStepping::logarithmic(double current, double decades, double count)
{
    return std::pow(10.0, std::log10(current) + decades * count);
}

double BVStepping::stepOfRange(double minimum, double maximum, int count, double singleStep)
{
    const double width = maximum - minimum;
    return count > 0 && std::isfinite(width) ? width / count : singleStep;
}

double BVStepping::wrapped(double value, double minimum, double maximum, double tolerance)
{
    const bool isBelow = value < minimum - tolerance;
    const bool isAbove = value > maximum + tolerance;
    if (!(isBelow || isAbove) || !canWrap(minimum, maximum))
        return value;
    // From the opposite limit, so that the limit that is stepped towards belongs to the range.
    const double distance = isAbove ? value - minimum : maximum - value;
    if (!std::isfinite(distance))
        return value;
    const double rest = std::fmod(distance, maximum - minimum);
    return std::clamp(isAbove ? minimum + rest : maximum - rest, minimum, maximum);
}

double BVStepping::snappedToLimit(double value, double minimum, double maximum, double tolerance)
{
    if (value < minimum && minimum - value < tolerance)
        return minimum;
    if (value > maximum && value - maximum < tolerance)
        return maximum;
    return value;
}

double BVStepping::ontoLimit(double value, double step, double minimum, double maximum)
{
    for (const double limit : {minimum, maximum}) {
        if (std::fabs(value - limit) < s_noise * std::max(std::fabs(limit), std::fabs(step)))
            return limit;
    }
    return value;
}
