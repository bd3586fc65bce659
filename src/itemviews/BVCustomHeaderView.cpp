// SPDX-License-Identifier: MIT
#include "itemviews/BVCustomHeaderView.h"

#include "itemviews/BVTreeViewModel.h"

#include <QCursor>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleOption>
#include <QTimer>

namespace {

constexpr int s_margin = 4; // px, on both sides of a box
constexpr int s_edge = 2;   // px, the most that a style draws as the edge of a section

} // namespace

BVCustomHeaderView::BVCustomHeaderView(Qt::Orientation orientation, const QSize &indicatorSize,
                                       QWidget *parent)
    : QHeaderView(orientation, parent)
    , m_indicatorSize(indicatorSize)
{
    setSectionsClickable(true);
    viewport()->setMouseTracking(true);
    connect(this, &QHeaderView::sectionCountChanged, this, &BVCustomHeaderView::onBoxesChanged);
    connect(this, &QHeaderView::sectionResized, this,
            [this](int, int before, int after) { onSectionResized(before, after); });
}

void BVCustomHeaderView::setModel(QAbstractItemModel *model)
{
    for (const QMetaObject::Connection &connection : qAsConst(m_connections))
        disconnect(connection);
    m_connections.clear();
    m_states.clear();
    QHeaderView::setModel(model);
    if (model) {
        m_connections = {
            connect(model, &QAbstractItemModel::headerDataChanged, this,
                    &BVCustomHeaderView::onBoxesChanged),
            connect(model, &QAbstractItemModel::modelReset, this,
                    &BVCustomHeaderView::onBoxesChanged),
        };
    }
    onBoxesChanged();
}

// Boxes and their states

bool BVCustomHeaderView::hasCheckBox(int section) const
{
    return model() && section >= 0 && section < count() &&
           model()
               ->headerData(section, orientation(), BVTreeViewModel::HeaderCheckBoxRole)
               .toBool();
}

Qt::CheckState BVCustomHeaderView::checkState(int section) const
{
    return m_states.value(section, Qt::Unchecked);
}

void BVCustomHeaderView::setCheckState(Qt::CheckState state, int section)
{
    if (section < 0 || section >= count() || checkState(section) == state)
        return;
    if (state == Qt::Unchecked)
        m_states.remove(section);
    else
        m_states.insert(section, state);
    describe();
    updateSection(section);
}

bool BVCustomHeaderView::setChecked(bool checked, int section)
{
    if (!hasCheckBox(section))
        return false;
    const Qt::CheckState state = checked ? Qt::Checked : Qt::Unchecked;
    if (state == checkState(section))
        return true;
    setCheckState(state, section);
    Q_EMIT sigCheckStateChanged(checked, section);
    return true;
}

int BVCustomHeaderView::focusedCheckBox() const
{
    return hasFocus() ? m_currentBox : -1;
}

QVector<int> BVCustomHeaderView::sectionsWithBox() const
{
    QVector<int> sections;
    for (int visual = 0; visual < count(); ++visual) {
        const int section = logicalIndex(visual);
        if (!isSectionHidden(section) && hasCheckBox(section))
            sections.append(section);
    }
    return sections;
}

void BVCustomHeaderView::onBoxesChanged()
{
    const QVector<int> sections = sectionsWithBox();
    setFocusPolicy(sections.isEmpty() ? Qt::NoFocus : Qt::TabFocus);
    if (!sections.contains(m_currentBox))
        m_currentBox = sections.value(0, -1);
    describe();
    viewport()->update();
}

/// A section that is hidden or shown is so only after it has told its size.
void BVCustomHeaderView::onSectionResized(int before, int after)
{
    if (before == 0 || after == 0)
        QTimer::singleShot(0, this, &BVCustomHeaderView::onBoxesChanged);
}

/// Tells assistive tools what the keyboard would operate.
void BVCustomHeaderView::describe()
{
    QString text;
    if (hasCheckBox(m_currentBox)) {
        const Qt::CheckState state = checkState(m_currentBox);
        const QString title = model()->headerData(m_currentBox, orientation()).toString();
        text = state == Qt::Checked     ? tr("%1: checked")
               : state == Qt::Unchecked ? tr("%1: not checked")
                                        : tr("%1: partially checked");
        text = text.arg(title);
    }
    if (text == accessibleDescription())
        return;
    setAccessibleDescription(text);
    updateBoxes();
}

/// The view's paint of the header selection follows the focused box.
void BVCustomHeaderView::updateBoxes()
{
    viewport()->update();
    if (auto *view = qobject_cast<QAbstractScrollArea *>(parentWidget()))
        view->viewport()->update();
}

// Geometry

Qt::Alignment BVCustomHeaderView::boxAlignment(int section) const
{
    const QVariant value =
        model()->headerData(section, orientation(), BVTreeViewModel::HeaderCheckBoxAlignmentRole);
    Qt::Alignment alignment = Qt::Alignment(value.toInt());
    if (!(alignment & Qt::AlignHorizontal_Mask))
        alignment |= Qt::AlignLeft;
    if (!(alignment & Qt::AlignVertical_Mask))
        alignment |= Qt::AlignVCenter;
    return QStyle::visualAlignment(layoutDirection(), alignment);
}

QSize BVCustomHeaderView::boxSize() const
{
    if (!m_indicatorSize.isEmpty())
        return m_indicatorSize;
    if (m_styleBoxSize.isEmpty()) {
        QStyleOptionViewItem option;
        option.initFrom(this);
        option.features = QStyleOptionViewItem::HasCheckIndicator;
        option.rect = QRect(0, 0, 100, 100);
        m_styleBoxSize =
            style()->subElementRect(QStyle::SE_ItemViewItemCheckIndicator, &option, this).size();
    }
    return m_styleBoxSize;
}

QRect BVCustomHeaderView::boxRect(int section, const QRect &sectionRect) const
{
    return QStyle::alignedRect(Qt::LeftToRight, boxAlignment(section), boxSize(),
                               sectionRect.adjusted(s_margin, 0, -s_margin, 0));
}

/// The section whose box is at a position in the viewport, or -1.
int BVCustomHeaderView::boxAt(const QPoint &position) const
{
    const int section = logicalIndexAt(position);
    if (!hasCheckBox(section))
        return -1;
    const int start = sectionViewportPosition(section);
    const int size = sectionSize(section);
    const QRect rect = orientation() == Qt::Horizontal ? QRect(start, 0, size, viewport()->height())
                                                       : QRect(0, start, viewport()->width(), size);
    return boxRect(section, rect).contains(position) ? section : -1;
}

QSize BVCustomHeaderView::sectionSizeFromContents(int logicalIndex) const
{
    QSize size = QHeaderView::sectionSizeFromContents(logicalIndex);
    if (!hasCheckBox(logicalIndex))
        return size;
    const QSize box = boxSize();
    if (!(boxAlignment(logicalIndex) & Qt::AlignHCenter))
        size.rwidth() += box.width() + s_margin;
    return size.expandedTo(box + QSize(2 * s_margin, 2));
}

// Painting

void BVCustomHeaderView::paintSection(QPainter *painter, const QRect &rect, int logicalIndex) const
{
    if (!rect.isValid() || !hasCheckBox(logicalIndex)) {
        QHeaderView::paintSection(painter, rect, logicalIndex);
        return;
    }
    const QRect box = boxRect(logicalIndex, rect);
    const Qt::Alignment alignment = boxAlignment(logicalIndex);
    QRect label = rect;
    if (alignment & Qt::AlignLeft)
        label.setLeft(box.right() + 1);
    else if (alignment & Qt::AlignRight)
        label.setRight(box.left() - 1);
    painter->save();
    if (alignment & Qt::AlignLeft)
        paintBackground(painter, rect, logicalIndex);
    QHeaderView::paintSection(painter, label, logicalIndex);
    if (alignment & Qt::AlignRight) { // over the edge of the section behind the label
        painter->setClipRect(rect.adjusted(label.width() - s_edge, 0, 0, 0), Qt::IntersectClip);
        paintBackground(painter, rect, logicalIndex);
    }
    painter->restore();
    paintBox(painter, box, logicalIndex);
}

void BVCustomHeaderView::paintBackground(QPainter *painter, const QRect &rect, int section) const
{
    QStyleOptionHeader option;
    initStyleOption(&option);
    option.rect = rect;
    option.section = section;
    option.orientation = orientation();
    option.position = QStyleOptionHeader::Middle;
    if (isEnabled())
        option.state |= QStyle::State_Enabled;
    const QPoint mouse = viewport()->mapFromGlobal(QCursor::pos());
    if (sectionsClickable() && viewport()->underMouse() && logicalIndexAt(mouse) == section)
        option.state |= QStyle::State_MouseOver;
    style()->drawControl(QStyle::CE_HeaderSection, &option, painter, this);
}

void BVCustomHeaderView::paintBox(QPainter *painter, const QRect &rect, int section) const
{
    QStyleOptionViewItem option;
    option.initFrom(this);
    option.rect = rect;
    option.features = QStyleOptionViewItem::HasCheckIndicator;
    option.checkState = checkState(section);
    option.state &= ~(QStyle::State_HasFocus | QStyle::State_MouseOver);
    option.state |= option.checkState == Qt::Checked     ? QStyle::State_On
                    : option.checkState == Qt::Unchecked ? QStyle::State_Off
                                                         : QStyle::State_NoChange;
    if (section == m_hoveredBox)
        option.state |= QStyle::State_MouseOver;
    if (section == m_pressedBox && section == m_hoveredBox)
        option.state |= QStyle::State_Sunken;
    style()->drawPrimitive(QStyle::PE_IndicatorItemViewItemCheck, &option, painter, this);
    if (section != focusedCheckBox())
        return;
    painter->save();
    painter->setPen(palette().color(QPalette::WindowText));
    painter->drawRect(rect.adjusted(-2, -2, 1, 1));
    painter->restore();
}

// Events

void BVCustomHeaderView::goToBox(int key)
{
    const QVector<int> sections = sectionsWithBox();
    const bool isBack =
        key == (isRightToLeft() ? Qt::Key_Right : Qt::Key_Left) || key == Qt::Key_Up;
    int position = sections.indexOf(m_currentBox) + (isBack ? -1 : 1);
    if (key == Qt::Key_Home)
        position = 0;
    else if (key == Qt::Key_End)
        position = sections.size() - 1;
    if (position < 0 || position >= sections.size())
        return;
    m_currentBox = sections[position];
    describe();
    updateBoxes();
    Q_EMIT sigBoxFocused(m_currentBox);
}

void BVCustomHeaderView::keyPressEvent(QKeyEvent *event)
{
    switch (event->key()) {
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_Home:
    case Qt::Key_End:
        goToBox(event->key());
        break;
    case Qt::Key_Space:
    case Qt::Key_Select:
        if (!event->isAutoRepeat() && sectionsWithBox().contains(m_currentBox))
            setChecked(checkState(m_currentBox) != Qt::Checked, m_currentBox);
        break;
    default:
        event->ignore(); // all else is for the window
    }
}

void BVCustomHeaderView::mousePressEvent(QMouseEvent *event)
{
    m_pressedBox = event->button() == Qt::LeftButton ? boxAt(event->pos()) : -1;
    if (m_pressedBox < 0) {
        QHeaderView::mousePressEvent(event);
        return;
    }
    m_hoveredBox = m_pressedBox;
    viewport()->update();
}

void BVCustomHeaderView::mouseMoveEvent(QMouseEvent *event)
{
    const int hovered = boxAt(event->pos());
    if (hovered != m_hoveredBox) {
        m_hoveredBox = hovered;
        viewport()->update();
    }
    if (m_pressedBox < 0)
        QHeaderView::mouseMoveEvent(event);
}

void BVCustomHeaderView::mouseReleaseEvent(QMouseEvent *event)
{
    const int pressed = m_pressedBox;
    if (pressed < 0) {
        QHeaderView::mouseReleaseEvent(event);
        return;
    }
    if (event->button() != Qt::LeftButton)
        return;
    m_pressedBox = -1;
    viewport()->update();
    if (boxAt(event->pos()) == pressed)
        setChecked(checkState(pressed) != Qt::Checked, pressed);
}

/// The second press of a double click is a press like any other.
void BVCustomHeaderView::mouseDoubleClickEvent(QMouseEvent *event)
{
    if (boxAt(event->pos()) >= 0)
        mousePressEvent(event);
    else
        QHeaderView::mouseDoubleClickEvent(event);
}

void BVCustomHeaderView::focusInEvent(QFocusEvent *event)
{
    QHeaderView::focusInEvent(event);
    updateBoxes();
    if (sectionsWithBox().contains(m_currentBox))
        Q_EMIT sigBoxFocused(m_currentBox);
}

void BVCustomHeaderView::focusOutEvent(QFocusEvent *event)
{
    QHeaderView::focusOutEvent(event);
    updateBoxes();
}

bool BVCustomHeaderView::viewportEvent(QEvent *event)
{
    if (event->type() == QEvent::Leave && m_hoveredBox >= 0) {
        m_hoveredBox = -1;
        viewport()->update();
    }
    return QHeaderView::viewportEvent(event);
}

void BVCustomHeaderView::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::StyleChange)
        m_styleBoxSize = QSize();
    QHeaderView::changeEvent(event);
}
