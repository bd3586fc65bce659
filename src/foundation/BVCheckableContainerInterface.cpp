// SPDX-License-Identifier: MIT
#include "foundation/BVCheckableContainerInterface.h"

#include "foundation/BVReferenceValueInterface.h"
#include "foundation/BVWidgetStatusHandler.h"
#include "foundation/BVWidgetStatusPropertyDispatcher.h"
#include "platform/BVMenu.h"
#include "platform/PropertyChangeFilter.h"

#include <QAbstractButton>
#include <QChildEvent>
#include <QDynamicPropertyChangeEvent>
#include <QMenu>

namespace {

constexpr char s_containerProperty[] = "container"; // of a button group

// The flags that a container shares with its buttons.
constexpr BVWidgetStatus::Stati s_sharedFlags =
    BVWidgetStatus::CompareDifferent | BVWidgetStatus::StandardEnabled |
    BVWidgetStatus::StandardDefined | BVWidgetStatus::StandardDefault |
    BVWidgetStatus::DefaultChanged | BVWidgetStatus::StandardChanged |
    BVWidgetStatus::StandardLocked | BVWidgetStatus::ResetAvailable;
static_assert(static_cast<quint32>(s_sharedFlags) == 0x7F800);

// The flags without a style property.
constexpr BVWidgetStatus::Stati s_menuFlags = BVWidgetStatus::ResetAvailable |
                                              BVWidgetStatus::ResetToStandardDisabled |
                                              BVWidgetStatus::DeleteVariableDisabled;

/// The container whose group the button is in, or null.
BVCheckableContainerInterface *containerOf(const QAbstractButton *button)
{
    const QButtonGroup *group = button->group();
    QObject *container = group ? group->property(s_containerProperty).value<QObject *>() : nullptr;
    return qobject_cast<BVCheckableContainerInterface *>(container);
}

} // namespace

BVCheckableContainerInterface::BVCheckableContainerInterface(QWidget *parent)
    : QWidget(parent)
    , BVCheckableContainerWidgetInterface(this)
{
    // Not in the initialiser list: a new child reaches event(), which reads the switch behind it.
    m_statusHandler = new BVWidgetStatusHandler(this, nullptr);
    m_group.setProperty(s_containerProperty, QVariant::fromValue<QObject *>(this));
    setStatusWidget(this);
    BVWidgetStatusPropertyDispatcher::dispatch(this, this);
    followContextMenu(this);
    connect(&m_group, &QButtonGroup::idClicked, this,
            &BVCheckableContainerInterface::buttonClicked);
}

BVCheckableContainerInterface::~BVCheckableContainerInterface() = default;

void BVCheckableContainerInterface::attach(QAbstractButton *button, int id)
{
    if (!button)
        return;
    if (button->group() == &m_group) {
        m_group.setId(button, id);
        return;
    }
    if (auto *other = containerOf(button))
        other->detach(button);
    m_group.addButton(button, id);
    m_statusHandler->attach(button);
    followContextMenu(button);
    if (property(BVReferenceValueInterface::s_property).isValid())
        button->setProperty(BVReferenceValueInterface::s_property,
                            property(BVReferenceValueInterface::s_property));
}

void BVCheckableContainerInterface::detach(QAbstractButton *button)
{
    if (!button)
        return;
    letGo(button);
    m_statusHandler->detach(button);
}

void BVCheckableContainerInterface::attachAllChildren()
{
    const auto buttons = findChildren<QAbstractButton *>(QString(), Qt::FindDirectChildrenOnly);
    for (QAbstractButton *button : buttons)
        attach(button, m_group.buttons().size());
}

void BVCheckableContainerInterface::detachAll()
{
    const QList<QAbstractButton *> buttons = m_group.buttons();
    for (auto it = buttons.crbegin(); it != buttons.crend(); ++it)
        letGo(*it);
    m_statusHandler->clear();
}

void BVCheckableContainerInterface::setAutoAttach(bool on)
{
    m_autoAttach = on;
}

QAbstractButton *BVCheckableContainerInterface::button(int index) const
{
    return m_group.buttons().value(index);
}

int BVCheckableContainerInterface::idFromIndex(int index) const
{
    QAbstractButton *found = button(index);
    return found ? m_group.id(found) : -1;
}

int BVCheckableContainerInterface::indexFromId(int id) const
{
    QAbstractButton *found = m_group.button(id);
    return found ? m_group.buttons().indexOf(found) : -1;
}

void BVCheckableContainerInterface::setChecked(int id)
{
    setCurrentIndex(indexFromId(id));
}

void BVCheckableContainerInterface::uncheckCurrent()
{
    QAbstractButton *checked = m_group.checkedButton();
    if (!checked)
        return;
    // An exclusive group does not let go of its last checked button.
    const bool exclusive = m_group.exclusive();
    m_group.setExclusive(false);
    checked->setChecked(false);
    m_group.setExclusive(exclusive);
}

int BVCheckableContainerInterface::currentIndex() const
{
    QAbstractButton *checked = m_group.checkedButton();
    return checked ? m_group.buttons().indexOf(checked) : -1;
}

void BVCheckableContainerInterface::setCurrentIndex(int index)
{
    if (QAbstractButton *found = button(index))
        found->setChecked(true);
}

void BVCheckableContainerInterface::setBvStatus(BVWidgetStatus::Status status, bool on)
{
    if (status == BVWidgetStatus::Normal && on)
        setBvStatus(BVWidgetStatus::Stati());
    else if (getBvStatus(status) != on)
        setBvStatus(BVWidgetStatus::setFlag(getBvStatus(), status, on));
}

void BVCheckableContainerInterface::setBvStatus(BVWidgetStatus::Stati stati)
{
    const bool wasBlocking = m_statusHandler->setBlocking(true, true);
    const QList<QAbstractButton *> buttons = m_group.buttons();
    for (QAbstractButton *button : buttons) {
        const BVWidgetStatus::Stati own = BVWidgetStatus::getStatusProperty(button) |
                                          (BVWidgetStatus::status(button) & s_menuFlags);
        BVWidgetStatus::setStatusProperty(button, (stati & s_sharedFlags) | (own & ~s_sharedFlags));
        PropertyChangeFilter::repolishPost(button, true);
    }
    m_statusHandler->setBlocking(wasBlocking, false);
    // The container's own status, not that of an item. NOLINTNEXTLINE(bugprone-parent-virtual-call)
    BVWidgetInterface::setBvStatus(stati);
}

bool BVCheckableContainerInterface::getBvStatus(BVWidgetStatus::Status status) const
{
    // The container's own status, not that of an item. NOLINTNEXTLINE(bugprone-parent-virtual-call)
    return BVWidgetInterface::getBvStatus(status);
}

BVWidgetStatus::Stati BVCheckableContainerInterface::getBvStatus() const
{
    // The container's own status, not that of an item. NOLINTNEXTLINE(bugprone-parent-virtual-call)
    return BVWidgetInterface::getBvStatus();
}

bool BVCheckableContainerInterface::event(QEvent *event)
{
    switch (event->type()) {
    case QEvent::ChildAdded:
    case QEvent::ChildPolished: // a button that is added by its constructor is no button yet
        childArrived(static_cast<QChildEvent *>(event)->child());
        break;
    case QEvent::ChildRemoved:
        if (m_autoAttach)
            detach(qobject_cast<QAbstractButton *>(static_cast<QChildEvent *>(event)->child()));
        break;
    case QEvent::DynamicPropertyChange:
        if (static_cast<QDynamicPropertyChangeEvent *>(event)->propertyName() ==
            BVReferenceValueInterface::s_property) {
            const QList<QAbstractButton *> buttons = m_group.buttons();
            for (QAbstractButton *button : buttons)
                button->setProperty(BVReferenceValueInterface::s_property,
                                    property(BVReferenceValueInterface::s_property));
        }
        break;
    default:
        break;
    }
    return QWidget::event(event);
}

void BVCheckableContainerInterface::updateWidget()
{
    BVWidgetStatus::setStatusProperty(this, BVWidgetStatus::status(this));
}

void BVCheckableContainerInterface::updateWidget(int /*index*/) {}

void BVCheckableContainerInterface::letGo(QAbstractButton *button)
{
    if (button->group() == &m_group)
        m_group.removeButton(button);
    if (disconnect(button, &QWidget::customContextMenuRequested, this, nullptr))
        button->setContextMenuPolicy(Qt::DefaultContextMenu);
}

void BVCheckableContainerInterface::followContextMenu(QWidget *widget)
{
    widget->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(
        widget, &QWidget::customContextMenuRequested, this,
        [this, widget](const QPoint &position) { showContextMenu(widget->mapToGlobal(position)); });
}

void BVCheckableContainerInterface::showContextMenu(const QPoint &globalPosition)
{
    BVMenu menu;
    menu.addActions(actions());
    setupStandardMenu(&menu, this, SIGNAL(standardActionTriggered(int)));
    if (!menu.isEmpty())
        menu.exec(globalPosition);
}

void BVCheckableContainerInterface::childArrived(QObject *child)
{
    auto *button = m_autoAttach ? qobject_cast<QAbstractButton *>(child) : nullptr;
    if (button)
        attach(button, m_group.buttons().size());
}
