// SPDX-License-Identifier: MIT
#include "TourHands.h"

#include <QAbstractButton>
#include <QApplication>
#include <QContextMenuEvent>
#include <QElapsedTimer>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPainter>
#include <QTimer>
#include <QToolTip>
#include <QWheelEvent>

namespace {

constexpr int s_windowTime = 2000; // ms that a window may take to become active
constexpr int s_fadeTime = 160;    // ms
constexpr int s_toolTipGap = 4;    // px

} // namespace

namespace TourHands {

void settle()
{
    // Twice: what is posted while posted events are handled waits for the next turn.
    QApplication::processEvents();
    QApplication::processEvents();
    // No event loop runs here that would delete what is no longer needed.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void rest()
{
    QElapsedTimer timer;
    timer.start();
    while (timer.elapsed() < s_fadeTime)
        QApplication::processEvents(QEventLoop::AllEvents, 10);
    settle();
}

void activate(QWidget *window)
{
    window->activateWindow();
    QElapsedTimer timer;
    timer.start();
    while (!window->isActiveWindow() && timer.elapsed() < s_windowTime)
        QApplication::processEvents(QEventLoop::AllEvents, 20);
}

void waitForClearButton(QLineEdit *edit)
{
    const auto *button = edit->findChild<QAbstractButton *>();
    const double shown = edit->text().isEmpty() ? 0.0 : 1.0;
    QElapsedTimer timer;
    timer.start();
    while (button && button->property("opacity").toDouble() != shown &&
           timer.elapsed() < s_windowTime)
        QApplication::processEvents(QEventLoop::AllEvents, 20);
    settle(); // the animation goes
}

void sendKey(QWidget *widget, int key, const QString &text, Qt::KeyboardModifiers modifiers)
{
    QKeyEvent press(QEvent::KeyPress, key, modifiers, text);
    QApplication::sendEvent(widget, &press);
    QKeyEvent release(QEvent::KeyRelease, key, modifiers, text);
    QApplication::sendEvent(widget, &release);
}

void sendMouse(QWidget *widget, QEvent::Type type, const QPoint &position)
{
    const Qt::MouseButton button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
    const Qt::MouseButtons held =
        type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton;
    QMouseEvent event(type, position, widget->mapToGlobal(position), button, held, Qt::NoModifier);
    QApplication::sendEvent(widget, &event);
}

void turnWheelOver(QWidget *widget, int notches)
{
    const QPoint middle = widget->rect().center();
    QWheelEvent event(middle, widget->mapToGlobal(middle), QPoint(),
                      QPoint(0, notches * QWheelEvent::DefaultDeltasPerStep), Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(widget, &event);
}

QPixmap atTwiceTheResolution(QWidget *widget)
{
    QPixmap picture(2 * widget->size());
    picture.setDevicePixelRatio(2.0);
    picture.fill(Qt::transparent);
    widget->render(&picture);
    return picture;
}

QPixmap withDialog(QWidget *window, QWidget *dialog)
{
    QPixmap picture = window->grab();
    QPainter painter(&picture);
    painter.fillRect(window->rect(), QColor(0, 0, 0, 70));
    const QRect frame(window->rect().center() - dialog->rect().center(), dialog->size());
    painter.fillRect(frame.adjusted(-1, -1, 1, 1), QColor(55, 55, 55));
    painter.drawPixmap(frame.topLeft(), dialog->grab());
    return picture;
}

QPixmap withToolTip(QWidget *window, QWidget *widget)
{
    QHelpEvent event(QEvent::ToolTip, QPoint(), widget->mapToGlobal(QPoint()));
    QApplication::sendEvent(widget, &event);
    settle();
    QPixmap picture = window->grab();
    const QWidgetList topLevels = QApplication::topLevelWidgets();
    for (QWidget *tip : topLevels) {
        if (!tip->inherits("QTipLabel") || !tip->isVisible())
            continue;
        QPoint position = widget->mapTo(window, QPoint(0, widget->height() + s_toolTipGap));
        position.setX(qMin(position.x(), window->width() - tip->width() - s_toolTipGap));
        QPainter painter(&picture);
        painter.drawPixmap(position, tip->grab());
    }
    QToolTip::hideText();
    return picture;
}

QPixmap withPopup(QWidget *window, const std::function<void()> &open)
{
    QPixmap picture;
    QTimer::singleShot(0, window, [window, &picture] { // while the menu waits for an answer
        QWidget *menu = QApplication::activePopupWidget();
        if (!menu)
            return;
        settle();
        picture = window->grab();
        QPainter painter(&picture);
        painter.drawPixmap(window->mapFromGlobal(menu->pos()), menu->grab());
        menu->close();
    });
    open();
    settle();
    return picture;
}

QPixmap withContextMenu(QWidget *window, QWidget *widget, const QPoint &position)
{
    return withPopup(window, [widget, position] {
        QContextMenuEvent event(QContextMenuEvent::Mouse, position, widget->mapToGlobal(position));
        QApplication::sendEvent(widget, &event);
    });
}

} // namespace TourHands
