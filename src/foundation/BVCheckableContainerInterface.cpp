// SPDX-License-Identifier: MIT
#include "foundation/BVCheckableContainerInterface.h"

#include "foundation/BVWidgetStatusHandler.h"
#include "foundation/BVWidgetStatusPropertyDispatcher.h"
#include "platform/PropertyChangeFilter.h"

#include <QAbstractButton>
#include <QChildEvent>
#include <QDynamicPropertyChangeEvent>
#include <QMenu>

namespace {

constexpr char s_referenceProperty[] = "ReferenceValue";

// The flags that a container shares with its buttons.
constexpr BVWidgetStatus::Stati s_sharedFlags =
    BVWidgetStatus::CompareDifferent | BVWidgetStatus::StandardEnabled |
    BVWidgetStatus::StandardDefined | BVWidgetStatus::StandardDefault |
    BVWidgetStatus::DefaultChanged | BVWidgetStatus::StandardChanged |
    BVWidgetStatus::StandardLocked | BVWidgetStatus::ResetAvailable;
static_assert(static_cast<quint32>(s_sharedFlags) == 0x7F800);

} // namespace

BVCheckableContainerInterface::BVCheckableContainerInterface(QWidget *parent)
    : QWidget(parent)
    , BVCheckableContainerWidgetInterface(this)
    , m_statusHandler(new BVWidgetStatusHandler(this, nullptr))
{
    setStatusWidget(this);
    BVWidgetStatusPropertyDispatcher::dispatch(this, this);
    followContextMenu(this);
    connect(&m_group, &QButtonGroup::idClicked, this,
            &BVCheckableContainerInterface::buttonClicked);
}

BVCheckableContainerInterface::~BVCheckableContainerInterface() = default;

void BVCheckableContainerInterface::attach(QAbstractButton *button, int id)
{
    if (!button || m_group.buttons().contains(button))
        return;
    m_group.addButton(button, id);
    m_statusHandler->attach(button);
    followContextMenu(button);
}

void BVCheckableContainerInterface::detach(QAbstractButton *button)
{
    if (!button || !m_group.buttons().contains(button))
        return;
    m_group.removeButton(button);
    disconnect(button, &QWidget::customContextMenuRequested, this, nullptr);
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
    for (auto it = buttons.crbegin(); it != buttons.crend(); ++it) {
        m_group.removeButton(*it);
        disconnect(*it, &QWidget::customContextMenuRequested, this, nullptr);
    }
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
    else
        setBvStatus(BVWidgetStatus::setFlag(getBvStatus(), status, on));
}

void BVCheckableContainerInterface::setBvStatus(BVWidgetStatus::Stati stati)
{
    const bool wasBlocking = m_statusHandler->setBlocking(true, true);
    const QList<QAbstractButton *> buttons = m_group.buttons();
    for (QAbstractButton *button : buttons) {
        const BVWidgetStatus::Stati own = BVWidgetStatus::getStatusProperty(button);
        BVWidgetStatus::setStatusProperty(button, (stati & s_sharedFlags) | (own & ~s_sharedFlags));
        PropertyChangeFilter::repolishPost(button, true);
    }
    m_statusHandler->setBlocking(wasBlocking, false);
    BVWidgetInterface::setBvStatus(stati);
}

bool BVCheckableContainerInterface::getBvStatus(BVWidgetStatus::Status status) const
{
    return BVWidgetInterface::getBvStatus(status);
}

BVWidgetStatus::Stati BVCheckableContainerInterface::getBvStatus() const
{
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
            s_referenceProperty) {
            const QList<QAbstractButton *> buttons = m_group.buttons();
            for (QAbstractButton *button : buttons)
                button->setProperty(s_referenceProperty, property(s_referenceProperty));
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

void BVCheckableContainerInterface::followContextMenu(QWidget *widget)
{
    widget->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(
        widget, &QWidget::customContextMenuRequested, this,
        [this, widget](const QPoint &position) { showContextMenu(widget->mapToGlobal(position)); });
}

void BVCheckableContainerInterface::showContextMenu(const QPoint &globalPosition)
{
    QMenu menu;
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
