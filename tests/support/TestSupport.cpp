// SPDX-License-Identifier: MIT
#include "TestSupport.h"

namespace {

QtMessageHandler s_testHandler = nullptr;

void withoutOffscreenWarnings(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
    if (!text.startsWith(QLatin1String("This plugin does not support")))
        s_testHandler(type, context, text);
}

} // namespace

EventCounter::EventCounter(QObject *watched, QEvent::Type type)
    : m_type(type)
{
    watched->installEventFilter(this);
}

bool EventCounter::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == m_type)
        ++m_count;
    return QObject::eventFilter(watched, event);
}

void muteOffscreenWarnings()
{
    if (!s_testHandler)
        s_testHandler = qInstallMessageHandler(withoutOffscreenWarnings);
}
