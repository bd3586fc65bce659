// SPDX-License-Identifier: MIT
#include "navigation/BVAnimatedTabBar.h"

#include "controls/BVButton.h"

#include "navigation/BVTabBarAccessible_p.h"
#include "navigation/BVTabBarPainter_p.h"
#include "navigation/BVTabBarParts_p.h"

#include <QContextMenuEvent>
#include <QHBoxLayout>
#include <QMenu>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QPointer>
#include <QToolButton>

#include <cstdlib>
#include <utility>

namespace {

constexpr int s_minimumWidth = 120;       // px for the tabs
constexpr int s_minimumButtonHeight = 22; // px
constexpr int s_buttonSpacing = 3;        // px
constexpr QMargins s_buttonMargins{1, 3, 2, 0};

/// The tab that a key leads to from the current one; -1 if it leads nowhere.
int targetOf(int key, const BVTabList &tabs, bool rightToLeft)
{
    switch (key) {
    case Qt::Key_Left:
        return tabs.nextEnabled(tabs.current(), rightToLeft ? 1 : -1);
    case Qt::Key_Right:
        return tabs.nextEnabled(tabs.current(), rightToLeft ? -1 : 1);
    case Qt::Key_Home:
        return tabs.nextEnabled(-1, 1);
    case Qt::Key_End:
        return tabs.nextEnabled(tabs.count(), -1);
    default:
        return -1;
    }
}

bool isTargetKey(int key)
{
    return key == Qt::Key_Left || key == Qt::Key_Right || key == Qt::Key_Home || key == Qt::Key_End;
}

/// The tab so many enabled tabs from the current one, or the last one on the way.
int stepped(const BVTabList &tabs, int steps)
{
    int target = tabs.current();
    for (int i = 0; i < std::abs(steps); ++i) {
        const int next = tabs.nextEnabled(target, steps > 0 ? 1 : -1);
        target = next < 0 ? target : next;
    }
    return target;
}

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

BVAnimatedTabBar::~BVAnimatedTabBar() = default;

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
    for (const auto &text : texts)
        addTab(text.first, text.second);
}

void BVAnimatedTabBar::addTabs(const QList<QString> &texts, const QList<QVariant> &data)
{
    for (int i = 0; i < texts.size(); ++i)
        setData(addTab(texts.at(i)), data.value(i));
}

int BVAnimatedTabBar::insertTab(int index, const QString &text)
{
    return insertTab(index, text, QString());
}

int BVAnimatedTabBar::insertTab(int index, const QString &text, const QString &toolTip)
{
    BVTab tab;
    tab.m_text = text;
    tab.m_toolTip = toolTip;
    tab.m_state.setFlag(BVTab::HasCloseButton, m_parts->m_useCloseButtons);
    const int place = m_parts->m_tabs.insert(index, std::move(tab));
    m_parts->m_animation.start(m_parts->m_tabs.idAt(place), BVTabBarAnimation::Present, true);
    onTabsChanged();
    hideOrShow();
    BVTabBarAccessible::announce(this, place, QAccessible::ObjectCreated);
    if (currentIndex() < 0)
        setCurrentIndex(place);
    return place;
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
    m_parts->m_press.forgetGoneTabs();
    if (wasCurrent) {
        tabs.setCurrent(tabs.successor(index));
        m_parts->m_geometry.show(tabs.current());
    }
    onTabsChanged();
    hideOrShow();
    const QPointer<BVAnimatedTabBar> self = this;
    if (wasCurrent)
        Q_EMIT currentChanged(tabs.current());
    if (self && wasMarked)
        Q_EMIT markedChanged(tabs.marked());
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
    m_parts->m_press.forgetGoneTabs();
    onTabsChanged();
    hideOrShow();
    const QPointer<BVAnimatedTabBar> self = this;
    if (hadCurrent)
        Q_EMIT currentChanged(-1);
    if (self && hadMarked)
        Q_EMIT markedChanged(-1);
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
    if (!m_parts->m_press.isPressing()) // the tab stays under the pointer until it is released
        m_parts->m_geometry.show(index);
    m_parts->m_hover.correctHoveringState();
    update();
    BVTabBarAccessible::announce(this, index, QAccessible::Selection);
    if (hasFocus())
        BVTabBarAccessible::announce(this, index, QAccessible::Focus);
    Q_EMIT currentChanged(index);
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
    tabs.setMarked(index);
    update();
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
            endInput();
        update();
        break;
    default:
        break;
    }
}

void BVAnimatedTabBar::hideEvent(QHideEvent *event)
{
    endInput();
    m_parts->m_hover.leave();
    QWidget::hideEvent(event);
}

/// The release of a pressed button will not come.
void BVAnimatedTabBar::endInput()
{
    m_parts->m_autoScroll.stop();
    m_parts->m_press.cancel();
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

void BVAnimatedTabBar::mousePressEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton)
        event->ignore();
    else if (!m_parts->m_autoScroll.pressArrow(event->pos()))
        m_parts->m_press.press(event->pos());
}

void BVAnimatedTabBar::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton) {
        event->ignore();
        return;
    }
    const bool hasScrolled = m_parts->m_autoScroll.stop();
    const QPointer<BVAnimatedTabBar> self = this;
    m_parts->m_press.release(event->pos());
    if (!self || hasScrolled)
        return;
    m_parts->m_geometry.show(currentIndex());
    update();
}

void BVAnimatedTabBar::mouseDoubleClickEvent(QMouseEvent *event)
{
    const QPointer<BVAnimatedTabBar> self = this;
    mousePressEvent(event);
    if (!self || event->button() != Qt::LeftButton)
        return;
    const auto hit = BVTabBarLayout::hitAt(m_parts->m_geometry.layout(), event->pos());
    if (hit.m_part == BVTabBarLayout::Part::Tab)
        Q_EMIT doubleClicked(hit.m_index);
}

void BVAnimatedTabBar::mouseMoveEvent(QMouseEvent *event)
{
    m_parts->m_hover.move(event->pos());
    if (event->buttons().testFlag(Qt::LeftButton))
        m_parts->m_autoScroll.drag(event->pos());
}

void BVAnimatedTabBar::leaveEvent(QEvent *event)
{
    m_parts->m_hover.leave();
    QWidget::leaveEvent(event);
}

void BVAnimatedTabBar::wheelEvent(QWheelEvent *event)
{
    if (!hasFocus()) {
        event->ignore();
        return;
    }
    event->accept();
    const QPoint delta = event->angleDelta();
    m_parts->m_wheel += delta.y() != 0 ? delta.y() : delta.x();
    const int steps = m_parts->m_wheel / QWheelEvent::DefaultDeltasPerStep;
    m_parts->m_wheel %= QWheelEvent::DefaultDeltasPerStep;
    setCurrentIndex(stepped(m_parts->m_tabs, -steps));
}

void BVAnimatedTabBar::keyPressEvent(QKeyEvent *event)
{
    const BVTabList &tabs = m_parts->m_tabs;
    const bool isPlain = !(event->modifiers() & ~Qt::KeypadModifier);
    if (isPlain && isTargetKey(event->key()))
        setCurrentIndex(targetOf(event->key(), tabs, isRightToLeft()));
    else if (isPlain && event->key() == Qt::Key_Delete && hasCloseButton(currentIndex()))
        Q_EMIT closeButtonClicked(currentIndex());
    else if (event->modifiers() == Qt::AltModifier && event->key() == Qt::Key_Down)
        m_parts->m_press.askForMenu(currentIndex());
    else
        QWidget::keyPressEvent(event);
}

void BVAnimatedTabBar::contextMenuEvent(QContextMenuEvent *event)
{
    if (event->reason() == QContextMenuEvent::Keyboard && hasMenuButton(currentIndex()))
        m_parts->m_press.askForMenu(currentIndex());
    else
        QWidget::contextMenuEvent(event);
}

void BVAnimatedTabBar::focusInEvent(QFocusEvent *event)
{
    QWidget::focusInEvent(event);
    if (currentIndex() >= 0)
        BVTabBarAccessible::announce(this, currentIndex(), QAccessible::Focus);
}
