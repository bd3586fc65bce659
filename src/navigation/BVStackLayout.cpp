// SPDX-License-Identifier: MIT
#include "navigation/BVStackLayout.h"

#include <QWidget>

#include <utility>

namespace {

bool isPage(const QWidget *widget)
{
    return widget && !widget->isWindow();
}

void moveContent(QLayout *layout, const QPoint &offset)
{
    for (int i = 0; QLayoutItem *item = layout->itemAt(i); ++i) {
        if (QLayout *nested = item->layout())
            moveContent(nested, offset);
        else if (isPage(item->widget()))
            item->widget()->move(item->widget()->pos() + offset);
    }
    layout->QLayout::setGeometry(layout->geometry().translated(offset)); // only the rectangle
}

} // namespace

BVStackLayout::BVStackLayout(QWidget *parent)
    : BVStackLayout(false, parent)
{
}

BVStackLayout::BVStackLayout(bool hideOtherWidgets, QWidget *parent)
    : QLayout(parent)
    , m_hideOtherWidgets(hideOtherWidgets)
{
    setContentsMargins(0, 0, 0, 0);
    setSpacing(0);
}

BVStackLayout::~BVStackLayout()
{
    m_currentItem = nullptr;
    const auto items = std::exchange(m_items, {}); // a nested layout removes itself as it goes
    qDeleteAll(items);
}

void BVStackLayout::addItem(QLayoutItem *item)
{
    insertItem(-1, item);
}

void BVStackLayout::insertItem(int index, QLayoutItem *item)
{
    if (!item || item == this || m_items.contains(item) || !adoptContentOf(item))
        return;
    const bool inside = index >= 0 && index <= m_items.size();
    m_items.insert(inside ? index : m_items.size(), item);
    if (!m_currentItem && !m_currentItemChosen)
        m_currentItem = item;
    invalidate();
}

void BVStackLayout::insertWidget(int index, QWidget *widget)
{
    if (widget && widget != parentWidget())
        insertItem(index, new QWidgetItem(widget));
}

/// Makes the item's widget or layout a child. It may leave another place in this layout meanwhile.
bool BVStackLayout::adoptContentOf(QLayoutItem *item)
{
    if (QLayout *nested = item->layout())
        return !nested->parent() && adoptLayout(nested);
    if (QWidget *widget = item->widget())
        addChildWidget(widget);
    return true;
}

QLayoutItem *BVStackLayout::takeAt(int index)
{
    if (index < 0 || index >= m_items.size())
        return nullptr;
    QLayoutItem *item = m_items.takeAt(index);
    if (QLayout *nested = item->layout(); nested && nested->parent() == this)
        nested->setParent(nullptr);
    if (item == m_currentItem)
        makeCurrent(m_items.isEmpty() ? nullptr : m_items.constLast());
    else
        invalidate();
    return item;
}

void BVStackLayout::setCurrentItemByIndex(int index)
{
    if (index < -1 || index >= m_items.size())
        return;
    m_currentItemChosen = true;
    QLayoutItem *item = m_items.value(index);
    if (item != m_currentItem)
        makeCurrent(item);
}

void BVStackLayout::makeCurrent(QLayoutItem *item)
{
    m_currentItem = item;
    showCurrentWidget(); // a hidden one would have no size hint
    invalidate();
}

void BVStackLayout::invalidate()
{
    m_dirty = true;
    QLayout::invalidate();
}

void BVStackLayout::setGeometry(const QRect &rect)
{
    if (rect == m_lastGeometry && !m_dirty)
        return;
    updateVisibility(); // invalidates the layout
    QLayout::setGeometry(rect);
    m_lastGeometry = rect;
    m_dirty = false;
    for (int i = 0; i < m_items.size(); ++i) { // a page's resize event may change the items
        if (m_items.at(i) == m_currentItem)
            m_currentItem->setGeometry(contentsRect());
        else
            moveOutside(m_items.at(i));
    }
}

void BVStackLayout::updateVisibility()
{
    showCurrentWidget(); // before the focus has to leave the others
    for (int i = 0; m_hideOtherWidgets && i < m_items.size(); ++i) {
        QWidget *widget = m_items.at(i)->widget();
        if (m_items.at(i) != m_currentItem && isPage(widget))
            widget->hide();
    }
}

void BVStackLayout::showCurrentWidget()
{
    QWidget *widget = m_currentItem ? m_currentItem->widget() : nullptr;
    if (m_hideOtherWidgets && isPage(widget) && widget->isHidden())
        widget->show();
}

/// The toolkit's items cut off what lies left of or above the origin, so widgets are moved directly
/// and nested layouts are laid out beyond the other corner first.
void BVStackLayout::moveOutside(QLayoutItem *item) const
{
    const QSize size = sizeOutside(item);
    const QRect outside(QPoint(-size.width(), -size.height()), size);
    if (QLayout *nested = item->layout()) {
        const QPoint beyond(m_lastGeometry.right() + 1, m_lastGeometry.bottom() + 1);
        nested->setGeometry(QRect(beyond, size));
        moveContent(nested, outside.topLeft() - nested->geometry().topLeft());
    } else if (!item->widget()) {
        item->setGeometry(outside);
    } else if (isPage(item->widget())) {
        item->widget()->setGeometry(outside);
    }
}

QSize BVStackLayout::sizeOutside(QLayoutItem *item) const
{
    const QSize size = item->widget() ? item->widget()->size() : item->geometry().size();
    if (!size.isEmpty())
        return size;
    return item->layout() ? contentsRect().size().expandedTo(QSize(0, 0)) : item->sizeHint();
}

QSize BVStackLayout::withMargins(const QSize &size) const
{
    const QMargins margins = contentsMargins();
    return size + QSize(margins.left() + margins.right(), margins.top() + margins.bottom());
}

QSize BVStackLayout::sizeHint() const
{
    return m_currentItem ? withMargins(m_currentItem->sizeHint()) : QSize(0, 0);
}

QSize BVStackLayout::minimumSize() const
{
    return m_currentItem ? withMargins(m_currentItem->minimumSize()) : QSize(0, 0);
}

QSize BVStackLayout::maximumSize() const
{
    return m_currentItem ? withMargins(m_currentItem->maximumSize()) : QSize(0, 0);
}

Qt::Orientations BVStackLayout::expandingDirections() const
{
    return m_currentItem ? m_currentItem->expandingDirections() : Qt::Orientations();
}

bool BVStackLayout::hasHeightForWidth() const
{
    return m_currentItem && m_currentItem->hasHeightForWidth();
}

int BVStackLayout::heightForWidth(int width) const
{
    if (!hasHeightForWidth())
        return -1;
    const QSize margins = withMargins(QSize(0, 0));
    return m_currentItem->heightForWidth(width - margins.width()) + margins.height();
}

int BVStackLayout::minimumHeightForWidth(int width) const
{
    if (!hasHeightForWidth())
        return -1;
    const QSize margins = withMargins(QSize(0, 0));
    return m_currentItem->minimumHeightForWidth(width - margins.width()) + margins.height();
}
