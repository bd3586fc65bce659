// SPDX-License-Identifier: MIT
#include "itemviews/TreeViewContextMenu.h"

#include "itemviews/BVContextMenuPlace_p.h"
#include "itemviews/BVDelegateManager.h"
#include "itemviews/BVItemDelegate.h"
#include "itemviews/BVRowWalk_p.h"
#include "platform/BVMenu.h"

#include <QAction>
#include <QKeyEvent>
#include <QTreeView>
#include <QVector>

#include <algorithm>

namespace {

const QLatin1String s_unknown("UNKNOWN");

int idOf(const QAction &action)
{
    const QVariant data = action.data();
    return data.userType() == QMetaType::Int ? data.toInt() : int(TreeViewContextMenu::NoAction);
}

/// The first action in a menu, or in one of its submenus, that @p matches; null if none does.
template <typename Matches>
QAction *find(const QMenu &menu, const Matches &matches)
{
    const QList<QAction *> actions = menu.actions();
    for (QAction *action : actions) {
        if (matches(action))
            return action;
        QAction *found = action->menu() ? find(*action->menu(), matches) : nullptr;
        if (found)
            return found;
    }
    return nullptr;
}

bool holds(const QMenu &menu, const QAction *action)
{
    return find(menu, [action](const QAction *other) { return other == action; });
}

using Rows = QVector<QPersistentModelIndex>;

/// The row itself and all below it that are expanded.
Rows expandedRows(const QTreeView &view, const QModelIndex &row)
{
    Rows rows{row};
    BVRowWalk::visit(*row.model(), row, [&](const QModelIndex &index) {
        if (view.isExpanded(index))
            rows.append(index);
        return BVRowWalk::Descend;
    });
    return rows;
}

/// What to open again around a row, and below it if it is open, in order.
Rows rowsToReopen(const QTreeView &view, const QModelIndex &row)
{
    Rows rows = view.isExpanded(row) ? expandedRows(view, row) : Rows();
    QModelIndex above = row.parent();
    for (; above.isValid() && above != view.rootIndex(); above = above.parent())
        rows.append(above);
    return rows;
}

} // namespace

struct TreeViewContextMenu::StandardAction
{
    int id;
    const char *text;
    void (TreeViewContextMenu::*slot)();
};

const TreeViewContextMenu::StandardAction TreeViewContextMenu::s_standardActions[] = {
    {ExpandAllAction, QT_TRANSLATE_NOOP("TreeViewContextMenu", "Expand All"),
     &TreeViewContextMenu::onExpandAll},
    {CollapseAllAction, QT_TRANSLATE_NOOP("TreeViewContextMenu", "Collapse All"),
     &TreeViewContextMenu::onCollapseAll},
    {CollapseOtherAction, QT_TRANSLATE_NOOP("TreeViewContextMenu", "Collapse Other"),
     &TreeViewContextMenu::onCollapseOther},
};

TreeViewContextMenu::TreeViewContextMenu(QTreeView *view, const QPoint &position)
    : m_view(view)
    , m_menu(new BVMenu(view))
    , m_position(position)
{
    m_menu->installEventFilter(this);
    if (!view)
        return;
    if (BVContextMenuPlace::isSomewhere(position))
        m_index = view->indexAt(position);
    connect(view, &QObject::destroyed, this, &TreeViewContextMenu::releaseMenu);
}

TreeViewContextMenu::~TreeViewContextMenu()
{
    releaseMenu();
}

/// The menu goes later: it may be busy with the entry that has led here.
void TreeViewContextMenu::releaseMenu()
{
    const QPointer<BVMenu> menu = m_menu;
    m_menu.clear();
    m_ownActions.clear();
    if (menu)
        menu->hide();
    if (!menu)
        return;
    menu->setParent(nullptr, menu->windowFlags());
    menu->deleteLater();
}

QMenu *TreeViewContextMenu::getMenu() const
{
    return m_menu;
}

// Entries

void TreeViewContextMenu::appendAction(QAction *action, bool enabled)
{
    if (!m_menu || !action)
        return;
    action->setEnabled(enabled);
    if (!holds(*m_menu, action))
        m_menu->addAction(action);
}

QAction *TreeViewContextMenu::appendAction(int id, bool enabled)
{
    if (!m_menu)
        return nullptr;
    QAction *action = m_ownActions.value(id);
    if (!action)
        action = createAction(id, m_menu);
    appendAction(action, enabled);
    return action;
}

void TreeViewContextMenu::appendSeparator()
{
    if (m_menu)
        m_menu->addSeparator();
}

QMenu *TreeViewContextMenu::appendSubMenu(const QString &title)
{
    if (!m_menu)
        return nullptr;
    auto *menu = new BVMenu(title, m_menu);
    m_menu->addMenu(menu);
    return menu;
}

QAction *TreeViewContextMenu::actionAt(int id) const
{
    if (!m_menu || id == NoAction)
        return nullptr;
    QAction *own = m_ownActions.value(id);
    if (own && holds(*m_menu, own))
        return own;
    return find(*m_menu, [&](const QAction *action) { return idOf(*action) == id; });
}

/// The entry with the id, also while it is being made.
const QAction *TreeViewContextMenu::describedAction(int id) const
{
    const QAction *own = m_ownActions.value(id);
    return own ? own : actionAt(id);
}

QString TreeViewContextMenu::actionText(int id) const
{
    const QAction *action = describedAction(id);
    return action ? action->text() : QString(s_unknown);
}

QString TreeViewContextMenu::actionToolTip(int id) const
{
    const QAction *action = describedAction(id);
    return action ? action->toolTip() : QString();
}

QIcon TreeViewContextMenu::actionIcon(int id) const
{
    const QAction *action = describedAction(id);
    return action ? action->icon() : QIcon();
}

void TreeViewContextMenu::adjustMenu() {}

const TreeViewContextMenu::StandardAction *TreeViewContextMenu::standardAction(int id)
{
    const auto *found =
        std::find_if(std::begin(s_standardActions), std::end(s_standardActions),
                     [id](const StandardAction &action) { return action.id == id; });
    return found == std::end(s_standardActions) ? nullptr : found;
}

QAction *TreeViewContextMenu::createAction(int id, QObject *parent)
{
    const StandardAction *standard = standardAction(id);
    auto *action = new QAction(standard ? tr(standard->text) : QString(s_unknown), parent);
    action->setData(id);
    if (standard)
        connect(action, &QAction::triggered, this, standard->slot);
    if (id != NoAction)
        m_ownActions.insert(id, action);
    const QString text = actionText(id);
    if (!standard || (!text.isEmpty() && text != s_unknown))
        action->setText(text);
    action->setIcon(actionIcon(id));
    const QString toolTip = actionToolTip(id);
    if (toolTip != action->toolTip()) // by default the text
        action->setToolTip(toolTip);
    return action;
}

bool TreeViewContextMenu::hasBranches() const
{
    const QAbstractItemModel *model = m_view ? m_view->model() : nullptr;
    const int rows = model ? model->rowCount(m_view->rootIndex()) : 0;
    for (int row = 0; row < rows; ++row) {
        const QModelIndex index = model->index(row, 0, m_view->rootIndex());
        if (index.isValid() && model->hasChildren(index))
            return true;
    }
    return false;
}

void TreeViewContextMenu::appendAdditionalActions()
{
    BVItemDelegate *delegate = BVDelegateManager::itemDelegateOf(m_view, m_index);
    if (delegate && m_menu)
        delegate->provideContextMenuActions(m_index, m_position, m_view, m_menu);
    if (!hasBranches())
        return;
    appendAction(ExpandAllAction, true);
    appendAction(CollapseAllAction, true);
    appendAction(CollapseOtherAction, m_index.isValid());
}

// Showing

void TreeViewContextMenu::complete()
{
    if (m_isComplete)
        return;
    m_isComplete = true;
    adjustMenu();
    if (m_menu && !m_menu->isEmpty() && !m_suppressAdditionalSeparator)
        appendSeparator();
    appendAdditionalActions();
}

/// The chosen entry. This object may be gone afterwards.
QAction *TreeViewContextMenu::run()
{
    const QPointer<TreeViewContextMenu> guard(this);
    m_menu->setEnabled(!m_disabled);
    const QAction *chosen = m_menu->exec(BVContextMenuPlace::onScreen(*m_view, m_position));
    if (!guard || !m_menu)
        return nullptr;
    m_menu->setEnabled(true);
    // What it triggered may have deleted it.
    return find(*m_menu, [&](const QAction *action) { return action == chosen; });
}

/// The keys that close menus close disabled ones, too.
bool TreeViewContextMenu::eventFilter(QObject *watched, QEvent *event)
{
    const bool isPress = event->type() == QEvent::KeyPress;
    const bool isKey = isPress || event->type() == QEvent::KeyRelease;
    if (watched != m_menu || m_menu->isEnabled() || !isKey)
        return QObject::eventFilter(watched, event);
    if (isPress && static_cast<QKeyEvent *>(event)->matches(QKeySequence::Cancel))
        m_menu->close();
    return true;
}

int TreeViewContextMenu::show(QAction **chosen)
{
    if (chosen)
        *chosen = nullptr;
    const QPointer<TreeViewContextMenu> guard(this);
    complete();
    if (!guard || !m_view || !m_menu || m_menu->isEmpty())
        return NoAction;
    QAction *action = run();
    if (!action)
        return NoAction;
    if (chosen)
        *chosen = action;
    return idOf(*action);
}

void TreeViewContextMenu::onExpandAll()
{
    if (m_view)
        m_view->expandAll();
}

void TreeViewContextMenu::onCollapseAll()
{
    if (m_view)
        m_view->collapseAll();
}

void TreeViewContextMenu::onCollapseOther()
{
    if (!m_view || !m_index.isValid() || m_index.model() != m_view->model())
        return;
    const QPointer<QTreeView> view = m_view; // slots may delete this
    const QPersistentModelIndex row = m_index.sibling(m_index.row(), 0);
    const bool wasExpanded = view->isExpanded(row);
    const bool wasAnimated = view->isAnimated();
    const Rows rows = Rows{row} + rowsToReopen(*view, row);
    view->collapseAll();
    if (view)
        view->setAnimated(!wasExpanded);
    for (const QPersistentModelIndex &opened : rows) {
        if (view && opened.isValid())
            view->expand(opened);
    }
    if (view)
        view->setAnimated(wasAnimated);
}
