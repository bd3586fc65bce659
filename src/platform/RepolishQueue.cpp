// SPDX-License-Identifier: MIT
#include "platform/RepolishQueue_p.h"

#include "platform/PropertyChangeFilter.h"

#include <QCoreApplication>
#include <QSet>

#include <utility>

namespace {

/// Whether a widget around @p widget is among @p outer.
bool isInside(const QWidget *widget, const QSet<const QWidget *> &outer)
{
    for (widget = widget->parentWidget(); widget; widget = widget->parentWidget()) {
        if (outer.contains(widget))
            return true;
    }
    return false;
}

} // namespace

RepolishQueue *RepolishQueue::instance()
{
    static QPointer<RepolishQueue> s_instance;
    if (!s_instance)
        s_instance = new RepolishQueue(QCoreApplication::instance());
    return s_instance;
}

RepolishQueue::RepolishQueue(QObject *parent)
    : QObject(parent)
{
}

void RepolishQueue::add(QWidget *widget, bool children)
{
    // A posted event comes before the painting of the same turn, which a timer would not.
    if (m_requests.empty())
        QMetaObject::invokeMethod(this, "run", Qt::QueuedConnection);
    const auto it = m_index.constFind(widget);
    if (it == m_index.constEnd()) {
        m_index.insert(widget, m_requests.size());
        m_requests.push_back({widget, children});
        return;
    }
    Request &request = m_requests[it.value()];
    // The address may be that of a former widget, or of one that has been taken out.
    request.children = children || (request.widget && request.children);
    request.widget = widget;
}

void RepolishQueue::forget(QWidget *widget, bool children)
{
    const auto it = m_index.constFind(widget);
    if (it != m_index.constEnd() && (children || !m_requests[it.value()].children))
        m_requests[it.value()].widget.clear();
}

void RepolishQueue::run()
{
    // What is asked for from here on waits for the next turn.
    const std::vector<Request> requests = std::exchange(m_requests, {});
    m_index.clear();
    QSet<const QWidget *> deep;
    for (const Request &request : requests) {
        if (request.widget && request.children)
            deep.insert(request.widget);
    }
    for (const Request &request : requests) {
        if (request.widget && !isInside(request.widget, deep))
            PropertyChangeFilter::repolish(request.widget, request.children);
    }
}
