// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <vector>

/// A quantity that a forming simulation gives at each step.
struct ResultVariable
{
    enum LimitKind {
        NoLimit,
        LowerLimit, ///< of the minimum
        UpperLimit, ///< of the maximum
    };

    const char *name;  ///< English, to be translated in the context "ResultsData"
    const char *unit;  ///< in which its values are held; empty for none
    int extraDecimals; ///< beyond those that are usual for the unit; may be negative
    LimitKind limitKind;
    double limit; ///< the usual one

    QString nameText() const;
};

/// The extremes of a variable over the whole sheet.
struct ResultRange
{
    int variable; ///< index in ResultsData::variables()
    double minimum;
    double maximum;
};

struct ResultStep
{
    double position; ///< time in s or punch stroke in mm
    std::vector<ResultRange> ranges;
};

struct ResultOperation
{
    QString name;
    bool hasStroke; ///< whether the positions of its steps are strokes
    std::vector<ResultStep> steps;
};

using ResultOperations = std::vector<ResultOperation>;

/// Results as a simulation of a square cup could give them; the same ones each time.
namespace ResultsData {

constexpr int s_longRunRows = 100000;

const std::vector<ResultVariable> &variables();
/// One cup, from the blank to the finished part.
ResultOperations cup();
/// Many cups with warming tools, s_longRunRows rows in all.
ResultOperations longRun();
/// How many rows they are as a tree: operations, their steps, and the ranges of these.
int rowCount(const ResultOperations &operations);

} // namespace ResultsData
