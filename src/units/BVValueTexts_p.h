// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

class BVFormatter;
class QVariant;

/// What the widgets that take one value have in common about its texts.
namespace BVValueTexts {

/// The text as the formatter reads it: without the suffix, a number without a unit with the unit
/// that it is meant in.
QString withDisplayUnit(const BVFormatter &formatter, const QString &text);

/// The value, given in the value unit, with all its digits in the display unit: the text that is
/// shown, if it has them.
QString fullValueText(const BVFormatter &formatter, double value);

/// A line "= ..." for each other unit that the user could choose for the value's quantity.
QStringList valueInOtherUnits(const BVFormatter &formatter, double value);

/// A reference value as the formatter writes it in full; one that is no number as its text.
QString referenceText(const BVFormatter &formatter, const QVariant &reference);

} // namespace BVValueTexts
