// SPDX-License-Identifier: MIT
#pragma once

#include <QModelIndexList>
#include <QPointer>
#include <QVariant>
#include <QVector>
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
    /// Gives the column's header a box, and the view such a header if it has another one.
    void showBox(int column, Qt::Alignment alignment);
    void setBoxVisible(int column, bool visible);
    /// To be called when rows have come: models that need them for it are told of boxes now.
    void retryHeaderData();
    /// To be called when such a header has been set.
    void adoptHeader();
    /// Lets the boxes follow the cells, once for all calls of some milliseconds.
    void scheduleUpdate();
    /// As a click on the column's box, which shows what the cells say by then.
    bool setBoxChecked(bool checked, int column);

    /// Whether check states are being written into cells that have one, so that the view need not
    /// look at each change.
    bool isWriting() const { return m_writeDepth > 0 && m_isWritingQuietly; }
    /// The cells of the rows in a column of the view's model; the rows may be those of a model
    /// behind it.
    void write(const QModelIndexList &indexes, int column, Qt::CheckState state);

private:
    struct HeaderValue
    {
        QPointer<QAbstractItemModel> model;
        int column;
        int role;
        QVariant value;
    };

    void makeHeader();
    void setHeaderData(int column, int role, const QVariant &value);
    QModelIndexList checkableCells(int column) const;
    Qt::CheckState columnState(int column) const;
    void update();
    void onBoxChecked(bool checked, int column);
    void writeCell(const QModelIndex &cell, Qt::CheckState state);
    void endWriting(int column) const;
    void showSection(int column) const;

    BVTreeView *m_view;
    QTimer *m_checkStateTimer; // child of the view
    int m_writeDepth = 0;      // slots may write others meanwhile
    bool m_isWritingQuietly = false;
    QVector<HeaderValue> m_refused; // by models without rows
};
