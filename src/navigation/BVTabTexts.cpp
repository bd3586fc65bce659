// SPDX-License-Identifier: MIT
#include "navigation/BVTabTexts_p.h"

#include <QFontMetrics>

#include <algorithm>

namespace {

QVector<QString> formsOf(const QString &text, const BVTabTexts::Reducing &reducing)
{
    QMap<int, QString> map;
    if (reducing)
        reducing(map, text);
    if (map.isEmpty())
        map.insert(0, text);
    QVector<QString> forms = QVector<QString>::fromList(map.values());
    std::transform(forms.begin(), forms.end(), forms.begin(), BVTabTexts::oneLine);
    return forms;
}

/// The text that stands in for an empty form at @p level.
QString nearestForm(const QVector<QString> &forms, int level)
{
    const auto isSomething = [](const QString &form) { return !form.isEmpty(); };
    const auto next = std::find_if(forms.begin() + level, forms.end(), isSomething);
    if (next != forms.end())
        return *next;
    const auto before =
        std::find_if(forms.rbegin() + (forms.size() - level), forms.rend(), isSomething);
    return before != forms.rend() ? *before : QString();
}

} // namespace

void BVTabTexts::measure(const QString &text, const Reducing &reducing, const QFontMetrics &metrics)
{
    const QVector<QString> forms = formsOf(text, reducing);
    forget();
    for (int level = 0; level < forms.size(); ++level) {
        m_forms.append(nearestForm(forms, level));
        m_widths.append(metrics.horizontalAdvance(m_forms.last()));
    }
}

void BVTabTexts::pad(int levels)
{
    while (m_forms.size() < levels) {
        m_forms.append(QString(m_forms.last()));
        m_widths.append(int(m_widths.last()));
    }
}

QString BVTabTexts::oneLine(QString text)
{
    const auto breaksLine = [](QChar c) {
        return c.category() == QChar::Other_Control || c == QChar::LineSeparator ||
               c == QChar::ParagraphSeparator;
    };
    std::replace_if(text.begin(), text.end(), breaksLine, QLatin1Char(' '));
    return text;
}

void BVTabTexts::forget()
{
    m_forms.clear();
    m_widths.clear();
}
