// SPDX-License-Identifier: MIT
#include "units/BVUnitSymbols.h"

#include <QHash>
#include <QMap>

#include <algorithm>
#include <mutex>
#include <shared_mutex>

namespace {

struct Symbol
{
    QString text;
    bool spaceBefore = true;
};

const QMap<QString, Symbol> &symbols()
{
    static const QMap<QString, Symbol> s_symbols = {
        {QStringLiteral("deg"), {QStringLiteral(u"\u00b0"), false}},
        {QStringLiteral("EUR"), {QStringLiteral(u"\u20ac"), true}},
        {QStringLiteral("USD"), {QStringLiteral("$"), true}},
        {QStringLiteral("JPY"), {QStringLiteral(u"\u00a5"), true}},
        {QStringLiteral("GBP"), {QStringLiteral(u"\u00a3"), true}},
        {QStringLiteral("degC"), {QStringLiteral(u"\u00b0C"), false}},
        {QStringLiteral("degF"), {QStringLiteral(u"\u00b0F"), false}},
        {QStringLiteral("um"), {QStringLiteral(u"\u00b5m"), true}},
        {QStringLiteral("RUB"), {QStringLiteral(u"\u20bd"), true}},
        {QStringLiteral("%"), {QStringLiteral("%"), false}},
        {QStringLiteral("^2"), {QStringLiteral(u"\u00b2"), true}},
        {QStringLiteral("^3"), {QStringLiteral(u"\u00b3"), true}},
    };
    return s_symbols;
}

QString toSymbols(const QString &text)
{
    const auto whole = symbols().constFind(text);
    if (whole != symbols().constEnd())
        return whole->text;
    QString result = text;
    for (auto it = symbols().constBegin(); it != symbols().constEnd(); ++it)
        result.replace(it.key(), it->text);
    return result;
}

QString fromSymbols(const QString &text)
{
    QString result = text;
    for (auto it = symbols().constBegin(); it != symbols().constEnd(); ++it)
        result.replace(it->text, it.key());
    return result;
}

/// Most typed units are plain ASCII, which no symbol but "$" is.
bool mayHoldSymbols(const QString &text)
{
    return std::any_of(text.cbegin(), text.cend(),
                       [](QChar c) { return c.unicode() > 0x7f || c == QLatin1Char('$'); });
}

/// What texts were replaced with. It forgets everything when it is full, so that typed texts cannot
/// grow it without end.
class ReplacementCache
{
public:
    using Replace = QString (*)(const QString &);

    explicit ReplacementCache(Replace replace)
        : m_replace(replace)
    {
    }

    QString replaced(const QString &text)
    {
        if (text.size() > s_maxTextSize)
            return m_replace(text);
        {
            const std::shared_lock locker(m_lock);
            const auto known = m_texts.constFind(text);
            if (known != m_texts.constEnd())
                return *known;
        }
        return insert(text, m_replace(text));
    }

private:
    static constexpr int s_maxTextSize = 32; // UTF-16 units
    static constexpr int s_maxTexts = 512;

    QString insert(const QString &text, const QString &replacement)
    {
        const std::unique_lock locker(m_lock);
        if (m_texts.size() >= s_maxTexts)
            m_texts.clear();
        if (!m_texts.contains(text)) // another thread may have been quicker
            m_texts.insert(text, replacement);
        return replacement;
    }

    const Replace m_replace;
    std::shared_mutex m_lock;
    QHash<QString, QString> m_texts;
};

} // namespace

QString BVUnitSymbols::emptySign()
{
    return QStringLiteral("-");
}

bool BVUnitSymbols::replaceSymbols(QString &text, bool reverse)
{
    static ReplacementCache s_forward(toSymbols);
    static ReplacementCache s_reverse(fromSymbols);
    if (text.isEmpty() || (reverse && !mayHoldSymbols(text)))
        return false;
    QString replaced = (reverse ? s_reverse : s_forward).replaced(text);
    if (replaced == text)
        return false;
    text.swap(replaced); // no assignment: the thread sanitizer sees none of the toolkit's own code
    return true;
}

bool BVUnitSymbols::hasSpaceBefore(const QString &unit)
{
    const auto symbol = symbols().constFind(unit);
    return symbol == symbols().constEnd() || symbol->spaceBefore;
}

void BVUnitSymbols::appendUnit(QString &text, const QString &unit)
{
    if (unit.isEmpty())
        return;
    QString shown = unit;
    replaceSymbols(shown, false);
    if (!text.isEmpty() && hasSpaceBefore(unit))
        text += QLatin1Char(' ');
    text += shown;
}

bool BVUnitSymbols::isStartOfSymbol(const QString &text)
{
    if (text.isEmpty())
        return false;
    for (const Symbol &symbol : symbols()) {
        if (symbol.text.size() > text.size() && symbol.text.startsWith(text))
            return true;
    }
    return false;
}
