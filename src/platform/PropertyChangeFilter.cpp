// SPDX-License-Identifier: MIT
#include "platform/PropertyChangeFilter.h"

#include "platform/RepolishOnShow_p.h"
#include "platform/RepolishQueue_p.h"

#include <QCoreApplication>
#include <QDynamicPropertyChangeEvent>
#include <QPointer>
#include <QStyle>
#include <QVector>
#include <QWidget>

namespace {

/// Appends everything inside @p widget, outer widgets before inner ones, so that an inherited font
/// or palette settles once. Hidden windows wait until they are shown.
void appendChildren(const QWidget *widget, QVector<QPointer<QWidget>> &widgets)
{
    const QObjectList &children = widget->children();
    for (QObject *child : children) {
        if (!child || !child->isWidgetType()) // null: a sibling that its parent has deleted
            continue;
        auto *inner = static_cast<QWidget *>(child);
        if (inner->isWindow() && !inner->isVisible()) {
            RepolishOnShow::ask(inner);
            continue;
        }
        widgets.append(inner);
        appendChildren(inner, widgets);
    }
}

void polishAnew(QWidget *widget)
{
    QStyle *style = widget->style();
    // The style of a style sheet forgets what it knew of a widget when it polishes it again, as it
    // does for a new sheet. Unpolished before, it would match all its rules a second time.
    if (!widget->testAttribute(Qt::WA_StyleSheet))
        style->unpolish(widget);
    style->polish(widget);
    // Makes the widget lay itself out and paint anew, as a new style sheet would.
    QEvent event(QEvent::StyleChange);
    QCoreApplication::sendEvent(widget, &event);
}

} // namespace

void PropertyChangeFilter::repolish(QWidget *widget, bool children)
{
    if (!widget)
        return;
    QVector<QPointer<QWidget>> widgets{widget};
    if (children)
        appendChildren(widget, widgets);
    for (const QPointer<QWidget> &each : widgets) { // some may go while others are told
        if (!each)
            continue;
        RepolishQueue::instance()->forget(each, children);
        polishAnew(each);
    }
}

void PropertyChangeFilter::repolishPost(QWidget *widget, bool children)
{
    if (widget)
        RepolishQueue::instance()->add(widget, children);
}

PropertyChangeFilter *PropertyChangeFilter::installFilter(QWidget *widget,
                                                          const QList<QByteArray> &properties,
                                                          bool children)
{
    return widget ? new PropertyChangeFilter(widget, properties, children) : nullptr;
}

bool PropertyChangeFilter::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == parent() && event->type() == QEvent::DynamicPropertyChange) {
        const auto *change = static_cast<QDynamicPropertyChangeEvent *>(event);
        if (m_properties.contains(change->propertyName()))
            repolishPost(static_cast<QWidget *>(watched), m_children);
    }
    return QObject::eventFilter(watched, event);
}

PropertyChangeFilter::PropertyChangeFilter(QWidget *widget, const QList<QByteArray> &properties,
                                           bool children)
    : QObject(widget)
    , m_properties(properties)
    , m_children(children)
{
    widget->installEventFilter(this);
}
