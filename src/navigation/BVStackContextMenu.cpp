// SPDX-License-Identifier: MIT
#include "navigation/BVStackContextMenu_p.h"

#include "itemviews/BVContainerListControl.h"
#include "itemviews/BVDragTreeWidget.h"
#include "itemviews/BVItemDelegate.h"
#include "itemviews/TreeViewContextMenu.h"
#include "navigation/BVControlledStackItem.h"
#include "navigation/BVStackChecking_p.h"
#include "navigation/BVStackContextHandler.h"
#include "navigation/BVStackControllerWidget.h"

#include <QAction>
#include <QMenu>
#include <QTreeWidgetItemIterator>

#include <algorithm>
#include <utility>

namespace {

using Controller = BVStackControllerWidget;

constexpr int s_longestName = 40; // characters

/// A name as it is shown in a menu.
QString inMenu(const QTreeWidgetItem *row)
{
    QString name = row->text(0).simplified();
    if (name.size() > s_longestName)
        name = name.left(s_longestName - 1) + QChar(0x2026);
    return name.replace(QLatin1Char('&'), QStringLiteral("&&"));
}

bool holds(QTreeWidget *tree, const BVControlledStackItem *item)
{
    for (QTreeWidgetItemIterator i(tree); *i; ++i)
        if (BVControlledStackItem::itemFromTreeItem(*i) == item)
            return true;
    return false;
}

QTreeWidgetItem *rowOfEntry(QTreeWidgetItem *row)
{
    while (row && !BVControlledStackItem::itemFromTreeItem(row))
        row = row->parent();
    return row;
}

/// What an action is about: the row that it is for, or null, and its tree.
struct Scope
{
    BVStackControllerWidget *m_controller;
    BVDragTreeWidget *m_tree;
    QTreeWidgetItem *m_row;

    QTreeWidgetItem *subject() const { return BVStackChecking::checkableAround(m_row); }
    /// The row above that of the entry, which a plain row belongs to.
    QTreeWidgetItem *parent() const
    {
        const QTreeWidgetItem *row = rowOfEntry(m_row);
        return row ? row->parent() : nullptr;
    }
    QTreeWidgetItem *current() const { return rowOfEntry(m_tree->currentItem()); }
};

bool mayRename(const Scope &scope)
{
    if (!scope.m_row || !scope.m_controller->listControl()->isEditable())
        return false;
    const QModelIndex index = scope.m_tree->indexFromItem(scope.m_row, 0);
    const auto *delegate = qobject_cast<BVItemDelegate *>(scope.m_tree->itemDelegate(index));
    return delegate ? delegate->isEditable(index) : bool(scope.m_row->flags() & Qt::ItemIsEditable);
}

bool mayShowOnly(const Scope &scope)
{
    QTreeWidgetItem *current = scope.current();
    if (!current || BVStackChecking::differs(current, Qt::Checked))
        return current;
    const bool isKept = BVStackChecking::isCheckable(current);
    return BVStackChecking::anyDiffers(scope.m_tree, Qt::Unchecked, isKept ? current : nullptr);
}

/// The rules and effects of the actions that check: whose state they set to which.
using Target = QTreeWidgetItem *(Scope::*)() const;

template <Target target, Qt::CheckState state>
bool mayCheck(const Scope &scope)
{
    return BVStackChecking::differs((scope.*target)(), state);
}

template <Target target, Qt::CheckState state>
void check(const Scope &scope)
{
    BVStackChecking::check((scope.*target)(), state);
}

template <Qt::CheckState state>
bool mayCheckAll(const Scope &scope)
{
    return BVStackChecking::anyDiffers(scope.m_tree, state);
}

template <Qt::CheckState state>
void checkAll(const Scope &scope)
{
    BVStackChecking::checkAll(scope.m_tree, state);
}

void rename(const Scope &scope)
{
    if (mayRename(scope))
        scope.m_tree->editItem(scope.m_row, 0);
}

void showOnly(const Scope &scope)
{
    if (QTreeWidgetItem *current = scope.current())
        BVStackChecking::checkOnly(current);
}

} // namespace

struct BVStackContextMenu::Option
{
    struct NamedText
    {
        const char *text;
        const char *comment;
    };

    int option;
    int group; // separators stand between groups
    const char *text;
    NamedText ofItem;   // while the menu is open at an entry; null for the same
    NamedText ofParent; // in place of one without a check box
    Target named;       // whose name that is
    bool (*mayDo)(const Scope &scope);
    void (*effect)(const Scope &scope);
};

// clang-format off
const BVStackContextMenu::Option BVStackContextMenu::s_options[] = {
    {Controller::Rename, 0,
     QT_TRANSLATE_NOOP("BVStackControllerWidget", "Rename"),
     {nullptr, nullptr}, {nullptr, nullptr}, nullptr,
     mayRename, rename},
    {Controller::ShowCurrent, 1,
     QT_TRANSLATE_NOOP("BVStackControllerWidget", "Show Current"),
     QT_TRANSLATE_NOOP3("BVStackControllerWidget", "Show Only %1", "%1 is name of the item"),
     QT_TRANSLATE_NOOP3("BVStackControllerWidget", "Show Only %1", "%1 is name of the item"),
     &Scope::current,
     mayShowOnly, showOnly},
    {Controller::Show, 1,
     QT_TRANSLATE_NOOP("BVStackControllerWidget", "Show"),
     QT_TRANSLATE_NOOP3("BVStackControllerWidget", "Show %1", "%1 is name of the item"),
     QT_TRANSLATE_NOOP3("BVStackControllerWidget", "Show %1", "%1 is name of the parent item"),
     &Scope::subject,
     mayCheck<&Scope::subject, Qt::Checked>, check<&Scope::subject, Qt::Checked>},
    {Controller::DontShow, 1,
     QT_TRANSLATE_NOOP("BVStackControllerWidget", "Don't Show"),
     QT_TRANSLATE_NOOP3("BVStackControllerWidget", "Don't Show %1", "%1 is name of the item"),
     QT_TRANSLATE_NOOP3("BVStackControllerWidget", "Don't Show %1", "%1 is name of the parent item"),
     &Scope::subject,
     mayCheck<&Scope::subject, Qt::Unchecked>, check<&Scope::subject, Qt::Unchecked>},
    {Controller::ShowAllNeighbors, 2,
     QT_TRANSLATE_NOOP("BVStackControllerWidget", "Show all Neighbors"),
     {nullptr, nullptr}, {nullptr, nullptr}, nullptr,
     mayCheck<&Scope::parent, Qt::Checked>, check<&Scope::parent, Qt::Checked>},
    {Controller::DontShowAnyNeighbor, 2,
     QT_TRANSLATE_NOOP("BVStackControllerWidget", "Don't Show any Neighbor"),
     {nullptr, nullptr}, {nullptr, nullptr}, nullptr,
     mayCheck<&Scope::parent, Qt::Unchecked>, check<&Scope::parent, Qt::Unchecked>},
    {Controller::ShowAll, 3,
     QT_TRANSLATE_NOOP("BVStackControllerWidget", "Show All"),
     {nullptr, nullptr}, {nullptr, nullptr}, nullptr,
     mayCheckAll<Qt::Checked>, checkAll<Qt::Checked>},
    {Controller::HideAll, 3,
     QT_TRANSLATE_NOOP("BVStackControllerWidget", "Hide All"),
     {nullptr, nullptr}, {nullptr, nullptr}, nullptr,
     mayCheckAll<Qt::Unchecked>, checkAll<Qt::Unchecked>},
    {Controller::CustomOption, 4,
     nullptr,
     {nullptr, nullptr}, {nullptr, nullptr}, nullptr,
     nullptr, nullptr},
};
// clang-format on

BVStackContextMenu::BVStackContextMenu(BVStackControllerWidget *controller)
    : QObject(controller)
    , m_controller(controller)
{
}

BVStackContextMenu::~BVStackContextMenu() = default;

void BVStackContextMenu::create(int options)
{
    // One of them may be busy with the choice that has led here.
    for (QAction *action : qAsConst(m_actions)) {
        action->disconnect(this);
        action->setVisible(false);
        action->deleteLater();
    }
    m_actions.clear();
    m_ownTexts.clear();
    m_shown.clear();
    for (const Option &option : s_options) {
        if (!(options & option.option))
            continue;
        auto *action = new QAction(this);
        if (option.text)
            setOwnText(action, Controller::tr(option.text));
        action->setData(option.option);
        connect(action, &QAction::triggered, this, [this, action] { onTriggered(action); });
        connect(action, &QObject::destroyed, this, [this, action] { forget(action); });
        m_actions.append(action);
    }
}

void BVStackContextMenu::forget(QAction *action)
{
    m_actions.removeOne(action);
    m_ownTexts.remove(action);
    m_shown.remove(action);
}

bool BVStackContextMenu::hasOwnText(const QAction *action) const
{
    const auto own = m_ownTexts.constFind(action);
    return own != m_ownTexts.cend() && *own == action->text();
}

void BVStackContextMenu::setOwnText(QAction *action, const QString &text)
{
    m_ownTexts[action] = text;
    action->setText(text);
}

void BVStackContextMenu::retranslate()
{
    const QList<QAction *> actions = m_actions;
    for (QAction *action : actions)
        if (m_actions.contains(action) && hasOwnText(action)) // slots may have deleted it
            setOwnText(action, Controller::tr(optionOf(action)->text));
}

QAction *BVStackContextMenu::action(int option) const
{
    for (QAction *action : m_actions)
        if (action->data().toInt() == option)
            return action;
    return nullptr;
}

void BVStackContextMenu::enable(int option, bool enable)
{
    for (QAction *action : qAsConst(m_actions)) {
        if (action->data().toInt() != option)
            continue;
        if (m_shown.contains(action))
            m_shown[action] = {enable, enable};
        action->setEnabled(enable);
    }
}

const BVStackContextMenu::Option *BVStackContextMenu::optionOf(const QAction *action)
{
    const int data = action->data().toInt();
    const auto *found =
        std::find_if(std::begin(s_options), std::end(s_options),
                     [data](const Option &option) { return option.option == data; });
    return found == std::end(s_options) ? nullptr : found;
}

// The open menu

void BVStackContextMenu::show(BVDragTreeWidget *tree, QTreeWidgetItem *row, const QPoint &position,
                              BVStackContextHandler *handler)
{
    if (m_isOpen)
        return;
    const QPointer<BVStackContextMenu> guard(this);
    const QPointer<BVStackContextHandler> handlerGuard(handler);
    const Opened opened = placeOf(tree, row);
    if (handler && handler->showContextMenu(opened.m_item, tree->viewport()->mapToGlobal(position)))
        return;
    if (!guard || !opened.m_tree || (row && !opened.m_row.isValid()))
        return;
    TreeViewContextMenu menu(tree, position);
    m_opened = opened;
    m_isOpen = true;
    fill(&menu);
    if (handlerGuard)
        handlerGuard->addActions(opened.m_item, menu.getMenu());
    const QList<QAction *> own = m_actions; // a slot may make them anew
    QAction *chosen = nullptr;
    menu.show(&chosen);
    if (!guard)
        return;
    reset();
    if (chosen && !own.contains(chosen))
        report(opened, chosen);
}

BVStackContextMenu::Opened BVStackContextMenu::placeOf(BVDragTreeWidget *tree, QTreeWidgetItem *row)
{
    Opened opened{tree, tree ? tree->indexFromItem(row) : QModelIndex(), nullptr};
    while (row && !opened.m_item) {
        opened.m_item = BVControlledStackItem::itemFromTreeItem(row);
        row = row->parent();
    }
    return opened;
}

void BVStackContextMenu::fill(TreeViewContextMenu *menu)
{
    int group = -1;
    for (QAction *action : qAsConst(m_actions)) {
        if (action->text().isEmpty())
            continue;
        const Option *option = optionOf(action);
        if (group >= 0 && group != option->group)
            menu->appendSeparator();
        group = option->group;
        const bool wasEnabled = action->isEnabled();
        prepare(action);
        m_shown.insert(action, {wasEnabled, action->isEnabled()});
        menu->appendAction(action, action->isEnabled());
    }
}

/// Gives the action the text and state for the place where the menu opens.
void BVStackContextMenu::prepare(QAction *action)
{
    const Option *option = optionOf(action);
    const Scope scope{m_controller, m_opened.m_tree,
                      m_opened.m_tree->itemFromIndex(m_opened.m_row)};
    const QTreeWidgetItem *named = option->named ? (scope.*option->named)() : nullptr;
    if (named && hasOwnText(action)) {
        const Option::NamedText &text =
            named == rowOfEntry(scope.m_row) ? option->ofItem : option->ofParent;
        setOwnText(action, Controller::tr(text.text, text.comment).arg(inMenu(named)));
    }
    if (option->mayDo && !option->mayDo(scope))
        action->setEnabled(false);
}

void BVStackContextMenu::reset()
{
    m_isOpen = false;
    // What the application has changed meanwhile, or deleted, is left alone.
    const QHash<QAction *, State> shown = std::exchange(m_shown, {});
    for (auto i = shown.cbegin(); i != shown.cend(); ++i)
        if (m_actions.contains(i.key()) && i.key()->isEnabled() == i->m_isEnabled)
            i.key()->setEnabled(i->m_wasEnabled);
    retranslate();
    m_opened = Opened();
}

void BVStackContextMenu::onTriggered(QAction *action)
{
    BVDragTreeWidget *tree = m_controller->tree();
    const Opened place = m_isOpen ? m_opened : placeOf(tree, tree ? tree->currentItem() : nullptr);
    const Option *option = optionOf(action);
    const QPointer<BVStackContextMenu> guard(this);
    const QPointer<QAction> actionGuard(action);
    if (place.m_tree && option->effect)
        option->effect({m_controller, place.m_tree, place.m_tree->itemFromIndex(place.m_row)});
    if (guard && actionGuard)
        report(place, action);
}

/// The entry may be gone; one that was only moved is the same.
void BVStackContextMenu::report(const Opened &place, QAction *action)
{
    const bool isThere = place.m_tree && place.m_item && holds(place.m_tree, place.m_item);
    Q_EMIT sigTriggered(isThere ? place.m_item : nullptr, action);
}
