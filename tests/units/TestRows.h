// SPDX-License-Identifier: MIT
#pragma once

#include <QDebug>
#include <QTest>

#include <limits>
#include <tuple>

constexpr double s_inf = std::numeric_limits<double>::infinity();
constexpr double s_nan = std::numeric_limits<double>::quiet_NaN();

/// The table of a test: made from the names of its columns, called with the values of a row, which
/// become of the columns' types. A row without a name is named by its values.
template <typename... Types>
class Table
{
public:
    template <typename... Names>
    explicit Table(Names... names)
    {
        (QTest::addColumn<Types>(names), ...);
    }

    void operator()(const char *name, const Types &...values) const { (QTest::newRow(name) << ... << values); }

    void operator()(const Types &...values) const
    {
        QString name;
        (QDebug(&name).noquote() << ... << values);
        (*this)(qUtf8Printable(name), values...);
    }
};

/// What the columns hold in the row of a test.
template <typename... Types, typename... Names>
std::tuple<Types...> fetched(Names... names)
{
    return {*static_cast<Types *>(QTest::qData(names, qMetaTypeId<Types>()))...};
}
