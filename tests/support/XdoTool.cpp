// SPDX-License-Identifier: MIT
#include "XdoTool.h"

#include <QApplication>
#include <QDeadlineTimer>
#include <QMenu>
#include <QPointer>
#include <QProcess>
#include <QTest>
#include <QTimer>
#include <QWidget>

namespace {

constexpr int s_patience = 30000; // ms, for a machine under load
constexpr int s_movesOfAWay = 12;

/// The tool's command that moves the pointer.
QStringList moveTo(const QWidget *widget, const QPointF &position)
{
    // The X server counts device pixels; the screen begins at its origin.
    const QPointF target = (widget->mapToGlobal(QPoint()) + position) * widget->devicePixelRatioF();
    return {QStringLiteral("mousemove"), QString::number(qRound(target.x())), QString::number(qRound(target.y()))};
}

/// The commands that draw the pointer from one position to the other at the pace of a hand: moves
/// without a pause between them would reach the application as a single one.
QStringList moveAlong(const QWidget *widget, const QPointF &from, const QPointF &to)
{
    QStringList commands;
    for (int move = 1; move <= s_movesOfAWay; ++move)
        commands += moveTo(widget, from + (to - from) * move / s_movesOfAWay) + QStringList{QStringLiteral("sleep"), QStringLiteral("0.01")};
    return commands;
}

} // namespace

bool XdoTool::run(const QStringList &arguments)
{
    QProcess tool;
    tool.setProcessChannelMode(QProcess::MergedChannels);
    tool.start(QStringLiteral("xdotool"), arguments);
    const bool ended = QTest::qWaitFor([&tool] { return tool.state() == QProcess::NotRunning; }, s_patience);
    // An unknown key is skipped with a message only, so any output counts as failure.
    const QByteArray output = tool.readAll();
    if (ended && tool.error() == QProcess::UnknownError && tool.exitCode() == 0 && output.isEmpty())
        return true;
    qWarning().noquote() << "xdotool" << arguments << tool.errorString() << output;
    return false;
}

bool XdoTool::showActive(QWidget *window)
{
    window->show();
    window->activateWindow();
    return QTest::qWaitForWindowActive(window, s_patience);
}

bool XdoTool::typeText(const QString &text)
{
    return run({QStringLiteral("type"), QStringLiteral("--clearmodifiers"), QStringLiteral("--"), text});
}

bool XdoTool::pressKey(const QString &key)
{
    return run({QStringLiteral("key"), QStringLiteral("--"), key}); // clearing modifiers would let go of a button, too
}

bool XdoTool::clickAt(const QWidget *widget, const QPoint &position, int button)
{
    return run(moveTo(widget, position) + QStringList{QStringLiteral("click"), QString::number(button)});
}

bool XdoTool::click(const QWidget *widget)
{
    return clickAt(widget, widget->rect().center());
}

bool XdoTool::movePointer(const QWidget *widget, const QPoint &position)
{
    return run(moveTo(widget, position));
}

bool XdoTool::drag(const QWidget *widget, const QVector<QPoint> &path, const std::function<bool()> &beforeRelease, int button)
{
    const QString number = QString::number(button);
    QStringList commands = moveTo(widget, path.value(0)) + QStringList{QStringLiteral("mousedown"), number};
    for (int i = 1; i < path.size(); ++i)
        commands += moveAlong(widget, path.at(i - 1), path.at(i));
    const bool done = run(commands) && (!beforeRelease || beforeRelease());
    return run({QStringLiteral("mouseup"), number}) && done;
}

bool XdoTool::dragNatively(const QWidget *window, const QPoint &from, const QPoint &to, const std::function<bool()> &step)
{
    const QDeadlineTimer patience(s_patience);
    bool isOver = false;
    bool succeeded = false;
    QTimer poll;
    poll.callOnTimeout([&] {
        if (isOver || QCursor::pos() != window->mapToGlobal(to))
            return;
        isOver = true; // the step may turn the event loop
        succeeded = step();
        isOver = succeeded || patience.hasExpired();
        if (isOver)
            succeeded = run({QStringLiteral("mouseup"), QStringLiteral("1")}) && succeeded;
    });
    poll.start(10);
    return drag(window, {from, from + QPoint(0, 12), to}, [&] { return QTest::qWaitFor([&] { return isOver; }, s_patience); }) && succeeded;
}

bool XdoTool::inMenu(const std::function<bool()> &open, const std::function<bool(QMenu *)> &step)
{
    bool isOver = false;
    bool succeeded = false;
    QTimer poll;
    poll.callOnTimeout([&] {
        const QPointer<QMenu> menu(qobject_cast<QMenu *>(QApplication::activePopupWidget()));
        if (isOver || !menu || !QTest::qWaitForWindowExposed(menu))
            return;
        isOver = true;
        succeeded = step(menu) && QTest::qWaitFor([&menu] { return !menu || !menu->isVisible(); }, s_patience);
        if (menu)
            menu->close();
    });
    poll.start(10);
    return open() && QTest::qWaitFor([&] { return isOver; }, s_patience) && succeeded;
}

bool XdoTool::scroll(const QWidget *widget, const QPoint &position, int notches)
{
    return run(moveTo(widget, position) + QStringList{QStringLiteral("click"), QStringLiteral("--delay"), QStringLiteral("10"),
                                                      QStringLiteral("--repeat"), QString::number(qAbs(notches)),
                                                      notches > 0 ? QStringLiteral("4") : QStringLiteral("5")});
}

bool XdoTool::scroll(const QWidget *widget, int notches)
{
    return scroll(widget, widget->rect().center(), notches);
}

XdoTool::HeldKey::HeldKey(const QString &key)
    : m_key(key)
    , m_isHeld(key.isEmpty() || run({QStringLiteral("keydown"), key}))
{
}

XdoTool::HeldKey::~HeldKey()
{
    if (!m_key.isEmpty())
        run({QStringLiteral("keyup"), m_key});
}
