// SPDX-License-Identifier: MIT
#include "itemviews/TreeViewCopyHandler.h"

#include "itemviews/BVDelegateManager.h"
#include "itemviews/BVItemDelegate.h"
#include "itemviews/BVRowTexts_p.h"
#include "itemviews/BVRowWalk_p.h"
#include "itemviews/BVSelectedRows_p.h"
#include "itemviews/BVShownColumns_p.h"
#include "itemviews/BVTableMimeData_p.h"
#include "itemviews/TreeViewContextMenu.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>
#include <QMenu>
#include <QTreeView>

#include <utility>

TreeViewCopyHandler::TreeViewCopyHandler(QTreeView *view)
    : QObject(view)
    , m_view(view)
{
}

TreeViewCopyHandler::~TreeViewCopyHandler() = default;

void TreeViewCopyHandler::setIgnoredColumns(const QVector<int> &columns)
{
    m_ignoredColumns = columns;
}

void TreeViewCopyHandler::setUseFormattedValues(bool use)
{
    m_useFormattedValues = use;
}

void TreeViewCopyHandler::setHtmlEnabled(bool enable)
{
    m_htmlEnabled = enable;
}

// The actions

void TreeViewCopyHandler::enableCopySelectedAction(bool enable)
{
    if (!m_view || enable == m_copySelectedEnabled)
        return;
    m_copySelectedEnabled = enable;
    if (!enable) {
        m_copyAction->disconnect(this);
        disconnectSelection();
        m_view->removeEventFilter(this);
        return;
    }
    if (!m_copyAction) {
        m_copyAction = new QAction(tr("Copy"), this);
        m_copyAction->setShortcut(QKeySequence::Copy);
        m_copyAction->setShortcutVisibleInContextMenu(true);
        // Never triggered by it, so that it is not ambiguous: the event filter sees the keys.
        m_copyAction->setShortcutContext(Qt::WidgetShortcut);
    }
    connect(m_copyAction, &QAction::triggered, this, &TreeViewCopyHandler::copySelected);
    selectionModelChanged();
    m_view->installEventFilter(this);
}

void TreeViewCopyHandler::enableCopyAllAction(bool enable)
{
    if (!m_view || enable == m_copyAllEnabled)
        return;
    m_copyAllEnabled = enable;
    if (!enable) {
        m_copyAllAction->disconnect(this);
        return;
    }
    if (!m_copyAllAction)
        m_copyAllAction = new QAction(tr("Copy all"), this);
    connect(m_copyAllAction, &QAction::triggered, this, &TreeViewCopyHandler::copyAll);
}

void TreeViewCopyHandler::disconnectSelection()
{
    for (const QMetaObject::Connection &connection : qAsConst(m_selectionConnections))
        disconnect(connection);
    m_selectionConnections.clear();
}

void TreeViewCopyHandler::selectionModelChanged()
{
    disconnectSelection();
    if (!m_copySelectedEnabled)
        return;
    if (m_view && m_view->model() && m_view->selectionModel()) {
        m_selectionConnections = {
            connect(m_view->selectionModel(), &QItemSelectionModel::selectionChanged, this,
                    &TreeViewCopyHandler::updateActionState),
            // Selection models do not tell when a reset clears them.
            connect(m_view->model(), &QAbstractItemModel::modelReset, this,
                    &TreeViewCopyHandler::updateActionState),
            connect(m_view->model(), &QObject::destroyed, this,
                    &TreeViewCopyHandler::updateActionState),
        };
    }
    updateActionState();
}

void TreeViewCopyHandler::updateActionState()
{
    m_copyAction->setEnabled(m_view && BVSelectedRows::isAny(*m_view));
}

/// The actions for a menu.
QList<QAction *> TreeViewCopyHandler::offeredActions(const QMenu *menu)
{
    QList<QAction *> actions;
    selectionModelChanged();
    if (!menu || !canCopy() || m_view->model()->rowCount(m_view->rootIndex()) == 0)
        return actions;
    if (m_copySelectedEnabled && m_view->selectionMode() != QAbstractItemView::NoSelection) {
        actions << m_copyAction;
        // Hidden rows and, in plain views, another selection model go untold.
        connect(menu, &QMenu::aboutToShow, this, &TreeViewCopyHandler::selectionModelChanged,
                Qt::UniqueConnection);
    }
    if (m_copyAllEnabled)
        actions << m_copyAllAction;
    return actions;
}

void TreeViewCopyHandler::addCopyActionsToMenu(QMenu &menu)
{
    menu.addActions(offeredActions(&menu));
}

void TreeViewCopyHandler::addCopyActionsToMenu(TreeViewContextMenu &menu)
{
    const QList<QAction *> actions = offeredActions(menu.getMenu());
    for (QAction *action : actions)
        menu.appendAction(action, action->isEnabled());
}

/// Windows would take the keys for their own shortcuts unless the view claims them.
bool TreeViewCopyHandler::eventFilter(QObject *watched, QEvent *event)
{
    const bool isKey =
        event->type() == QEvent::KeyPress || event->type() == QEvent::ShortcutOverride;
    if (watched != m_view || !isKey ||
        !static_cast<QKeyEvent *>(event)->matches(QKeySequence::Copy))
        return QObject::eventFilter(watched, event);
    if (event->type() == QEvent::KeyPress)
        copySelected();
    event->accept();
    return true;
}

// Copying

bool TreeViewCopyHandler::canCopy() const
{
    return m_view && m_view->model() && m_view->selectionModel();
}

/// The columns of the model to copy, from left to right as the header shows them (in a view from
/// right to left the other way round, as texts are read there).
QVector<int> TreeViewCopyHandler::copiedColumns() const
{
    QVector<int> columns;
    BVShownColumns::visit(*m_view->header(), [&](int column) {
        if (!m_ignoredColumns.contains(column))
            columns << column;
        return true;
    });
    return columns;
}

QString TreeViewCopyHandler::getHeaderText(int column) const
{
    return m_view->model()->headerData(column, Qt::Horizontal, Qt::DisplayRole).toString();
}

/// The table with the headers that the view shows, and no rows yet.
BVTableText TreeViewCopyHandler::headerTable(const QVector<int> &columns) const
{
    const bool hasHeader = !m_view->isHeaderHidden();
    BVTableText table(columns.size(), hasHeader ? 1 : 0,
                      m_htmlEnabled ? BVTableText::PlainAndHtml : BVTableText::Plain);
    if (hasHeader) {
        for (const int column : columns)
            table.addCell(getHeaderText(column));
    }
    return table;
}

QString TreeViewCopyHandler::getCellText(const QModelIndex &index) const
{
    if (m_useFormattedValues) {
        if (const BVItemDelegate *delegate = BVDelegateManager::itemDelegateOf(m_view, index))
            return delegate->getDisplayedText(index, m_view->locale());
    }
    return index.data(Qt::DisplayRole).toString();
}

void TreeViewCopyHandler::getRowText(const QModelIndex &row, const QVector<int> &columns,
                                     BVTableText &table) const
{
    if (!m_useFormattedValues) {
        BVRowTexts::append(table, row, columns);
        return;
    }
    for (const int column : columns)
        table.addCell(getCellText(row.sibling(row.row(), column)));
}

void TreeViewCopyHandler::copySelected()
{
    if (!canCopy())
        return;
    const QModelIndexList rows = getSortedSelectedRows(m_view);
    if (rows.isEmpty())
        return;
    const QVector<int> columns = copiedColumns();
    BVTableText table = headerTable(columns);
    table.reserve(rows.size());
    for (const QModelIndex &row : rows)
        getRowText(row, columns, table);
    setClipboard(std::move(table));
}

void TreeViewCopyHandler::copyAll()
{
    if (!canCopy())
        return;
    const QVector<int> columns = copiedColumns();
    BVTableText table = headerTable(columns);
    table.reserve(m_view->model()->rowCount(m_view->rootIndex()));
    BVRowWalk::visit(*m_view->model(), m_view->rootIndex(), [&](const QModelIndex &row) {
        if (m_view->isRowHidden(row.row(), row.parent()))
            return BVRowWalk::Skip;
        getRowText(row, columns, table);
        return table.isFull() ? BVRowWalk::Stop : BVRowWalk::Descend;
    });
    setClipboard(std::move(table));
}

void TreeViewCopyHandler::setClipboard(BVTableText table) const
{
    if (table.isFull())
        qWarning("TreeViewCopyHandler: the rows are too many to be copied as one text");
    if (table.isFull() || table.plainText().isEmpty())
        return;
    if (table.hasHtml())
        QApplication::clipboard()->setMimeData(new BVTableMimeData(std::move(table)));
    else
        QApplication::clipboard()->setText(table.plainText());
}

QModelIndexList getSortedSelectedRows(QTreeView *view)
{
    return view ? BVSelectedRows::sorted(*view) : QModelIndexList();
}
