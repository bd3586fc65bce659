// SPDX-License-Identifier: MIT
#pragma once

#include <QPoint>
#include <QString>

class QStringList;
class QWidget;

/// The hands of a window test: keys and clicks that reach the application through the X server and
/// its window manager. Every function keeps the event loop turning and returns whether it
/// succeeded; what the input leads to arrives later, so compare with QTRY_COMPARE.
namespace XdoTool {

/// Runs the tool to its end. False, with a warning, when it cannot be started, fails, hangs or has
/// anything to say.
bool run(const QStringList &arguments);

/// Shows the window and waits until the window manager has given it the keyboard.
bool showActive(QWidget *window);

/// Types the text, a key press a character, into whatever has the keyboard.
bool typeText(const QString &text);

/// Presses and releases a key under its X name, also with modifiers: "Return", "ctrl+a".
bool pressKey(const QString &key);

/// Moves the pointer to a position in the widget's coordinates and clicks; 1 is the left button.
bool clickAt(const QWidget *widget, const QPoint &position, int button = 1);

/// Clicks with the left button in the widget's middle.
bool click(const QWidget *widget);

} // namespace XdoTool
