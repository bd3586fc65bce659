// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <vector>

/// Values of the fields of one table, addressed by their index in it, in the units of the fields.
///
/// There are no values at first: numbers are noValue(), texts empty.
class FieldValues
{
public:
    explicit FieldValues(size_t count)
        : m_numbers(count, noValue())
        , m_texts(count)
    {
    }

    /// The number that stands for "not given"; the one that formatters take for "no value".
    static double noValue();

    double number(int field) const { return m_numbers[size_t(field)]; }
    void setNumber(int field, double value) { m_numbers[size_t(field)] = value; }
    const QString &text(int field) const { return m_texts[size_t(field)]; }
    /// Stores the text as files can hold it: without control characters, white space simplified.
    void setText(int field, const QString &text);

    /// The text without control characters and with single spaces between its words.
    static QString storableText(const QString &text);

    /// Equal to the last bit.
    bool operator==(const FieldValues &other) const;

private:
    std::vector<double> m_numbers;
    std::vector<QString> m_texts;
};
