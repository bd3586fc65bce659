// SPDX-License-Identifier: MIT
#pragma once

#include <QMap>
#include <QString>
#include <QStringView>

#include <array>
#include <map>

namespace Brimvale {

/// The text defines of a sheet, arranged so that lines without any are passed over quickly.
class StyleSheetDefines
{
public:
    /// Adds a define or gives it another value. The name is not empty and holds no white space.
    void define(const QString &name, const QString &value);

    /// Replaces in @p text, in descending order of name, every occurrence of each name. Returns the
    /// result, or a null text if no name occurs. A name whose values would make the text grow by
    /// more than @p maximumGrowth characters in all stays; @p refused gets the first such name.
    QString substituted(QStringView text, int maximumGrowth, QString *refused) const;

    QMap<QString, QString> values() const;

private:
    static constexpr std::size_t s_buckets = 128;

    struct Less
    {
        using is_transparent = void;
        bool operator()(QStringView first, QStringView second) const { return first < second; }
    };
    using Map = std::map<QString, QString, Less>;
    using Define = Map::value_type; // name and value

    const Define *lastAtStart(QStringView text, const QString *below) const;
    const Define *lastIn(QStringView text, const QString *below) const;

    Map m_defines;
    // For each first character, modulo the number of buckets: the second characters that names have
    // there, modulo 64, as a set.
    std::array<quint64, s_buckets> m_secondCharacters{};
};

} // namespace Brimvale
