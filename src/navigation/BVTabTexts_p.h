// SPDX-License-Identifier: MIT
#pragma once

#include <QMap>
#include <QString>
#include <QVector>

#include <functional>

class QFontMetrics;

/// The forms of a tab's text, longest first, with their widths.
struct BVTabTexts
{
    using Reducing = std::function<void(QMap<int, QString> &, const QString &)>;

    QVector<QString> m_forms; // by level; empty until measured
    QVector<int> m_widths;    // px

    /// The forms of @p text; without @p reducing the text alone. A level that leaves nothing of the
    /// text shows the next one that leaves something, else the one before it.
    void measure(const QString &text, const Reducing &reducing, const QFontMetrics &metrics);
    /// Repeats the last form until there are @p levels.
    void pad(int levels);
    bool isMeasured() const { return !m_forms.isEmpty(); }
    void forget();

    /// The text as a tab shows it, with line breaks and tabulators as spaces.
    static QString oneLine(QString text);
};
