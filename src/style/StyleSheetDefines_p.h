// SPDX-License-Identifier: MIT
#pragma once

#include <QMap>
#include <QString>
#include <QStringView>

#include <array>
#include <vector>

namespace Brimvale {

/// The text defines of a sheet, arranged so that lines without any are passed over quickly.
class StyleSheetDefines
{
public:
    /// Adds a define or gives it another value. The name is not empty and holds no white space.
    void define(const QString &name, const QString &value);

    /// Replaces in @p text, in descending order of name, every occurrence of each name. Returns the
    /// result, or a null text if no name occurs. A name whose values would make the text longer
    /// than
    /// @p maximumLength stays; the first such name goes to @p refused.
    QString substituted(QStringView text, qint64 maximumLength, QString *refused) const;

    const QMap<QString, QString> &values() const { return m_values; }

private:
    static constexpr std::size_t s_buckets = 128;

    struct Define
    {
        QString name;
        QString value;
    };

    const Define *lastIn(QStringView text, const Define *below) const;

    QMap<QString, QString> m_values;
    // For each first character, modulo the number of buckets: the second characters that names have
    // there, modulo 64, as a set; and the defines, the last name first.
    std::array<quint64, s_buckets> m_secondCharacters{};
    std::array<std::vector<Define>, s_buckets> m_buckets;
};

} // namespace Brimvale
