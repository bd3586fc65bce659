// SPDX-License-Identifier: MIT
#include "layout/BVResizeWidget.h"

#include "foundation/BVCursorTable.h"
#include "layout/BVGripGeometry_p.h"
#include "layout/BVHandleStep_p.h"
#include "layout/BVResizeWidgetAccessible_p.h"

#include <QGuiApplication>
#include <QMouseEvent>
#include <QStyleOption>
#include <QStylePainter>
#include <QWindow>

#include <utility>

namespace {

constexpr int s_thickness = 5; // px

struct Kind
{
    BVGripGeometry::Grip grip;
    BVCursorTable::Cursor cursor;
};

using Cursor = BVCursorTable::Cursor;
constexpr Qt::Edges s_noEdges;

// By type.
const Kind s_kinds[] = {
    {{Qt::LeftEdge, Qt::LeftEdge}, Cursor::ResizeHorizontal},
    {{Qt::LeftEdge | Qt::TopEdge, Qt::LeftEdge | Qt::TopEdge}, Cursor::ResizeFalling},
    {{Qt::TopEdge, Qt::TopEdge}, Cursor::ResizeVertical},
    {{Qt::TopEdge | Qt::RightEdge, s_noEdges}, Cursor::ResizeRising},
    {{Qt::RightEdge, s_noEdges}, Cursor::ResizeHorizontal},
    {{Qt::RightEdge | Qt::BottomEdge, s_noEdges}, Cursor::ResizeFalling},
    {{Qt::BottomEdge, s_noEdges}, Cursor::ResizeVertical},
    {{Qt::BottomEdge | Qt::LeftEdge, Qt::LeftEdge}, Cursor::ResizeRising},
};
constexpr int s_kindCount = sizeof(s_kinds) / sizeof(*s_kinds);

constexpr Qt::Edges s_sides = Qt::LeftEdge | Qt::RightEdge;
constexpr Qt::Edges s_ends = Qt::TopEdge | Qt::BottomEdge;

/// The type that moves just these edges; the given one when there is none.
BVResizeWidget::ResizeType typeOf(Qt::Edges edges, BVResizeWidget::ResizeType fallback)
{
    for (int type = 0; type < s_kindCount; ++type) {
        if (s_kinds[type].grip.edges == edges)
            return static_cast<BVResizeWidget::ResizeType>(type);
    }
    return fallback;
}

/// Whether a window's place is the window system's alone.
bool isPlacedBySystem()
{
    return QGuiApplication::platformName().startsWith(QLatin1String("wayland"));
}

} // namespace

BVResizeWidget::BVResizeWidget(QWidget *parent)
    : QWidget(parent)
{
    BVResizeWidgetAccessible::install();
    setFocusPolicy(Qt::TabFocus); // a drag leaves the focus where the user works
    setResizeType(left);
}

void BVResizeWidget::setWindow(QMainWindow *window)
{
    m_isDragging = m_isDragging && window == m_window;
    m_window = window;
}

void BVResizeWidget::setResizeType(ResizeType type)
{
    if (type < 0 || type >= s_kindCount)
        return;
    m_isDragging = m_isDragging && type == m_resizeType;
    m_resizeType = type;
    const Kind &kind = s_kinds[type];
    setCursor(BVCursorTable::cursor(kind.cursor));
    setSizePolicy(kind.grip.edges & s_sides ? QSizePolicy::Fixed : QSizePolicy::Expanding,
                  kind.grip.edges & s_ends ? QSizePolicy::Fixed : QSizePolicy::Expanding);
    updateGeometry();
}

void BVResizeWidget::resizeLeft(const QPoint &cursor, const QPoint &step)
{
    resizeWindow(left, cursor, step);
}

void BVResizeWidget::resizeTop(const QPoint &cursor, const QPoint &step)
{
    resizeWindow(top, cursor, step);
}

void BVResizeWidget::resizeTopLeft(const QPoint &cursor, const QPoint &step)
{
    resizeWindow(topLeft, cursor, step);
}

void BVResizeWidget::resizeBottomLeft(const QPoint &cursor, const QPoint &step)
{
    resizeWindow(bottomLeft, cursor, step);
}

void BVResizeWidget::moveBy(const QPoint &step)
{
    const Qt::Edges directions = (step.x() ? s_sides : s_noEdges) | (step.y() ? s_ends : s_noEdges);
    const Qt::Edges edges = s_kinds[m_resizeType].grip.edges & directions;
    if (!edges || !canResize())
        return;
    const QRect window = m_window->geometry();
    const QPoint corner(edges & Qt::LeftEdge ? window.x() : window.x() + window.width(),
                        edges & Qt::TopEdge ? window.y() : window.y() + window.height());
    // The edges alone, so that one that stops does not hold the other.
    resizeWindow(typeOf(edges, m_resizeType), corner + step, step);
}

QSize BVResizeWidget::sizeHint() const
{
    return QSize(s_thickness, s_thickness);
}

QSize BVResizeWidget::minimumSizeHint() const
{
    return sizeHint();
}

void BVResizeWidget::hideEvent(QHideEvent *event)
{
    m_isDragging = false;
    QWidget::hideEvent(event);
}

void BVResizeWidget::keyPressEvent(QKeyEvent *event)
{
    const QPoint step = BVHandleStep::of(*event);
    const Qt::Edges edges = s_kinds[m_resizeType].grip.edges;
    if ((step.x() && (edges & s_sides)) || (step.y() && (edges & s_ends)))
        moveBy(step);
    else
        QWidget::keyPressEvent(event);
}

void BVResizeWidget::mousePressEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton || !canResize()) {
        QWidget::mousePressEvent(event);
        return;
    }
    m_lastPosition = event->globalPos();
    QWindow *handle = m_window->windowHandle();
    const bool isHandedOver =
        isPlacedBySystem() && handle && handle->startSystemResize(s_kinds[m_resizeType].grip.edges);
    m_isDragging = !isHandedOver;
}

void BVResizeWidget::mouseMoveEvent(QMouseEvent *event)
{
    if (!m_isDragging) {
        QWidget::mouseMoveEvent(event);
        return;
    }
    const QPoint position = event->globalPos();
    const QPoint step = position - std::exchange(m_lastPosition, position);
    resizeWindow(m_resizeType, position, step);
}

void BVResizeWidget::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton)
        m_isDragging = false;
    else
        QWidget::mouseReleaseEvent(event);
}

void BVResizeWidget::paintEvent(QPaintEvent *)
{
    QStylePainter painter(this);
    QStyleOption option;
    option.initFrom(this);
    painter.drawPrimitive(QStyle::PE_Widget, option);
    if (hasFocus())
        painter.fillRect(rect(), palette().color(QPalette::WindowText));
}

bool BVResizeWidget::canResize() const
{
    return m_window && !m_window->isMaximized() && !m_window->isFullScreen();
}

/// Does nothing else afterwards: resizing the window may delete the grip.
void BVResizeWidget::resizeWindow(ResizeType type, const QPoint &cursor, const QPoint &step)
{
    if (!canResize())
        return;
    const BVGripGeometry::Grip &grip = s_kinds[type].grip;
    const QRect window = m_window->geometry();
    if (BVGripGeometry::stops(grip.stops, window.size(), m_window->minimumSize(), step)) {
        m_isDragging = false;
        return;
    }
    const QRect target = BVGripGeometry::moved(grip.edges, window, cursor);
    m_window->setGeometry(BVGripGeometry::bounded(grip.stops, target, m_window->minimumSize(),
                                                  m_window->maximumSize()));
}
