// SPDX-License-Identifier: MIT
#include "navigation/BVAnimatedTabBar.h"

#include "controls/BVButton.h"

#include "navigation/BVTabBarAccessible_p.h"
#include "navigation/BVTabBarPainter_p.h"
#include "navigation/BVTabBarParts_p.h"

#include <QHBoxLayout>
#include <QMenu>
#include <QPaintEvent>
#include <QPainter>
#include <QPointer>

namespace {

constexpr int s_minimumWidth = 120;       // px for the tabs
constexpr int s_minimumButtonHeight = 22; // px
constexpr int s_buttonSpacing = 3;        // px
constexpr QMargins s_buttonMargins{1, 3, 2, 0};

QHBoxLayout *buttonLayout(QWidget *bar)
{
    if (auto *known = qobject_cast<QHBoxLayout *>(bar->layout()))
        return known;
    auto *made = new QHBoxLayout(bar);
    made->setContentsMargins(s_buttonMargins);
    made->setSpacing(s_buttonSpacing);
    made->addSpacerItem(new QSpacerItem(0, 0, QSizePolicy::Expanding, QSizePolicy::Minimum));
    return made;
}

} // namespace

BVAnimatedTabBar::BVAnimatedTabBar(QWidget *parent)
    : QWidget(parent)
    , BVWidgetInterface(this)
    , m_parts(std::make_unique<BVTabBarParts>(this))
{
    BVTabBarAccessible::install();
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setMouseTracking(true);
    setAttribute(Qt::WA_OpaquePaintEvent);
}

BVAnimatedTabBar::~BVAnimatedTabBar()
{
    m_parts->m_press.closeMenu();
}

int BVAnimatedTabBar::addTab(const QString &text, const QString &toolTip)
{
    return insertTab(count(), text, toolTip);
}

void BVAnimatedTabBar::addTabs(const QList<QString> &texts)
{
    addTabs(texts, QList<QVariant>());
}

void BVAnimatedTabBar::addTabs(const QList<QPair<QString, QString>> &texts)
{
    const int first = count();
    for (const auto &text : texts)
        m_parts->insert(count(), text.first, text.second);
    onTabsInserted(first, texts.size());
}

void BVAnimatedTabBar::addTabs(const QList<QString> &texts, const QList<QVariant> &data)
{
    const int first = count();
    for (int i = 0; i < texts.size(); ++i)
        setData(m_parts->insert(count(), texts.at(i), QString()), data.value(i));
    onTabsInserted(first, texts.size());
}

int BVAnimatedTabBar::insertTab(int index, const QString &text)
{
    return insertTab(index, text, QString());
}

int BVAnimatedTabBar::insertTab(int index, const QString &text, const QString &toolTip)
{
    const int place = m_parts->insert(index, text, toolTip);
    onTabsInserted(place, 1);
    return place;
}

/// Tells of tabs once they all stand. A slot may delete the bar.
void BVAnimatedTabBar::onTabsInserted(int first, int inserted)
{
    if (inserted == 0)
        return;
    onTabsChanged();
    const QPointer<BVAnimatedTabBar> self = this;
    hideOrShow();
    for (int index = first; self && index < first + inserted; ++index)
        BVTabBarAccessible::announce(this, index, QAccessible::ObjectCreated);
    if (self && currentIndex() < 0)
        setCurrentIndex(first);
}

void BVAnimatedTabBar::removeTab(int index)
{
    BVTabList &tabs = m_parts->m_tabs;
    if (!tabs.isIndex(index))
        return;
    BVTabBarAccessible::announce(this, index, QAccessible::ObjectDestroyed);
    const bool wasCurrent = index == tabs.current();
    const bool wasMarked = index == tabs.marked();
    tabs.remove(index);
    if (wasCurrent) {
        tabs.setCurrent(tabs.successor(index));
        m_parts->m_geometry.show(tabs.current());
    }
    onTabsRemoved(wasCurrent, wasMarked);
}

void BVAnimatedTabBar::clearTabs()
{
    BVTabList &tabs = m_parts->m_tabs;
    const bool hadCurrent = tabs.current() >= 0;
    const bool hadMarked = tabs.marked() >= 0;
    for (int index = count() - 1; index >= 0; --index) {
        BVTabBarAccessible::announce(this, index, QAccessible::ObjectDestroyed);
        tabs.remove(index);
    }
    onTabsRemoved(hadCurrent, hadMarked);
}

/// Tells that tabs are gone, among them perhaps the current and the marked one. A slot may delete
/// the bar.
void BVAnimatedTabBar::onTabsRemoved(bool isOtherCurrent, bool isOtherMarked)
{
    onTabsChanged();
    m_parts->m_press.dropLost();
    hideOrShow();
    const QPointer<BVAnimatedTabBar> self = this;
    if (isOtherCurrent) {
        BVTabBarAccessible::announceCurrent(this);
        Q_EMIT currentChanged(currentIndex());
    }
    if (self && isOtherMarked)
        Q_EMIT markedChanged(markedIndex());
}

int BVAnimatedTabBar::count() const
{
    return m_parts->m_tabs.count();
}

/// What changes the size or number of tabs is laid out later, once for all of it.
void BVAnimatedTabBar::onTabsChanged()
{
    m_parts->m_geometry.invalidate();
    m_parts->m_hover.correctHoveringState();
    updateGeometry();
    update();
}

QToolButton *BVAnimatedTabBar::addButton(const QIcon &icon, const QString &text)
{
    auto *button = new BVButton(this); // for which the style sheets read the properties
    button->setIcon(icon);
    button->setText(text);
    button->setToolTip(text);
    button->setMinimumHeight(s_minimumButtonHeight);
    button->setAutoRaise(true);
    button->setProperty("flatIcon", true);
    button->setProperty("tabBar", true);
    buttonLayout(this)->addWidget(button);
    onTabsChanged();
    return button;
}

int BVAnimatedTabBar::currentIndex() const
{
    return m_parts->m_tabs.current();
}

void BVAnimatedTabBar::setCurrentIndex(int index)
{
    BVTabList &tabs = m_parts->m_tabs;
    if (!tabs.isIndex(index) || index == tabs.current())
        return;
    m_parts->m_animation.start(tabs.idAt(tabs.current()), BVTabBarAnimation::Current, false);
    m_parts->m_animation.start(tabs.idAt(index), BVTabBarAnimation::Current, true);
    tabs.setCurrent(index);
    if (!m_parts->m_press.hasSelected()) // else it stays under the pointer until that is released
        m_parts->m_geometry.show(index);
    m_parts->m_hover.correctHoveringState();
    update();
    BVTabBarAccessible::announceCurrent(this);
    Q_EMIT currentChanged(index);
}

void BVAnimatedTabBar::clearCurrentIndex()
{
    BVTabList &tabs = m_parts->m_tabs;
    const int before = tabs.current();
    if (before < 0)
        return;
    m_parts->m_animation.start(tabs.idAt(before), BVTabBarAnimation::Current, false);
    tabs.setCurrent(-1);
    m_parts->m_geometry.show(-1);
    m_parts->m_hover.correctHoveringState();
    update();
    BVTabBarAccessible::announce(this, before, QAccessible::SelectionRemove);
    Q_EMIT currentChanged(-1);
}

int BVAnimatedTabBar::markedIndex() const
{
    return m_parts->m_tabs.marked();
}

void BVAnimatedTabBar::setMarkedIndex(int index)
{
    BVTabList &tabs = m_parts->m_tabs;
    if (index < -1 || index >= count() || index == tabs.marked())
        return;
    const int before = tabs.marked();
    tabs.setMarked(index);
    update();
    for (const int changed : {before, index}) {
        if (changed >= 0)
            BVTabBarAccessible::announce(this, changed, QAccessible::DescriptionChanged);
    }
    Q_EMIT markedChanged(index);
}

void BVAnimatedTabBar::setHideTabBarForOne(bool hide)
{
    if (hide == m_parts->m_hideTabBarForOne)
        return;
    m_parts->m_hideTabBarForOne = hide;
    hideOrShow();
}

bool BVAnimatedTabBar::isHideTabBarForOne() const
{
    return m_parts->m_hideTabBarForOne;
}

void BVAnimatedTabBar::hideOrShow()
{
    const bool hides = m_parts->m_hideTabBarForOne && count() < 2;
    if (hides == m_parts->m_isHiddenForOne)
        return;
    m_parts->m_isHiddenForOne = hides;
    const bool wanted = m_parts->m_wish == BVTabBarParts::Wish::Shown ||
                        (m_parts->m_wish == BVTabBarParts::Wish::None && !isWindow());
    if (hides || wanted)
        QWidget::setVisible(!hides);
}

void BVAnimatedTabBar::setVisible(bool visible)
{
    m_parts->m_wish = visible ? BVTabBarParts::Wish::Shown : BVTabBarParts::Wish::Hidden;
    QWidget::setVisible(visible && !m_parts->m_isHiddenForOne);
}

int BVAnimatedTabBar::getIndexAtPosition(const QPoint &global) const
{
    return BVTabBarLayout::hitAt(m_parts->m_geometry.layout(), mapFromGlobal(global)).m_index;
}

QRect BVAnimatedTabBar::getTabRect(int index) const
{
    return m_parts->m_geometry.layout().m_places.value(index).m_tab;
}

QPoint BVAnimatedTabBar::getTabCoordinates(int index) const
{
    return m_parts->m_tabs.isIndex(index) ? getTabRect(index).center() : QPoint();
}

QPoint BVAnimatedTabBar::getTabCoordinates(const QString &name) const
{
    return getTabCoordinates(m_parts->m_tabs.indexOf(name));
}

QPoint BVAnimatedTabBar::getTabCoordinatesMappedToGlobal(const QString &name) const
{
    const int index = m_parts->m_tabs.indexOf(name);
    return index < 0 ? QPoint() : mapToGlobal(getTabCoordinates(index));
}

QSize BVAnimatedTabBar::sizeHint() const
{
    ensurePolished();
    return {m_parts->m_geometry.fullWidth(), m_parts->m_geometry.barHeight()};
}

QSize BVAnimatedTabBar::minimumSizeHint() const
{
    ensurePolished();
    return {s_minimumWidth + m_parts->m_geometry.reservedWidth(), m_parts->m_geometry.barHeight()};
}

void BVAnimatedTabBar::showMenu(int index, QMenu &menu)
{
    m_parts->m_hover.cancelToolTip();
    m_parts->m_press.showMenu(index, &menu);
}

void BVAnimatedTabBar::setTextReducing(const TextReducing &reducing)
{
    m_parts->m_geometry.setTextReducing(reducing);
    onTabsChanged();
}

QWidget *BVAnimatedTabBar::getStatusWidget(int /*index*/) const
{
    return nullptr;
}

void BVAnimatedTabBar::onHoveredIndexChanged(int index)
{
    m_parts->m_hover.setIndex(index);
}

void BVAnimatedTabBar::onShowToolTip()
{
    m_parts->m_hover.showToolTip();
}

bool BVAnimatedTabBar::event(QEvent *event)
{
    switch (event->type()) {
    case QEvent::ToolTip: // that of the tab comes by its own timer
        if (!m_parts->m_hover.toolTip(m_parts->m_hover.index()).isEmpty())
            return true;
        break;
    case QEvent::WindowBlocked:
        endInput();
        break;
    case QEvent::LayoutRequest: // a tool button has changed
        m_parts->m_geometry.invalidate();
        updateGeometry();
        update();
        break;
    default:
        break;
    }
    return QWidget::event(event);
}

void BVAnimatedTabBar::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    switch (event->type()) {
    case QEvent::FontChange:
    case QEvent::StyleChange:
        m_parts->m_geometry.remeasure();
        onTabsChanged();
        break;
    case QEvent::LayoutDirectionChange:
        onTabsChanged();
        break;
    case QEvent::EnabledChange:
        if (!isEnabled())
            cancelInput();
        update();
        break;
    default:
        break;
    }
}

void BVAnimatedTabBar::hideEvent(QHideEvent *event)
{
    QWidget::hideEvent(event);
    m_parts->m_hover.leave();
    cancelInput();
}

void BVAnimatedTabBar::resizeEvent(QResizeEvent * /*event*/)
{
    m_parts->m_geometry.show(currentIndex());
}

void BVAnimatedTabBar::paintEvent(QPaintEvent *event)
{
    QPainter painter(this);
    BVTabBarPainter(this, m_parts.get(), &painter).paint(event->rect());
}
