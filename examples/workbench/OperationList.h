// SPDX-License-Identifier: MIT
#pragma once

#include "OperationSetup.h"

#include <QList>
#include <QObject>

#include <vector>

class BVControlledStackItem;
class OperationPage;
class QPoint;
class QTreeWidgetItem;

/// The operations of a set-up: the entries below one entry of a stack, each with its page. The user
/// renames, checks, drags and removes them in the navigation.
class OperationList : public QObject
{
    Q_OBJECT

public:
    /// For the entries below @p group, which outlives the list.
    OperationList(BVControlledStackItem *group, QObject *parent);

    /// Replaces all. The entry that is current, seen by its position, stays so.
    void setOperations(const std::vector<OperationSetup> &operations);
    std::vector<OperationSetup> operations() const;
    /// In their order.
    QList<OperationPage *> pages() const;

    /// Adds one at the end, with a name that no other has.
    BVControlledStackItem *add(int kind);
    void remove(BVControlledStackItem *item);
    /// Whether the entry is one of an operation.
    bool isOperation(const BVControlledStackItem *item) const;
    /// Where the next entry will be, in the navigation tree's viewport.
    QPoint nextPosition() const;

Q_SIGNALS:
    void pageAdded(OperationPage *page);
    /// There are others, in another order, with another name or state.
    void changed();

private:
    BVControlledStackItem *append(const OperationSetup &operation);
    QString freeName(const QString &name) const;
    void onToggled(BVControlledStackItem *item);
    void onRenamed(BVControlledStackItem *item);
    void onAboutToBeRemoved(const QList<QTreeWidgetItem *> &rows, bool *remove);

    BVControlledStackItem *m_group; // of the stack
};
