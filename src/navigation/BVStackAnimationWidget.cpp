// SPDX-License-Identifier: MIT
#include "navigation/BVStackAnimationWidget.h"

#include "navigation/BVInputBlock_p.h"

#include <QAction>
#include <QApplication>
#include <QHideEvent>
#include <QPainter>
#include <QSplitter>
#include <QStyle>

namespace {

constexpr int s_lastFrame = 100;
constexpr int s_duration = 500;      // ms
constexpr int s_updateInterval = 16; // ms, as often as most screens show a picture
constexpr double s_leastFade = 0.2;  // below, the image stays as visible as it is

QPoint pointOf(const QRect &rect, BVStackAnimationWidget::AnimationTargetPosition position)
{
    switch (position) {
    case BVStackAnimationWidget::Center:
        return rect.bottomLeft() + QPoint(rect.width() / 2, -(rect.height() / 2));
    case BVStackAnimationWidget::TopRight:
        return rect.topRight();
    case BVStackAnimationWidget::TopLeft:
        return rect.topLeft();
    case BVStackAnimationWidget::BottomRight:
        return rect.bottomRight();
    case BVStackAnimationWidget::BottomLeft:
        return rect.bottomLeft();
    }
    return rect.center();
}

int onTheWay(int from, int to, int frame)
{
    const qint64 way = (qint64(to) - from) * frame;
    return int(double(way) / 100.0 + from);
}

QRect rectAt(int frame, const QPoint &start, const QPoint &target, const QImage &image)
{
    const double s = (s_lastFrame - frame) / 100.0;
    const double ratio = image.devicePixelRatioF();
    return QRect(onTheWay(start.x(), target.x(), frame), onTheWay(start.y(), target.y(), frame),
                 int(image.width() / ratio * s), int(image.height() / ratio * s));
}

/// In plain doubles the compiler makes several pixels at a time of this loop, and the products are
/// those of the rule to the last bit.
void fadeLine(const QRgb *source, QRgb *faded, int width, double factor)
{
    for (int x = 0; x < width; ++x) {
        const int alpha = int(int(source[x] >> 24) * factor);
        faded[x] = (source[x] & 0x00ffffffU) | (QRgb(alpha) << 24);
    }
}

/// Keeps new children from an object, which has them nevertheless.
class Blindfold : public QObject
{
public:
    explicit Blindfold(QObject *object) { object->installEventFilter(this); }
    bool eventFilter(QObject *, QEvent *event) override
    {
        return event->type() == QEvent::ChildAdded;
    }
};

/// A splitter makes a pane of each child that it gets to know.
bool isSplitter(const QWidget *parent)
{
    return qobject_cast<const QSplitter *>(parent);
}

} // namespace

BVStackAnimationWidget::BVStackAnimationWidget(QWidget *parent)
    : QWidget(isSplitter(parent) ? nullptr : parent)
    , m_timeLine(s_duration)
    , m_inputBlock(std::make_unique<BVInputBlock>())
{
    setVisible(false);
    if (isSplitter(parent)) {
        const Blindfold blindfold(parent);
        setParent(parent);
    }
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    m_timeLine.setFrameRange(0, s_lastFrame);
    m_timeLine.setEasingCurve(QEasingCurve::InCurve);
    m_timeLine.setUpdateInterval(s_updateInterval);
    m_atOnce.setSingleShot(true);
    connect(&m_timeLine, &QTimeLine::frameChanged, this, &BVStackAnimationWidget::updateRect);
    connect(&m_timeLine, &QTimeLine::finished, this, &BVStackAnimationWidget::endAnimation);
    connect(&m_atOnce, &QTimer::timeout, this, &BVStackAnimationWidget::endAnimation);
}

BVStackAnimationWidget::~BVStackAnimationWidget() = default;

void BVStackAnimationWidget::setDuration(int milliseconds)
{
    if (milliseconds > 0)
        m_timeLine.setDuration(milliseconds);
}

QWidget *BVStackAnimationWidget::endWidget() const
{
    return m_endWidget ? m_endWidget.data() : parentWidget();
}

void BVStackAnimationWidget::setEndWidget(QWidget *widget, AnimationTargetPosition position)
{
    if (!widget || !parentWidget() || position < Center || position > BottomLeft)
        return;
    m_endWidget = widget;
    m_targetPosition = position;
}

QPoint BVStackAnimationWidget::mapTargetPosition() const
{
    if (m_targetPoint != QPoint(-1, -1))
        return m_targetPoint;
    const QWidget *end = endWidget();
    if (!end || !parentWidget())
        return QPoint(0, 0);
    const QPoint global = end->mapToGlobal(pointOf(end->geometry(), m_targetPosition));
    return parentWidget()->mapFromGlobal(global);
}

bool BVStackAnimationWidget::isInFlight() const
{
    return m_timeLine.state() == QTimeLine::Running || m_atOnce.isActive();
}

bool BVStackAnimationWidget::isAnimated() const
{
    // Elsewhere most systems report no effects at all, whatever the user has chosen.
    static const bool s_systemReportsEffects =
        QGuiApplication::platformName() == QLatin1String("windows");
    if (s_systemReportsEffects && !QApplication::isEffectEnabled(Qt::UI_General))
        return false;
    return parentWidget() && parentWidget()->isVisible() &&
           style()->styleHint(QStyle::SH_Widget_Animate, nullptr, this) != 0 &&
           style()->styleHint(QStyle::SH_Widget_Animation_Duration, nullptr, this) > 0;
}

void BVStackAnimationWidget::startAnimation(QImage *image, QPoint startGlobal, QAction *action)
{
    if (!image || image->isNull())
        return;
    reportLater(leaveFlight());
    // The copy is deep: the pixels may belong to somebody else.
    m_sourceImage = image->copy().convertToFormat(QImage::Format_ARGB32);
    m_action = action;
    m_flightEnd = endWidget();
    m_start = parentWidget() ? parentWidget()->mapFromGlobal(startGlobal) : startGlobal;
    updateRect(0);
    if (isAnimated())
        takeOff();
    else
        m_atOnce.start(0);
}

void BVStackAnimationWidget::takeOff()
{
    m_inputBlock->reset();
    QCoreApplication::instance()->installEventFilter(this);
    raise();
    show();
    m_timeLine.start();
}

void BVStackAnimationWidget::endAnimation()
{
    if (QAction *action = leaveFlight())
        Q_EMIT finished(action); // last: the receiver may delete this widget
}

void BVStackAnimationWidget::reportLater(QAction *action)
{
    if (!action)
        return;
    const auto report = [this, guarded = QPointer<QAction>(action)] {
        if (guarded)
            Q_EMIT finished(guarded);
    };
    QMetaObject::invokeMethod(this, report, Qt::QueuedConnection);
}

/// Puts all back as it is outside of a flight and returns the action to be reported.
QAction *BVStackAnimationWidget::leaveFlight()
{
    m_timeLine.stop();
    m_atOnce.stop();
    hide();
    QCoreApplication::instance()->removeEventFilter(this);
    m_sourceImage = QImage();
    m_currentImage = QImage();
    m_currentRect = QRect();
    QAction *action = m_action;
    m_action = nullptr;
    return action;
}

void BVStackAnimationWidget::updateRect(int frame)
{
    if (frame < 0 || frame > s_lastFrame || m_sourceImage.isNull())
        return;
    if (frame == 0 || m_flightEnd)
        m_target = mapTargetPosition();
    update(m_currentRect.translated(-pos()));
    m_currentRect = rectAt(frame, m_start, m_target, m_sourceImage);
    const double s = (s_lastFrame - frame) / 100.0;
    if (s > s_leastFade)
        fade(m_sourceImage, s, &m_currentImage);
    update(m_currentRect.translated(-pos()));
}

void BVStackAnimationWidget::fade(const QImage &source, double factor, QImage *faded)
{
    if (!faded || !(factor >= 0.0 && factor <= 1.0)) // NaN fails both comparisons
        return;
    const QImage pixels = source.convertToFormat(QImage::Format_ARGB32);
    if (faded->size() != pixels.size() || faded->format() != QImage::Format_ARGB32)
        *faded = QImage(pixels.size(), QImage::Format_ARGB32);
    faded->setDevicePixelRatio(pixels.devicePixelRatioF());
    for (int y = 0; y < faded->height(); ++y) {
        fadeLine(reinterpret_cast<const QRgb *>(pixels.constScanLine(y)),
                 reinterpret_cast<QRgb *>(faded->scanLine(y)), pixels.width(), factor);
    }
}

bool BVStackAnimationWidget::eventFilter(QObject *, QEvent *event)
{
    return m_inputBlock->blocks(event);
}

/// The parent is hidden. Not at once, since the receiver may delete either.
void BVStackAnimationWidget::hideEvent(QHideEvent *event)
{
    QWidget::hideEvent(event);
    if (event->spontaneous() || m_timeLine.state() != QTimeLine::Running)
        return;
    m_timeLine.stop();
    QCoreApplication::instance()->removeEventFilter(this);
    m_atOnce.start(0);
}

void BVStackAnimationWidget::paintEvent(QPaintEvent *)
{
    if (m_timeLine.state() != QTimeLine::Running || m_currentRect.isEmpty())
        return;
    // Scaled as an image, since a painter leaves out pixels when it makes small ones.
    const QSize pixels = (QSizeF(m_currentRect.size()) * devicePixelRatioF()).toSize();
    const QImage scaled =
        m_currentImage.scaled(pixels, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    QPainter painter(this);
    painter.setRenderHint(QPainter::SmoothPixmapTransform); // for fractions of a pixel
    painter.drawImage(m_currentRect.translated(-pos()), scaled);
}
