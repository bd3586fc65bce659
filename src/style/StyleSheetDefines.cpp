// SPDX-License-Identifier: MIT
#include "style/StyleSheetDefines_p.h"

#include <algorithm>

namespace Brimvale {

void StyleSheetDefines::define(const QString &name, const QString &value)
{
    m_values.insert(name, value);
    const std::size_t bucket = name.at(0).unicode() % s_buckets;
    m_secondCharacters[bucket] |=
        name.size() == 1 ? ~quint64(0) : quint64(1) << (name.at(1).unicode() % 64);
    std::vector<Define> &defines = m_buckets[bucket];
    const auto place = std::find_if(defines.begin(), defines.end(),
                                    [&](const Define &define) { return define.name <= name; });
    if (place != defines.end() && place->name == name)
        place->value = value;
    else
        defines.insert(place, {name, value});
}

// The define with the last name that occurs in the text, of those that stand before *below.
const StyleSheetDefines::Define *StyleSheetDefines::lastIn(QStringView text,
                                                           const Define *below) const
{
    const Define *last = nullptr;
    const auto *const characters = text.utf16();
    const qsizetype size = text.size();
    for (qsizetype i = 0; i < size; ++i) {
        const std::size_t bucket = characters[i] % s_buckets;
        const unsigned second = i + 1 < size ? characters[i + 1] : 0u;
        if (!(m_secondCharacters[bucket] >> (second % 64) & 1))
            continue;
        for (const Define &define : m_buckets[bucket]) {
            if (last && define.name <= last->name)
                break;
            if (text.mid(i).startsWith(define.name) && (!below || define.name < below->name))
                last = &define;
        }
    }
    return last;
}

QString StyleSheetDefines::substituted(QStringView text, qint64 maximumLength,
                                       QString *refused) const
{
    const Define *define = lastIn(text, nullptr);
    if (!define)
        return QString();
    QString result = text.toString();
    for (; define; define = lastIn(result, define)) {
        const qint64 growth = qint64(define->value.size()) - define->name.size();
        if (growth <= 0 || result.size() + growth * result.count(define->name) <= maximumLength)
            result.replace(define->name, define->value);
        else if (refused->isEmpty())
            *refused = define->name;
    }
    return result.isNull() ? QLatin1String("") : result;
}

} // namespace Brimvale
