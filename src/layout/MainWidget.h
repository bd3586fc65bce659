// SPDX-License-Identifier: MIT
#pragma once

#include "BVWidgetsExport.h"

#include <QPointer>
#include <QWidget>

#include <memory>

class BVPanelShadow;
class QPropertyAnimation;

/// The container in which a panel floats over its main window.
///
/// A child of the window, not a window itself: it stays above its siblings and inside the room that
/// the window has for panels, also when the window shrinks; it takes its size again when that
/// grows. Its frame and shadow lie around it, so that its content fills its geometry. When its
/// content goes, it goes too.
class BVWIDGETS_EXPORT MainWidget : public QWidget
{
    Q_OBJECT

public:
    /// Makes a hidden container over @p window, which owns it and must not be null.
    explicit MainWidget(QWidget *window);
    ~MainWidget() override;

    /// Takes @p content over and lets it fill the container.
    void setContent(QWidget *content);
    /// Null when there is none, or when it is gone.
    QWidget *content() const;

    /// Moves the container from where it is to @p rect in the window's coordinates, in
    /// @p durationMs milliseconds. At once while it is hidden, with a duration of 0 or less and
    /// when the style wants no animations. @p returning comes back with sigAnimationFinished().
    void setGeometryWithAnimation(const QRect &rect, int durationMs, bool returning);
    /// The place that the content has come from has moved: each edge moves as that of the place.
    void followPlace(const QRect &from, const QRect &to);
    /// Where the animation ends; the geometry without one.
    QRect targetGeometry() const;
    bool isAnimating() const;
    /// Whether an animation is running that was asked for as returning.
    bool isReturning() const;
    /// Ends the animation where it leads to, without telling that it has arrived.
    void skipAnimation();

    /// The room that the window has for panels, in its coordinates.
    QRect availableArea() const;

Q_SIGNALS:
    /// The geometry asked for has been reached; @p returning as it was given.
    void sigAnimationFinished(bool returning);

public Q_SLOTS:
    /// Ends the animation where it is and tells that it has arrived.
    void onAnimationFinished();

protected:
    bool event(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void keepInWindow();
    void moveTo(const QRect &rect, int durationMs, bool returning);
    void stayAbove(const QObject *sibling);
    void leaveWith(const QObject *child);

    QPropertyAnimation *m_animation; // child of this
    std::unique_ptr<BVPanelShadow> m_shadow;
    QPointer<QWidget> m_content;
    QRect m_wanted;                           // where there is room for it; null until it was given
    const QObject *m_contentObject = nullptr; // only compared
    bool m_returning = false;
};
