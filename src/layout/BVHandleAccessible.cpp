// SPDX-License-Identifier: MIT
#include "layout/BVHandleAccessible_p.h"

#include "layout/BVHandleStep_p.h"
#include "layout/BVPanelGeometry_p.h"
#include "layout/BVResizableWidgetTextHandle.h"

namespace {

QAccessibleInterface *handleInterface(const QString & /*key*/, QObject *object)
{
    auto *handle = qobject_cast<BVResizableWidgetHandle *>(object);
    return handle ? new BVHandleAccessible(handle) : nullptr;
}

bool dragsWidth(const BVResizableWidgetHandle *handle)
{
    return BVPanelGeometry::handlePlace(handle->position()).dragsWidth;
}

bool dragsHeight(const BVResizableWidgetHandle *handle)
{
    return BVPanelGeometry::handlePlace(handle->position()).dragsHeight;
}

QString nameOf(const BVResizableWidgetHandle *handle)
{
    if (dragsWidth(handle) && dragsHeight(handle))
        return BVResizableWidgetHandle::tr("Change size");
    const auto *text = qobject_cast<const BVResizableWidgetTextHandle *>(handle);
    if (text && !text->shownText().isEmpty())
        return text->shownText();
    return dragsWidth(handle) ? BVResizableWidgetHandle::tr("Change width")
                              : BVResizableWidgetHandle::tr("Change height");
}

QString valueOf(const BVResizableWidgetHandle *handle, const QSize &size)
{
    if (dragsWidth(handle) && dragsHeight(handle))
        return BVResizableWidgetHandle::tr("%1 by %2 pixels").arg(size.width()).arg(size.height());
    return BVResizableWidgetHandle::tr("%1 pixels")
        .arg(dragsWidth(handle) ? size.width() : size.height());
}

} // namespace

BVHandleAccessible::BVHandleAccessible(BVResizableWidgetHandle *handle)
    : QAccessibleWidget(handle, QAccessible::Grip)
{
}

void BVHandleAccessible::install()
{
    // The toolkit forgets it with each application object, and refuses to keep it twice.
    QAccessible::installFactory(handleInterface);
}

void BVHandleAccessible::announceValue(BVResizableWidgetHandle *handle)
{
    if (!QAccessible::isActive() || !handle->resizedWidget())
        return;
    const QSize size = handle->resizedWidget()->size();
    QAccessibleValueChangeEvent event(handle, dragsWidth(handle) ? size.width() : size.height());
    QAccessible::updateAccessibility(&event);
}

void BVHandleAccessible::announceName(BVResizableWidgetHandle *handle)
{
    QAccessibleEvent event(handle, QAccessible::NameChanged);
    QAccessible::updateAccessibility(&event);
}

BVResizableWidgetHandle *BVHandleAccessible::handle() const
{
    return static_cast<BVResizableWidgetHandle *>(object());
}

void *BVHandleAccessible::interface_cast(QAccessible::InterfaceType type)
{
    if (type == QAccessible::ValueInterface)
        return static_cast<QAccessibleValueInterface *>(this);
    return QAccessibleWidget::interface_cast(type);
}

QString BVHandleAccessible::text(QAccessible::Text kind) const
{
    const QString own = QAccessibleWidget::text(kind);
    if (kind == QAccessible::Value && handle()->resizedWidget())
        return valueOf(handle(), handle()->resizedWidget()->size());
    return own.isEmpty() && kind == QAccessible::Name ? nameOf(handle()) : own;
}

int BVHandleAccessible::extent(const QSize &size) const
{
    return dragsWidth(handle()) ? size.width() : size.height();
}

QVariant BVHandleAccessible::currentValue() const
{
    const QWidget *widget = handle()->resizedWidget();
    return widget ? extent(widget->size()) : 0;
}

void BVHandleAccessible::setCurrentValue(const QVariant &value)
{
    bool isNumber = false;
    const int wanted = value.toInt(&isNumber);
    const int highest = maximumValue().toInt();
    if (isNumber)
        growBy(qBound(0, wanted, highest) - currentValue().toInt(), false);
}

QVariant BVHandleAccessible::maximumValue() const
{
    QWidget *widget = handle()->resizedWidget();
    return widget ? extent(BVPanelGeometry::hostWindow(widget)->size()) : 0;
}

QVariant BVHandleAccessible::minimumValue() const
{
    return 0;
}

QVariant BVHandleAccessible::minimumStepSize() const
{
    return 1;
}

QStringList BVHandleAccessible::actionNames() const
{
    QStringList names = QAccessibleWidget::actionNames();
    if (handle()->isEnabled())
        names << increaseAction() << decreaseAction() << toggleAction();
    return names;
}

void BVHandleAccessible::doAction(const QString &name)
{
    if (name == increaseAction() || name == decreaseAction())
        growBy(name == increaseAction() ? BVHandleStep::s_length : -BVHandleStep::s_length, true);
    else if (name == toggleAction() && handle()->isEnabled())
        Q_EMIT handle()->sigToggleRequested();
    else
        QAccessibleWidget::doAction(name);
}

/// A corner has one value, but grows in both directions.
void BVHandleAccessible::growBy(int pixels, bool bothWays)
{
    const bool growsHeight = dragsHeight(handle()) && (bothWays || !dragsWidth(handle()));
    handle()->moveBy(QSize(dragsWidth(handle()) ? pixels : 0, growsHeight ? pixels : 0));
}
