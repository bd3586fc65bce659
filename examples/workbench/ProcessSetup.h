// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <vector>

/// The values of one deep-drawing process, in the order and the units of SetupFields.
///
/// A new set-up has no values yet: its numbers are noValue(), its texts empty. Fields are addressed
/// by their index in the table.
class ProcessSetup
{
public:
    ProcessSetup();

    /// The number that stands for "not given"; the one that formatters take for "no value".
    static double noValue();

    double number(int field) const { return m_numbers[size_t(field)]; }
    void setNumber(int field, double value) { m_numbers[size_t(field)] = value; }
    const QString &text(int field) const { return m_texts[size_t(field)]; }
    /// Stores the text as files can hold it: without control characters, white space simplified.
    void setText(int field, const QString &text);

    const QString &title() const { return m_title; }
    void setTitle(const QString &title);
    /// Where the values come from.
    const QString &source() const { return m_source; }
    void setSource(const QString &source);

    /// The names of the fields without a value.
    QStringList missingFields() const;

    /// The text without control characters and with single spaces between its words.
    static QString storableText(const QString &text);

    /// Equal to the last bit.
    bool operator==(const ProcessSetup &other) const;
    bool operator!=(const ProcessSetup &other) const { return !(*this == other); }

private:
    std::vector<double> m_numbers;
    std::vector<QString> m_texts;
    QString m_title;
    QString m_source;
};
