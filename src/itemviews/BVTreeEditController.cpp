// SPDX-License-Identifier: MIT
#include "itemviews/BVTreeEditController_p.h"

#include "itemviews/BVDelegateManager.h"
#include "itemviews/BVItemDelegate.h"
#include "itemviews/BVTreeView.h"
#include "itemviews/BVTreeViewModel.h"

#include <QMouseEvent>
#include <QSignalBlocker>
#include <QTimer>

namespace {

bool isMouseEvent(const QEvent *event)
{
    switch (event ? event->type() : QEvent::None) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
        return true;
    default:
        return false;
    }
}

bool isMouseEvent(const QEvent *event, QEvent::Type type)
{
    return event && event->type() == type;
}

bool hasControl(const QEvent *event)
{
    return isMouseEvent(event) &&
           static_cast<const QMouseEvent *>(event)->modifiers() & Qt::ControlModifier;
}

} // namespace

BVTreeEditController::BVTreeEditController(BVTreeView *view)
    : m_view(view)
{
}

BVTreeEditController::~BVTreeEditController()
{
    QObject::disconnect(m_editorGone);
}

// Editing

bool BVTreeEditController::edit(const QModelIndex &index, QAbstractItemView::EditTrigger trigger,
                                QEvent *event)
{
    if (!m_view->selectionModel())
        return false;
    const QPointer<BVTreeView> view(m_view);
    const QPersistentModelIndex cell(index);
    if (!m_view->QTreeView::edit(index, adjustedTrigger(index, trigger, event), event))
        return false;
    if (!view || m_view->state() != BVTreeView::EditingState)
        return true; // the delegate has used the event, or the editor opens later
    if (QWidget *editor = m_view->indexWidget(m_view->model()->buddy(cell)))
        setEditor(editor);
    if (view)
        m_multiRowEditing = m_multiRowEditing || isSeveralRowsSelected();
    return true;
}

/// Editors of cells that are removed go without being closed.
void BVTreeEditController::setEditor(QWidget *editor)
{
    const QPointer<BVTreeView> view(m_view);
    if (m_editor && m_editor != editor)
        endEditing();
    if (!view)
        return;
    QObject::disconnect(m_editorGone);
    m_editor = editor;
    m_editorGone = QObject::connect(editor, &QObject::destroyed, m_view, [this] { endEditing(); });
}

void BVTreeEditController::endEditing()
{
    QObject::disconnect(m_editorGone);
    m_editor = nullptr;
    // The press that takes the focus from the editor follows at once and still keeps the selection.
    QTimer::singleShot(0, m_view, [this] { m_multiRowEditing = m_multiRowEditing && m_editor; });
    Q_EMIT m_view->sigEditingFinished();
}

/// The trigger that counts for an event in a cell.
QAbstractItemView::EditTrigger BVTreeEditController::adjustedTrigger(
    const QModelIndex &index, QAbstractItemView::EditTrigger trigger, const QEvent *event) const
{
    if (trigger != QAbstractItemView::SelectedClicked)
        return trigger;
    const bool isRelease = isMouseEvent(event, QEvent::MouseButtonRelease);
    if (hasControl(event) && (isRelease || isMouseEvent(event, QEvent::MouseButtonPress)))
        return QAbstractItemView::NoEditTriggers;
    if (!isRelease || m_view->editTriggers() == QAbstractItemView::NoEditTriggers)
        return trigger;
    const int type = index.data(Qt::EditRole).userType();
    if (type == QMetaType::QString && isSeveralRowsSelected())
        return QAbstractItemView::NoEditTriggers;
    const BVItemDelegate *delegate = BVDelegateManager::itemDelegateOf(m_view, index);
    if (type == QMetaType::Double && delegate && delegate->isEditable(index))
        return QAbstractItemView::AllEditTriggers;
    return trigger;
}

bool BVTreeEditController::isEditing() const
{
    return m_editor || m_view->state() == BVTreeView::EditingState;
}

void BVTreeEditController::closeEditor(QWidget *editor, QAbstractItemDelegate::EndEditHint hint)
{
    const bool isOurs = editor && editor == m_editor;
    const bool goesOn = isOurs && (hint == QAbstractItemDelegate::EditNextItem ||
                                   hint == QAbstractItemDelegate::EditPreviousItem);
    if (isOurs) {
        QObject::disconnect(m_editorGone);
        m_editor = nullptr;
    }
    const QPointer<BVTreeView> view(m_view);
    m_view->QTreeView::closeEditor(editor, goesOn ? QAbstractItemDelegate::NoHint : hint);
    if (!view || !isOurs)
        return;
    endEditing();
    if (view && goesOn)
        editNext(hint == QAbstractItemDelegate::EditNextItem);
}

// Going on to the next cell

bool BVTreeEditController::isEditStop(const QModelIndex &index) const
{
    constexpr Qt::ItemFlags needed = Qt::ItemIsEditable | Qt::ItemIsEnabled;
    return (index.flags() & needed) == needed &&
           !index.sibling(index.row(), 0).data(BVTreeViewModel::NonEditableRowRole).toBool() &&
           !index.data(BVTreeViewModel::NonEditableRowRole).toBool() &&
           !m_view->isEditingPrevented(index);
}

/// The next cell to edit; invalid if there is none.
QModelIndex BVTreeEditController::nextCell(bool forward) const
{
    const auto action = forward ? BVTreeView::MoveNext : BVTreeView::MovePrevious;
    QItemSelectionModel *selection = m_view->selectionModel();
    // The view knows only the way from its current cell, which nobody else is to see wandering.
    const QSignalBlocker blocker(selection);
    const QModelIndex start = m_view->currentIndex();
    QModelIndex index = start;
    do {
        selection->setCurrentIndex(index, QItemSelectionModel::NoUpdate);
        const QModelIndex next = m_view->moveCursor(action, Qt::NoModifier);
        index = next == index || next == start ? QModelIndex() : next;
    } while (index.isValid() && !isEditStop(index));
    selection->setCurrentIndex(start, QItemSelectionModel::NoUpdate);
    return index;
}

void BVTreeEditController::editNext(bool forward)
{
    if (!m_view->selectionModel() || !m_view->currentIndex().isValid())
        return;
    const QPersistentModelIndex cell = nextCell(forward);
    if (!cell.isValid())
        return;
    const QPointer<BVTreeView> view(m_view);
    m_view->selectionModel()->setCurrentIndex(cell, soleSelection());
    if (view && cell.isValid() && !isEditing())
        m_view->edit(cell, QAbstractItemView::AllEditTriggers, nullptr);
}

// Selecting

BVTreeEditController::SelectionFlags BVTreeEditController::behaviorFlags() const
{
    switch (m_view->selectionBehavior()) {
    case QAbstractItemView::SelectRows:
        return QItemSelectionModel::Rows;
    case QAbstractItemView::SelectColumns:
        return QItemSelectionModel::Columns;
    default:
        return QItemSelectionModel::NoUpdate;
    }
}

BVTreeEditController::SelectionFlags BVTreeEditController::soleSelection() const
{
    if (m_view->selectionMode() == QAbstractItemView::NoSelection)
        return QItemSelectionModel::NoUpdate;
    return QItemSelectionModel::ClearAndSelect | behaviorFlags();
}

bool BVTreeEditController::isSeveralRowsSelected() const
{
    const QItemSelection selection = m_view->selectionModel()->selection();
    for (const QItemSelectionRange &range : selection) {
        const QItemSelectionRange &first = selection.constFirst();
        if (range.height() > 1 || range.top() != first.top() || range.parent() != first.parent())
            return true;
    }
    return false;
}

bool BVTreeEditController::keepsSelection(const QModelIndex &index, const QEvent *event) const
{
    return (m_multiRowEditing || m_pressedWhileEditing) && index.isValid() && isMouseEvent(event) &&
           !isMouseEvent(event, QEvent::MouseButtonPress) && isSeveralRowsSelected();
}

BVTreeEditController::SelectionFlags
BVTreeEditController::selectionCommand(const QModelIndex &index, const QEvent *event)
{
    if (isMouseEvent(event, QEvent::MouseButtonPress)) {
        m_pressedWhileEditing = m_multiRowEditing;
        m_toggledOnRelease = QPersistentModelIndex();
    }
    if (m_view->selectionModel() && keepsSelection(index, event))
        return QItemSelectionModel::NoUpdate;
    const SelectionFlags command = m_view->QTreeView::selectionCommand(index, event);
    if (m_view->selectionMode() != QAbstractItemView::ExtendedSelection || !isMouseEvent(event))
        return command;
    const auto *mouse = static_cast<const QMouseEvent *>(event);
    if (event->type() == QEvent::MouseButtonRelease)
        return releaseCommand(index, mouse, command);
    if (!(mouse->modifiers() & Qt::ControlModifier) || !(command & QItemSelectionModel::Toggle))
        return command;
    if (event->type() == QEvent::MouseButtonPress)
        return pressCommand(index, command);
    return event->type() == QEvent::MouseMove ? moveCommand(index, command) : command;
}

/// A press with Control.
BVTreeEditController::SelectionFlags BVTreeEditController::pressCommand(const QModelIndex &index,
                                                                        SelectionFlags command)
{
    if (m_view->selectionModel()->isSelected(index)) {
        m_toggledOnRelease = index;
        return QItemSelectionModel::NoUpdate;
    }
    return command.setFlag(QItemSelectionModel::Toggle, false) | QItemSelectionModel::Select;
}

/// A move after it: the rows swept over become what the pressed one became.
BVTreeEditController::SelectionFlags BVTreeEditController::moveCommand(const QModelIndex &index,
                                                                       SelectionFlags command)
{
    command.setFlag(QItemSelectionModel::Toggle, false);
    if (!m_toggledOnRelease.isValid())
        return command | QItemSelectionModel::Select;
    if (m_toggledOnRelease == index)
        return QItemSelectionModel::NoUpdate;
    return command | QItemSelectionModel::Deselect;
}

BVTreeEditController::SelectionFlags BVTreeEditController::releaseCommand(const QModelIndex &index,
                                                                          const QMouseEvent *event,
                                                                          SelectionFlags command)
{
    const QPersistentModelIndex toggled = m_toggledOnRelease;
    m_toggledOnRelease = QPersistentModelIndex();
    if (!index.isValid())
        return m_deselectionEnabled ? command : SelectionFlags(QItemSelectionModel::NoUpdate);
    if (toggled == index && event->modifiers() & Qt::ControlModifier)
        return QItemSelectionModel::Deselect | behaviorFlags();
    return command;
}
