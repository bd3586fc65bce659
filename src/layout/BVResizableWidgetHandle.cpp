// SPDX-License-Identifier: MIT
#include "layout/BVResizableWidgetHandle.h"

#include "foundation/MainWindow.h"
#include "layout/BVHandleAccessible_p.h"
#include "layout/BVHandleStep_p.h"
#include "layout/BVPanelGeometry_p.h"
#include "platform/PropertyChangeFilter.h"

#include <QApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QTimer>

namespace {

constexpr int s_dotCount = 3;       // of the grip
constexpr int s_dotDistance = 5;    // px
constexpr double s_dotRadius = 1.2; // px
constexpr int s_quietAlpha = 110;
constexpr int s_middleLightness = 128;

bool isToggleKey(int key)
{
    return key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Space;
}

/// The way from one dot of the grip to the next.
QPoint dotStep(BVResizableWidgetHandle::Position position)
{
    const BVPanelGeometry::HandlePlace &place = BVPanelGeometry::handlePlace(position);
    if (place.dragsWidth && place.dragsHeight)
        return QPoint(3, place.widthSign == place.heightSign ? -3 : 3); // across the corner
    return place.dragsWidth ? QPoint(0, s_dotDistance) : QPoint(s_dotDistance, 0);
}

QSizePolicy::Policy policyOf(int fixed)
{
    return fixed ? QSizePolicy::Fixed : QSizePolicy::Expanding;
}

} // namespace

BVResizableWidgetHandle::BVResizableWidgetHandle(Position position, QWidget *parent, bool alien)
    : QFrame(parent)
    , m_position(BVPanelGeometry::isPosition(position) ? position : RightEdge)
{
    BVHandleAccessible::install();
    setObjectName(QStringLiteral("BVResizableWidgetHandle"));
    setMouseTracking(true);
    setAttribute(Qt::WA_Hover);
    setFocusPolicy(Qt::StrongFocus);
    if (!alien) {
        setAttribute(Qt::WA_DontCreateNativeAncestors);
        setAttribute(Qt::WA_NativeWindow);
    }
    watchParent();
    watchSplitter();
    takePosition();
}

BVResizableWidgetHandle::~BVResizableWidgetHandle() = default;

BVResizableWidgetHandle::Position BVResizableWidgetHandle::position() const
{
    return m_position;
}

void BVResizableWidgetHandle::setPosition(Position position)
{
    if (!BVPanelGeometry::isPosition(position) || position == m_position)
        return;
    m_position = position;
    updatePosition();
}

bool BVResizableWidgetHandle::isPressing() const
{
    return m_pressing;
}

bool BVResizableWidgetHandle::hasMoved() const
{
    return m_moved;
}

bool BVResizableWidgetHandle::isMouseOverHandleBorder(const QPoint &global) const
{
    const QWidget *parent = parentWidget();
    if (parent && !parent->isVisible())
        return false;
    const QRect frame(mapToGlobal(QPoint(0, 0)), size());
    return BVPanelGeometry::isOverBorder(m_position, frame, global);
}

QWidget *BVResizableWidgetHandle::resizedWidget() const
{
    return parentWidget();
}

void BVResizableWidgetHandle::updatePosition()
{
    takePosition();
}

void BVResizableWidgetHandle::takePosition()
{
    const BVPanelGeometry::HandlePlace &place = BVPanelGeometry::handlePlace(m_position);
    setMinimumSize(place.width, place.height);
    setMaximumSize(place.width ? place.width : QWIDGETSIZE_MAX,
                   place.height ? place.height : QWIDGETSIZE_MAX);
    setSizePolicy(policyOf(place.width), policyOf(place.height));
    setCursor(BVCursorTable::cursor(place.cursor));
    placeAtParent();
    PropertyChangeFilter::repolishPost(this);
}

void BVResizableWidgetHandle::placeAtParent()
{
    if (!parentWidget() || parentWidget()->layout())
        return;
    const int thickness = qMax(minimumWidth(), minimumHeight());
    setGeometry(BVPanelGeometry::handleRect(m_position, parentWidget()->size(), thickness));
}

void BVResizableWidgetHandle::watchParent()
{
    if (m_watchedParent == parentWidget())
        return;
    if (m_watchedParent)
        m_watchedParent->removeEventFilter(this);
    m_watchedParent = parentWidget();
    if (m_watchedParent)
        m_watchedParent->installEventFilter(this);
}

void BVResizableWidgetHandle::watchSplitter()
{
    const QWidget *window = Brimvale::mainWindow();
    QObject *splitter =
        window ? window->findChild<QObject *>(QStringLiteral("qt_qmainwindow_extended_splitter"))
               : nullptr;
    if (m_splitter == splitter)
        return;
    if (m_splitter)
        m_splitter->removeEventFilter(this);
    m_splitter = splitter;
    if (m_splitter)
        m_splitter->installEventFilter(this);
}

void BVResizableWidgetHandle::press(const QPoint &global)
{
    m_lastGlobal = BVPanelGeometry::plausible(global);
    m_pressing = true;
    m_moved = false;
    qApp->installEventFilter(this); // for Escape, whoever has the keyboard
    PropertyChangeFilter::repolishPost(this);
    const QPointer<BVResizableWidgetHandle> self(this);
    setFocus(Qt::MouseFocusReason);
    if (self && m_pressing)
        Q_EMIT sigMoveStarted();
}

void BVResizableWidgetHandle::move(const QPoint &global)
{
    const QPoint position = BVPanelGeometry::plausible(global);
    const QSize delta = BVPanelGeometry::growth(m_position, position - m_lastGlobal);
    if (delta.isNull())
        return;
    m_lastGlobal = position;
    m_moved = true;
    Q_EMIT sigMoveAbout(delta);
}

void BVResizableWidgetHandle::release()
{
    const bool moved = m_moved;
    endPress();
    if (moved)
        Q_EMIT sigMoved();
}

void BVResizableWidgetHandle::endPress()
{
    m_pressing = false;
    m_moved = false;
    m_pressedOnSplitter = false;
    qApp->removeEventFilter(this);
    PropertyChangeFilter::repolishPost(this);
}

void BVResizableWidgetHandle::cancelMove()
{
    if (!m_pressing)
        return;
    endPress();
    Q_EMIT sigMoveCanceled();
}

/// Posted, since what hides or disables the handle is still at work.
void BVResizableWidgetHandle::cancelIfUnreachable()
{
    QTimer::singleShot(0, this, [this] {
        if (!isVisible() || !isEnabled())
            cancelMove();
    });
}

void BVResizableWidgetHandle::moveBy(const QSize &size)
{
    const QSize growth = BVPanelGeometry::plausible(size);
    if (m_pressing || growth.isNull() || !isEnabled())
        return;
    const QPointer<BVResizableWidgetHandle> self(this);
    Q_EMIT sigMoveStarted();
    if (self)
        Q_EMIT sigMoveAbout(growth);
    if (self)
        Q_EMIT sigMoved();
}

void BVResizableWidgetHandle::mousePressEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton)
        return QFrame::mousePressEvent(event);
    event->accept();
    press(event->globalPos());
}

void BVResizableWidgetHandle::mouseMoveEvent(QMouseEvent *event)
{
    if (!m_pressing)
        return QFrame::mouseMoveEvent(event);
    event->accept();
    if (event->spontaneous() && !(event->buttons() & Qt::LeftButton))
        cancelMove(); // the release has gone elsewhere
    else
        move(event->globalPos());
}

void BVResizableWidgetHandle::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton || !m_pressing)
        return QFrame::mouseReleaseEvent(event);
    event->accept();
    release();
}

void BVResizableWidgetHandle::mouseDoubleClickEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton)
        return QFrame::mouseDoubleClickEvent(event);
    event->accept();
    Q_EMIT sigToggleRequested();
}

void BVResizableWidgetHandle::keyPressEvent(QKeyEvent *event)
{
    const QSize growth = BVPanelGeometry::alongHandle(
        m_position, BVPanelGeometry::growth(m_position, BVHandleStep::of(*event)));
    const bool isPlain = !(event->modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier));
    if (!isPlain || (growth.isNull() && !isToggleKey(event->key())))
        return QFrame::keyPressEvent(event);
    m_showsFocus = true;
    update();
    if (!growth.isNull())
        moveBy(growth);
    else if (!event->isAutoRepeat())
        Q_EMIT sigToggleRequested();
}

void BVResizableWidgetHandle::focusInEvent(QFocusEvent *event)
{
    const Qt::FocusReason reason = event->reason();
    if (reason == Qt::MouseFocusReason)
        m_showsFocus = false;
    else if (reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason)
        m_showsFocus = true;
    QFrame::focusInEvent(event);
}

void BVResizableWidgetHandle::showEvent(QShowEvent *event)
{
    QFrame::showEvent(event);
    watchSplitter(); // which may be younger than the handle
    placeAtParent();
}

bool BVResizableWidgetHandle::event(QEvent *event)
{
    if (event->type() == QEvent::ParentChange) {
        watchParent();
        placeAtParent();
    }
    const bool isLeaving = event->type() == QEvent::Hide || event->type() == QEvent::EnabledChange;
    if (isLeaving && m_pressing)
        cancelIfUnreachable();
    return QFrame::event(event);
}

bool BVResizableWidgetHandle::eventFilter(QObject *watched, QEvent *event)
{
    if (m_splitter && watched == m_splitter && splitterEvent(event))
        return true;
    if (watched == m_watchedParent && event->type() == QEvent::Resize)
        placeAtParent();
    if (m_pressing && watched == window() && event->type() == QEvent::WindowBlocked)
        QTimer::singleShot(0, this, &BVResizableWidgetHandle::cancelMove);
    return (m_pressing && escapeEvent(event)) || QFrame::eventFilter(watched, event);
}

/// The splitter lies over the handle and gets its mouse; it keeps that from press to release.
bool BVResizableWidgetHandle::splitterEvent(QEvent *event)
{
    auto *mouse = dynamic_cast<QMouseEvent *>(event);
    const bool isBegin =
        event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseButtonDblClick;
    if (!mouse || !(isBegin ? isMouseOverHandleBorder(mouse->globalPos()) : m_pressedOnSplitter))
        return false;
    if (event->type() == QEvent::MouseButtonPress) {
        m_pressedOnSplitter = mouse->button() == Qt::LeftButton;
        mousePressEvent(mouse);
    } else if (event->type() == QEvent::MouseButtonDblClick) {
        mouseDoubleClickEvent(mouse);
    } else if (event->type() == QEvent::MouseMove) {
        mouseMoveEvent(mouse);
    } else {
        mouseReleaseEvent(mouse);
    }
    return true;
}

bool BVResizableWidgetHandle::escapeEvent(QEvent *event)
{
    const bool isOverride = event->type() == QEvent::ShortcutOverride;
    if (!isOverride && event->type() != QEvent::KeyPress)
        return false;
    if (static_cast<QKeyEvent *>(event)->key() != Qt::Key_Escape)
        return false;
    event->accept();
    if (!isOverride)
        cancelMove();
    return true;
}

void BVResizableWidgetHandle::paintEvent(QPaintEvent *event)
{
    QFrame::paintEvent(event);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const bool isLively = isEnabled() && (underMouse() || m_pressing || hasFocus());
    QColor color = palette().color(QPalette::WindowText);
    const bool isOnDark = color.lightness() > s_middleLightness;
    if (isLively && !isOnDark) // on dark surfaces the text stands out more
        color = palette().color(QPalette::Highlight);
    if (!isLively)
        color.setAlpha(s_quietAlpha);
    paintGrip(&painter, color);
    if (hasFocus() && m_showsFocus) {
        painter.setPen(color);
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 2, 2);
    }
}

void BVResizableWidgetHandle::paintGrip(QPainter *painter, const QColor &color)
{
    painter->setPen(Qt::NoPen);
    painter->setBrush(color);
    const QPoint step = dotStep(m_position);
    const QPointF middle = QRectF(rect()).center();
    for (int i = 0; i < s_dotCount; ++i)
        painter->drawEllipse(middle + (i - s_dotCount / 2) * step, s_dotRadius, s_dotRadius);
}
