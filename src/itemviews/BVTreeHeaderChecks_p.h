// SPDX-License-Identifier: MIT
#pragma once

#include <QModelIndexList>
#include <Qt>

class BVCustomHeaderView;
class BVTreeView;
class QTimer;

/// Keeps the check boxes of a tree view's header and the cells of its model in step.
class BVTreeHeaderChecks
{
public:
    explicit BVTreeHeaderChecks(BVTreeView *view);

    /// The view's header if it can have check boxes, else null.
    BVCustomHeaderView *header() const;
    /// Gives the view such a header if it has another one.
    void makeHeader();
    /// Writes header data of the view's model.
    void setHeaderData(int column, int role, const QVariant &value);
    /// To be called when such a header has been set.
    void adoptHeader();
    /// Lets the boxes follow the cells, once for all calls of some milliseconds.
    void scheduleUpdate();

    /// Whether the cells are being written, so that the view need not look at each change.
    bool isWriting() const { return m_isWriting; }
    void write(const QModelIndexList &indexes, int column, Qt::CheckState state);

private:
    QModelIndexList checkableCells(int column) const;
    Qt::CheckState columnState(int column) const;
    void update();
    void onBoxChecked(bool checked, int column);

    BVTreeView *m_view;
    QTimer *m_checkStateTimer; // child of the view
    bool m_isWriting = false;
};
