// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

class BVContainerListControl;
class BVLabel;
class QTreeWidgetItem;

/// The page on which operations are planned: the list of those that are available, and the plan.
/// Rows are dragged from the one into the other and within the plan, or moved with Alt and the
/// arrow keys. An operation that is removed from the plan is available again.
class OperationsPage : public QWidget
{
    Q_OBJECT

public:
    explicit OperationsPage(QWidget *parent = nullptr);

    BVContainerListControl *available() const { return m_available; }
    BVContainerListControl *plan() const { return m_plan; }
    /// Tells what is planned.
    const BVLabel *summary() const { return m_summary; }

private:
    QWidget *createList(BVContainerListControl *list, const QString &title);
    void setUpDragging();
    void takeBack(const QList<QTreeWidgetItem *> &items);
    void updateSummary();

    BVContainerListControl *m_available;
    BVContainerListControl *m_plan;
    BVLabel *m_summary;
};
