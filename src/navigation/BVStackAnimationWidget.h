// SPDX-License-Identifier: MIT
#pragma once

#include "BVWidgetsExport.h"

#include <QImage>
#include <QPointer>
#include <QTimeLine>
#include <QTimer>
#include <QWidget>

#include <memory>

class BVInputBlock;
class QAction;

/// Lets an image fly over its parent to a target, where it shrinks and fades away, and then tells
/// that an action is due.
///
/// Give the widget the rectangle of its parent before each flight; outside of a flight it is
/// hidden. It lies over the other children, also in a splitter, which has no pane for it. The
/// target is a fixed point of the parent or a corner of an end widget, which may move
/// meanwhile. The image keeps its size on the screen whatever its device pixel ratio, and is drawn
/// smoothly.
///
/// **Input.** While the image is in the air, the mouse, the keyboard and other input devices are
/// without effect in the whole application. Buttons and keys that are already down can be released,
/// windows be closed. Input returns with the end of the flight or of this widget.
///
/// **The end.** finished() is emitted once for each flight with an action, by endAnimation() and
/// never from within startAnimation(): a flight that makes way for a new one is reported when
/// control is back in the event loop. If the action is deleted in flight, there is nothing left to
/// report; if the end widget is, the image flies on to where it was.
///
/// **No animations.** Where the style or the system wants none (a widget animation duration of 0,
/// on Windows also the user-interface effects turned off), or without a visible parent, nothing is
/// shown or blocked, and finished() follows as soon as control is back in the event loop. A flight
/// whose parent is hidden ends as soon.
class BVWIDGETS_EXPORT BVStackAnimationWidget : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(int duration READ duration WRITE setDuration)
    Q_PROPERTY(QPoint targetPoint READ targetPoint WRITE setTargetPoint)

public:
    /// The point of the end widget that the image flies to.
    enum AnimationTargetPosition {
        Center = 0,
        TopRight = 1,
        TopLeft = 2,
        BottomRight = 3,
        BottomLeft = 4,
    };
    Q_ENUM(AnimationTargetPosition)

    explicit BVStackAnimationWidget(QWidget *parent = nullptr);
    ~BVStackAnimationWidget() override;

    /// The length of a flight in milliseconds, 500 at first. Numbers below 1 are ignored.
    int duration() const { return m_timeLine.duration(); }
    void setDuration(int milliseconds);

    /// A point of the parent to fly to, whatever the end widget; (-1, -1), as at first, for none.
    QPoint targetPoint() const { return m_targetPoint; }
    void setTargetPoint(const QPoint &point) { m_targetPoint = point; }

    /// The parent, unless another end widget was set and lives.
    QWidget *endWidget() const;
    AnimationTargetPosition targetPosition() const { return m_targetPosition; }
    /// Lets flights end at a point of @p widget, which is not owned. Ignored for null, for an
    /// unknown position and while this widget has no parent.
    void setEndWidget(QWidget *widget, AnimationTargetPosition position = TopRight);

    /// Where flights end at present, in the parent's coordinates: the fixed point, or that of the
    /// end widget. The end widget's geometry, which is in the coordinates of its own parent, is
    /// mapped as if it were in the end widget's, so its offset there counts twice. (0, 0) if there
    /// is no end widget at all.
    QPoint mapTargetPosition() const;

    /// Whether a flight was started that has not ended.
    bool isInFlight() const;
    /// Where the image is, in the parent's coordinates. Empty at the end and outside of a flight.
    QRect currentRect() const { return m_currentRect; }
    /// The image as it is drawn, faded but not scaled: Format_ARGB32. Null outside of a flight.
    QImage currentImage() const { return m_currentImage; }

    /// Writes @p source to @p faded with each pixel's alpha multiplied by @p factor and cut off to
    /// an integer. The colours of the pixels, not multiplied by alpha, stay as they are. @p faded
    /// becomes an image in Format_ARGB32 with the size and device pixel ratio of the source; it may
    /// be the source. Null and factors outside of [0, 1] are ignored.
    static void fade(const QImage &source, double factor, QImage *faded);

public Q_SLOTS:
    /// Starts a flight of a copy of @p image, whose top left corner is at @p startGlobal on the
    /// screen at first. The action, not owned, may be null. Without an image, or for one without
    /// pixels, nothing happens; else a flight in progress ends.
    void startAnimation(QImage *image, QPoint startGlobal, QAction *action);
    /// Ends the flight, also before its time, and emits finished().
    void endAnimation();
    /// Moves, scales and fades the image for a frame in [0, 100]: at frame f it is scaled by
    /// s = (100 - f) / 100 and, as long as s is above 0.2, its alpha is multiplied by s. Other
    /// frames are ignored, as are all outside of a flight.
    void updateRect(int frame);

Q_SIGNALS:
    /// The flight that was started with @p action has ended.
    void finished(QAction *action);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    bool isAnimated() const;
    void takeOff();
    void reportLater(QAction *action);
    QAction *leaveFlight();

    QTimeLine m_timeLine;
    QTimer m_atOnce; // ends a flight without animation
    std::unique_ptr<BVInputBlock> m_inputBlock;
    QPoint m_targetPoint{-1, -1};
    QPointer<QWidget> m_endWidget; // not owned; null for the parent
    AnimationTargetPosition m_targetPosition = TopRight;

    // The flight
    QImage m_sourceImage;
    QImage m_currentImage;
    QPointer<QAction> m_action; // not owned
    QPointer<QWidget> m_flightEnd;
    QPoint m_start; // in the parent's coordinates, as the next two
    QPoint m_target;
    QRect m_currentRect;
};
