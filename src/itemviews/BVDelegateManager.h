// SPDX-License-Identifier: MIT
#pragma once

#include "BVWidgetsExport.h"

#include <QAbstractItemDelegate>
#include <QHash>
#include <QPersistentModelIndex>
#include <QPointer>

class BVItemDelegate;
class QAbstractItemView;

/// A delegate that serves each cell with another delegate: one set for the cell, else for its row,
/// else for its column, else the default one.
///
/// Rows and columns are those of a cell within its parent. The delegates belong to their makers;
/// null takes one away, and another manager is ignored. A cell that none serves is painted empty
/// and not edited.
class BVWIDGETS_EXPORT BVDelegateManager : public QAbstractItemDelegate
{
    Q_OBJECT

public:
    explicit BVDelegateManager(QObject *parent = nullptr);
    ~BVDelegateManager() override;

    void setDefaultDelegate(QAbstractItemDelegate *delegate);
    void setDelegate(const QModelIndex &index, QAbstractItemDelegate *delegate);
    void setDelegateForRow(int row, QAbstractItemDelegate *delegate);
    void setDelegateForColumn(int column, QAbstractItemDelegate *delegate);
    /// The delegate that serves the cell, or null.
    QAbstractItemDelegate *delegate(const QModelIndex &index) const;

    /// The delegate that serves a cell of a view, also behind a manager. Null unless it is a
    /// BVItemDelegate.
    static BVItemDelegate *itemDelegateOf(const QAbstractItemView *view, const QModelIndex &index);

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &option,
                          const QModelIndex &index) const override;
    void destroyEditor(QWidget *editor, const QModelIndex &index) const override;
    void setEditorData(QWidget *editor, const QModelIndex &index) const override;
    void setModelData(QWidget *editor, QAbstractItemModel *model,
                      const QModelIndex &index) const override;
    void updateEditorGeometry(QWidget *editor, const QStyleOptionViewItem &option,
                              const QModelIndex &index) const override;
    bool editorEvent(QEvent *event, QAbstractItemModel *model, const QStyleOptionViewItem &option,
                     const QModelIndex &index) override;
    bool helpEvent(QHelpEvent *event, QAbstractItemView *view, const QStyleOptionViewItem &option,
                   const QModelIndex &index) override;
    QVector<int> paintingRoles() const override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    using Delegate = QPointer<QAbstractItemDelegate>;

    template <typename Key>
    void set(QHash<Key, Delegate> &delegates, const Key &key, QAbstractItemDelegate *delegate);
    void forwardSignals(QAbstractItemDelegate *delegate);
    QAbstractItemDelegate *editorDelegate(QWidget *editor, const QModelIndex &index) const;

    Delegate m_default;
    QHash<QPersistentModelIndex, Delegate> m_byIndex;
    QHash<int, Delegate> m_byRow;
    QHash<int, Delegate> m_byColumn;
    mutable QHash<QObject *, Delegate> m_byEditor; // the delegates that made the open editors
};
