// SPDX-License-Identifier: MIT
#pragma once

#include <QVariant>
#include <QVector>

/// One stored value of a tree item's cell.
struct ItemData
{
    int role = 0; ///< a Qt::ItemDataRole or a role of the application
    QVariant value;
};

Q_DECLARE_TYPEINFO(ItemData, Q_MOVABLE_TYPE);
