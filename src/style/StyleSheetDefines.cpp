// SPDX-License-Identifier: MIT
#include "style/StyleSheetDefines_p.h"

#include <algorithm>

namespace Brimvale {

void StyleSheetDefines::define(const QString &name, const QString &value)
{
    m_defines[name] = value;
    m_secondCharacters[name.at(0).unicode() % s_buckets] |=
        name.size() == 1 ? ~quint64(0) : quint64(1) << (name.at(1).unicode() % 64);
}

QMap<QString, QString> StyleSheetDefines::values() const
{
    QMap<QString, QString> result;
    for (const auto &[name, value] : m_defines)
        result.insert(result.cend(), name, value);
    return result;
}

// The define with the last name of those that the text begins with and that stand before *below.
const StyleSheetDefines::Define *StyleSheetDefines::lastAtStart(QStringView text,
                                                                const QString *below) const
{
    auto place =
        below && *below <= text ? m_defines.lower_bound(*below) : m_defines.upper_bound(text);
    while (place != m_defines.begin()) {
        const QString &name = (--place)->first;
        const auto difference =
            std::mismatch(name.begin(), name.end(), text.begin(), text.end()).first;
        if (difference == name.end())
            return &*place;
        if (difference == name.begin())
            return nullptr;
        // Any other name that the text begins with ends before the difference.
        place = m_defines.upper_bound(text.left(difference - name.begin()));
    }
    return nullptr;
}

// The define with the last name that occurs in the text, of those that stand before *below.
const StyleSheetDefines::Define *StyleSheetDefines::lastIn(QStringView text,
                                                           const QString *below) const
{
    const Define *last = nullptr;
    const auto *const characters = text.utf16();
    const qsizetype size = text.size();
    for (qsizetype i = 0; i < size; ++i) {
        const unsigned second = i + 1 < size ? characters[i + 1] : 0u;
        if (!(m_secondCharacters[characters[i] % s_buckets] >> (second % 64) & 1))
            continue;
        const Define *define = lastAtStart(text.mid(i), below);
        if (define && (!last || last->first < define->first))
            last = define;
    }
    return last;
}

QString StyleSheetDefines::substituted(QStringView text, int maximumGrowth, QString *refused) const
{
    const Define *define = lastIn(text, nullptr);
    if (!define)
        return QString();
    QString result = text.toString();
    const qint64 maximumLength = qint64(text.size()) + maximumGrowth;
    for (; define; define = lastIn(result, &define->first)) {
        const auto &[name, value] = *define;
        const qint64 growth = qint64(value.size()) - name.size();
        if (growth <= 0 || result.size() + growth * result.count(name) <= maximumLength)
            result.replace(name, value);
        else if (refused->isEmpty())
            *refused = name;
    }
    return result.isNull() ? QLatin1String("") : result;
}

} // namespace Brimvale
