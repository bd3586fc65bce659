// SPDX-License-Identifier: MIT
#pragma once

#include <QPoint>
#include <QString>
#include <QVector>

#include <functional>

class QMenu;
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

/// Moves the pointer to a position in the widget's coordinates.
bool movePointer(const QWidget *widget, const QPoint &position);

/// Presses a button at the first of the positions in the widget's coordinates and draws the pointer
/// along the others, each way in many small moves that arrive one by one. Then it does what is to
/// be done while the button is down, and lets go of the button, whatever has happened before.
bool drag(const QWidget *widget, const QVector<QPoint> &path, const std::function<bool()> &beforeRelease = {}, int button = 1);

/// Drags from one point of the window to the other in an application that runs an event loop of its
/// own meanwhile, which ends with the drag. There, while the button is down, the step is tried until
/// it succeeds.
bool dragNatively(const QWidget *window, const QPoint &from, const QPoint &to, const std::function<bool()> &step);

/// Does what opens a menu and then, in the menu's own event loop, the step.
bool inMenu(const std::function<bool()> &open, const std::function<bool(QMenu *)> &step);

/// Turns the wheel over a position in the widget's coordinates, away from the user for positive
/// notches.
bool scroll(const QWidget *widget, const QPoint &position, int notches);

/// Turns the wheel over the widget's middle.
bool scroll(const QWidget *widget, int notches);

/// Holds a key down as long as it lives, for input with the mouse; keys with modifiers are typed
/// by pressKey().
class HeldKey
{
public:
    /// Presses the key of the X name; an empty one stands for no key.
    explicit HeldKey(const QString &key);
    ~HeldKey();
    HeldKey(const HeldKey &) = delete;
    HeldKey &operator=(const HeldKey &) = delete;

    /// Whether the key has been pressed.
    bool isHeld() const { return m_isHeld; }

private:
    QString m_key;
    bool m_isHeld;
};

} // namespace XdoTool
