// SPDX-License-Identifier: MIT
#pragma once

#include "BVWidgetsExport.h"

#include <QMetaObject>
#include <QModelIndexList>
#include <QObject>
#include <QPointer>
#include <QVector>

class BVTableText;
class QAction;
class QMenu;
class QTreeView;
class TreeViewContextMenu;

/// Copies rows of a tree view to the clipboard as text that spreadsheets paste as a table: tabs
/// between cells, newlines between rows, the headers first unless the view hides them.
///
/// The columns stand as the user sees them, also after some were moved. Hidden columns, hidden rows
/// and all below hidden rows are left out. Only what lies below the view's root is copied. Rows in
/// collapsed branches are copied. What is not in the model yet, because it would be fetched later,
/// is not. Texts are copied as they are, also their tabs and newlines; only the HTML, which the
/// handler can add, keeps such cells whole.
///
/// The clipboard stays as it is if the text is empty, and if there are no selected rows to copy;
/// copying all without a row leaves the headers. It also stays, with a warning, if the text has
/// more than some 700 million characters.
///
/// While copying selected rows is enabled, the standard keys for it do so when the view has the
/// focus, even if the window has an action with the same shortcut. Editors of text keep the keys
/// for themselves; other widgets in cells leave them to the view. The action "Copy" only shows its
/// shortcut, so that it can stand in a window's menu beside others; a menu that it has been added
/// to by the handler brings it up to date when it opens.
///
/// Serves any tree view and belongs to it. Both actions belong to the handler.
class BVWIDGETS_EXPORT TreeViewCopyHandler : public QObject
{
    Q_OBJECT

public:
    /// Copies nothing without a view.
    explicit TreeViewCopyHandler(QTreeView *view);
    ~TreeViewCopyHandler() override;

    /// "Copy", for the selected rows. Off at first.
    void enableCopySelectedAction(bool enable);
    bool isCopySelectedActionEnabled() const { return m_copySelectedEnabled; }
    /// "Copy all", for all rows. Off at first.
    void enableCopyAllAction(bool enable);
    bool isCopyAllActionEnabled() const { return m_copyAllEnabled; }

    /// Columns of the model that are never copied.
    void setIgnoredColumns(const QVector<int> &columns);
    /// Whether cells are copied as their BVItemDelegate shows them, with units and in the view's
    /// locale, instead of as the model's values. Off at first.
    void setUseFormattedValues(bool use);
    /// Whether the clipboard also gets the rows as an HTML table, which is made when a program asks
    /// for it; tables of more than some ten million characters go without. Off at first.
    void setHtmlEnabled(bool enable);
    bool isHtmlEnabled() const { return m_htmlEnabled; }

    /// Adds the enabled actions, unless the view has no rows. "Copy" is left out if the view
    /// selects nothing, and disabled without selected rows.
    void addCopyActionsToMenu(QMenu &menu);
    void addCopyActionsToMenu(TreeViewContextMenu &menu);

    /// To be called when the view has got another selection model.
    void selectionModelChanged();

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void copySelected();
    void copyAll();
    bool canCopy() const;
    QVector<int> copiedColumns() const;
    BVTableText headerTable(const QVector<int> &columns) const;
    QString getHeaderText(int column) const;
    void getRowText(const QModelIndex &row, const QVector<int> &columns, BVTableText &table) const;
    QString getCellText(const QModelIndex &index) const;
    void setClipboard(BVTableText table) const;
    QList<QAction *> offeredActions(const QMenu *menu);
    void updateActionState();
    void disconnectSelection();

    QPointer<QTreeView> m_view;
    QAction *m_copyAction = nullptr;    // child of this, made when first enabled
    QAction *m_copyAllAction = nullptr; // likewise
    bool m_copySelectedEnabled = false;
    bool m_copyAllEnabled = false;
    QVector<int> m_ignoredColumns;
    bool m_useFormattedValues = false;
    bool m_htmlEnabled = false;
    QVector<QMetaObject::Connection> m_selectionConnections;
};

/// The selected rows of a view, as the indexes of their first cells, from top to bottom; those in
/// collapsed branches stand where they would be shown. A row is selected if any of its cells is.
/// Hidden rows, rows below them and rows outside the view's root are left out.
BVWIDGETS_EXPORT QModelIndexList getSortedSelectedRows(QTreeView *view);
