// SPDX-License-Identifier: MIT
#include "XdoTool.h"

#include <QProcess>
#include <QTest>
#include <QWidget>

namespace {

constexpr int s_patience = 30000; // ms, for a machine under load

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
    return run({QStringLiteral("key"), QStringLiteral("--clearmodifiers"), QStringLiteral("--"), key});
}

bool XdoTool::clickAt(const QWidget *widget, const QPoint &position, int button)
{
    // The X server counts device pixels; the screen begins at its origin.
    const QPointF target = QPointF(widget->mapToGlobal(position)) * widget->devicePixelRatioF();
    return run({QStringLiteral("mousemove"), QString::number(qRound(target.x())), QString::number(qRound(target.y())), QStringLiteral("click"),
                QString::number(button)});
}

bool XdoTool::click(const QWidget *widget)
{
    return clickAt(widget, widget->rect().center());
}
