// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractItemView>
#include <QPersistentModelIndex>
#include <QPointer>

class BVTreeView;
class QMouseEvent;

/// Decides for a tree view which clicks open an editor, what they select while one is open, and
/// which cell is edited next.
class BVTreeEditController
{
public:
    using SelectionFlags = QItemSelectionModel::SelectionFlags;

    explicit BVTreeEditController(BVTreeView *view);
    ~BVTreeEditController();

    bool edit(const QModelIndex &index, QAbstractItemView::EditTrigger trigger, QEvent *event);
    void closeEditor(QWidget *editor, QAbstractItemDelegate::EndEditHint hint);
    SelectionFlags selectionCommand(const QModelIndex &index, const QEvent *event);
    /// A release that is not for the view takes what the press has left for it.
    void endPress() { m_toggledOnRelease = QPersistentModelIndex(); }
    bool isEditing() const;
    /// How a cell becomes the selection.
    SelectionFlags soleSelection() const;

    void enableDeselection(bool enable) { m_deselectionEnabled = enable; }

private:
    void setEditor(QWidget *editor);
    void endEditing();
    QAbstractItemView::EditTrigger adjustedTrigger(const QModelIndex &index,
                                                   QAbstractItemView::EditTrigger trigger,
                                                   const QEvent *event) const;
    bool isSeveralRowsSelected() const;
    bool keepsSelection(const QModelIndex &index, const QEvent *event) const;
    SelectionFlags pressCommand(const QModelIndex &index, SelectionFlags command);
    SelectionFlags moveCommand(const QModelIndex &index, SelectionFlags command);
    SelectionFlags releaseCommand(const QModelIndex &index, const QMouseEvent *event,
                                  SelectionFlags command);
    SelectionFlags behaviorFlags() const;
    bool isEditStop(const QModelIndex &index) const;
    QModelIndex nextCell(bool forward) const;
    void editNext(bool forward);

    BVTreeView *m_view;
    QPointer<QWidget> m_editor;
    QMetaObject::Connection m_editorGone;
    QPersistentModelIndex m_toggledOnRelease; // a selected cell pressed with Control
    bool m_multiRowEditing = false;           // an editor is open in one of several selected rows
    bool m_pressedWhileEditing = false;       // the last press came while that was so
    bool m_deselectionEnabled = true;
};
