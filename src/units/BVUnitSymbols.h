// SPDX-License-Identifier: MIT
#pragma once

#include "BVWidgetsExport.h"

#include <QString>

/// How units are written for people: "°C" for "degC", "µm" for "um", "dm²" for "dm^2", and whether
/// a space stands between a number and its unit.
///
/// Formatter, validators and unit choice share this table and nothing else. All functions may be
/// called from any thread.
class BVWIDGETS_EXPORT BVUnitSymbols
{
public:
    BVUnitSymbols() = delete;

    /// The sign for "no value".
    static QString emptySign();

    /// Writes unit texts as symbols, or with @p reverse symbols as unit texts. Returns whether @p
    /// text has changed.
    ///
    /// Forward, a text that is a unit text of the table as a whole becomes its symbol; in any other
    /// text each one found is replaced, in code-unit order ("dm^2" -> "dm²", "degC/s" -> "°C/s").
    /// In reverse each symbol found is replaced. Answers are kept for short texts, a bounded number
    /// of them.
    static bool replaceSymbols(QString &text, bool reverse);

    /// Whether a space separates the number from @p unit, given as unit text; false for "deg",
    /// "degC", "degF" and "%" alone.
    static bool hasSpaceBefore(const QString &unit);

    /// Appends @p unit as its symbol, separated as hasSpaceBefore() says; no space is put at the
    /// start of an empty text. An empty unit appends nothing.
    static void appendUnit(QString &text, const QString &unit);

    /// Whether one of the symbols starts with @p text, without being it.
    static bool isStartOfSymbol(const QString &text);
};
