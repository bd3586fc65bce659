// SPDX-License-Identifier: MIT
#pragma once

#include <QApplication>
#include <QElapsedTimer>
#include <QEvent>
#include <QPixmap>
#include <QString>
#include <Qt>

class QLineEdit;
class QPoint;
class QWidget;

/// What the tour does with mouse and keyboard, and how it takes pictures.
namespace TourHands {

/// Lets everything that is due happen.
void settle();
/// Waits for the window to become the active one; not every window system makes it that.
void activate(QWidget *window);
/// Waits for a condition to hold, for a second at most; says whether it does.
template <typename Condition>
bool becomes(Condition condition)
{
    constexpr int longest = 1000; // ms
    QElapsedTimer timer;
    timer.start();
    while (!condition() && timer.elapsed() < longest)
        QApplication::processEvents(QEventLoop::AllEvents, 10);
    return condition();
}
/// Waits until the clear button of an edit has faded in or out.
void waitForClearButton(QLineEdit *edit);
void sendKey(QWidget *widget, int key, const QString &text = QString(),
             Qt::KeyboardModifiers modifiers = Qt::NoModifier);
void sendMouse(QWidget *widget, QEvent::Type type, const QPoint &position);
void turnWheelOver(QWidget *widget, int notches);
/// The widget on a screen of twice the resolution.
QPixmap atTwiceTheResolution(QWidget *widget);
/// The window with the dialog in its middle, as a person sees them.
QPixmap withDialog(QWidget *window, QWidget *dialog);
/// Opens the context menu at a position in the widget; gives the window with the open menu, which
/// is then closed. Null if none opens.
QPixmap withContextMenu(QWidget *window, QWidget *widget, const QPoint &position);
/// The window with the tool tip of one of its widgets below that widget.
QPixmap withToolTip(QWidget *window, QWidget *widget);

} // namespace TourHands
