// SPDX-License-Identifier: MIT
#include "layout/MainWidget.h"

#include "layout/BVPanelGeometry_p.h"
#include "layout/BVPanelShadow_p.h"

#include <QChildEvent>
#include <QPropertyAnimation>
#include <QStyle>
#include <QVector>

namespace {

/// Whether it can lie over a container without being meant to.
bool isSibling(const QObject *object)
{
    return object->isWidgetType() && !static_cast<const QWidget *>(object)->isWindow() &&
           !qobject_cast<const MainWidget *>(object) && !BVPanelShadow::isStrip(object);
}

} // namespace

MainWidget::MainWidget(QWidget *window)
    : m_animation(new QPropertyAnimation(this, "geometry", this))
    , m_shadow(std::make_unique<BVPanelShadow>(window))
{
    setParent(window); // which tells the others of a container, not of any widget
    setAttribute(Qt::WA_StyledBackground);
    setAutoFillBackground(true);
    m_animation->setEasingCurve(QEasingCurve::OutCubic);
    connect(m_animation, &QPropertyAnimation::finished, this, &MainWidget::onAnimationFinished);
    window->installEventFilter(this);
    hide();
}

MainWidget::~MainWidget() = default;

void MainWidget::setContent(QWidget *content)
{
    m_content = content;
    m_contentObject = content;
    content->setParent(this);
    content->setGeometry(rect());
    content->show();
}

QWidget *MainWidget::content() const
{
    return m_content;
}

void MainWidget::setGeometryWithAnimation(const QRect &rect, int durationMs, bool returning)
{
    m_wanted = rect;
    moveTo(rect, durationMs, returning);
}

void MainWidget::moveTo(const QRect &rect, int durationMs, bool returning)
{
    m_animation->stop();
    m_returning = returning;
    m_animation->setDuration(qMax(0, durationMs));
    m_animation->setStartValue(geometry());
    m_animation->setEndValue(rect);
    const bool isAnimated =
        durationMs > 0 && isVisible() && rect != geometry() &&
        style()->styleHint(QStyle::SH_Widget_Animation_Duration, nullptr, this) > 0;
    if (isAnimated)
        return m_animation->start();
    setGeometry(rect);
    onAnimationFinished();
}

QRect MainWidget::targetGeometry() const
{
    return isAnimating() ? m_animation->endValue().toRect() : geometry();
}

bool MainWidget::isAnimating() const
{
    return m_animation->state() == QAbstractAnimation::Running;
}

bool MainWidget::isReturning() const
{
    return m_returning && isAnimating();
}

void MainWidget::skipAnimation()
{
    const QRect target = targetGeometry();
    m_animation->stop();
    setGeometry(target);
}

QRect MainWidget::availableArea() const
{
    return BVPanelGeometry::availableArea(parentWidget());
}

void MainWidget::onAnimationFinished()
{
    m_animation->stop();
    Q_EMIT sigAnimationFinished(m_returning);
}

bool MainWidget::event(QEvent *event)
{
    const bool result = QWidget::event(event);
    switch (event->type()) {
    case QEvent::Resize:
        if (m_content)
            m_content->setGeometry(rect()); // whatever its size policy is
        m_shadow->follow(this);
        break;
    case QEvent::Move:
    case QEvent::ShowToParent:
    case QEvent::HideToParent:
        m_shadow->follow(this);
        break;
    case QEvent::ZOrderChange:
        m_shadow->stackUnder(this);
        break;
    case QEvent::ChildRemoved:
        leaveWith(static_cast<QChildEvent *>(event)->child());
        break;
    default:
        break;
    }
    return result;
}

void MainWidget::leaveWith(const QObject *child)
{
    // The content is a mere QObject here when it is being deleted.
    if (m_contentObject != child || !child)
        return;
    m_contentObject = nullptr;
    hide();
    deleteLater();
}

bool MainWidget::eventFilter(QObject *watched, QEvent *event)
{
    if (watched != parentWidget())
        return QWidget::eventFilter(watched, event);
    if (event->type() == QEvent::Resize || event->type() == QEvent::ContentsRectChange)
        keepInWindow();
    else if (event->type() == QEvent::ChildAdded && isVisible())
        stayAbove(static_cast<QChildEvent *>(event)->child());
    return false;
}

/// A sibling begins on top; what wants to stay above the containers raises itself later.
void MainWidget::stayAbove(const QObject *sibling)
{
    if (!isSibling(sibling))
        return;
    QVector<MainWidget *> containers; // from below
    for (QObject *child : parentWidget()->children()) {
        auto *container = qobject_cast<MainWidget *>(child);
        if (container && container->isVisible())
            containers.append(container);
    }
    if (containers.value(0) != this)
        return; // the lowest one does it for all
    for (MainWidget *container : qAsConst(containers))
        container->raise();
}

void MainWidget::followPlace(const QRect &from, const QRect &to)
{
    if (m_wanted.isNull() || isReturning())
        return;
    m_wanted.adjust(to.left() - from.left(), to.top() - from.top(), to.right() - from.right(),
                    to.bottom() - from.bottom());
    keepInWindow();
}

/// What is cut off while the window is small comes back with the room for it.
void MainWidget::keepInWindow()
{
    if (m_wanted.isNull() || isReturning())
        return;
    const QRect inside = BVPanelGeometry::clamped(availableArea(), m_wanted);
    if (inside != targetGeometry())
        moveTo(inside, 0, false);
}
