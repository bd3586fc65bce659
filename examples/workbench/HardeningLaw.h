// SPDX-License-Identifier: MIT
#pragma once

#include "FieldValues.h"

#include <QPointF>
#include <QStringList>

#include <vector>

class ProcessSetup;

/// The hardening law of a sheet: the stress K (e0 + e)^n at a plastic strain e, in MPa.
///
/// Parameters without a value are FieldValues::noValue().
struct HardeningLaw
{
    HardeningLaw() = default;
    explicit HardeningLaw(const ProcessSetup &setup);

    double coefficient = FieldValues::noValue(); ///< K, in MPa
    double prestrain = FieldValues::noValue();   ///< e0
    double exponent = FieldValues::noValue();    ///< n

    bool isComplete() const;
    /// The labels of the parameters that have no value.
    QStringList missing() const;
    /// For a complete law and a strain of 0 or more.
    double stress(double strain) const;
    /// So many points, at least two, from strain 0 to @p maximumStrain, closest where the curve
    /// bends most. Empty for a law that is not complete.
    std::vector<QPointF> curve(double maximumStrain, int count) const;

    bool operator==(const HardeningLaw &other) const;
};

/// A scale from 0 on with round numbers.
struct AxisScale
{
    /// For values up to @p maximum, with at most so many steps. A maximum that is not a positive
    /// number counts as 1.
    AxisScale(double maximum, int mostSteps);

    double step;
    int steps;

    double end() const { return step * steps; }
};
