// SPDX-License-Identifier: MIT
#pragma once

/// The arithmetic of stepping through a range of values, as pure functions.
///
/// Any double is taken, infinities and NaN included; none leads to a loop.
namespace BVStepping {

/// The multiple of @p step nearest to @p value; of two as near the lower one if @p direction is
/// positive, else the higher one. The value as it is if @p tolerance is not below the step.
double roundedToStep(double value, double step, double direction, double tolerance);

/// @p current moved by @p count steps.
double linear(double current, double step, double count);
/// The same, but only to the nearest multiple of the step if that lies ahead by more than the
/// tolerance.
double linearOnGrid(double current, double step, double count, double tolerance);
/// @p current, which must be positive, moved by @p count steps of @p decades powers of ten.
double logarithmic(double current, double decades, double count);

/// The share of a range that is one of @p count steps; @p singleStep if that is no number of steps
/// (-1), or the range has no finite width.
double stepOfRange(double minimum, double maximum, int count, double singleStep);

/// A value beyond a limit by more than the tolerance moved into the range by whole widths of it;
/// any other value, and any value where the limits are not finite and apart, as it is.
double wrapped(double value, double minimum, double maximum, double tolerance);

/// A value outside by less than the tolerance as the limit that it misses; any other as it is.
double snappedToLimit(double value, double minimum, double maximum, double tolerance);
/// A value that rounding keeps from a limit, coming from @p step away, as that limit; any other as
/// it is.
double ontoLimit(double value, double step, double minimum, double maximum);

} // namespace BVStepping
