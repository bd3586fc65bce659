// SPDX-License-Identifier: MIT
#pragma once

#include <QHeaderView>
#include <QVector>

/// The columns that are not hidden, in the order of their places in the header.
namespace BVShownColumns {

/// Visits them until @p visit answers false.
template <typename Visit>
void visit(const QHeaderView &header, Visit &&visit)
{
    for (int visual = 0; visual < header.count(); ++visual) {
        const int column = header.logicalIndex(visual);
        if (!header.isSectionHidden(column) && !visit(column))
            return;
    }
}

inline QVector<int> all(const QHeaderView &header)
{
    QVector<int> columns;
    visit(header, [&columns](int column) {
        columns.append(column);
        return true;
    });
    return columns;
}

} // namespace BVShownColumns
