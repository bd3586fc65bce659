// SPDX-License-Identifier: MIT
#include "foundation/BVContainerWidgetInterface.h"

#include "foundation/BVNamedFlags_p.h"
#include "foundation/BVStatusBatch.h"

void BVContainerWidgetInterface::setBvStatus(BVWidgetStatus::Status status, bool on)
{
    setBvStatus(currentIndex(), status, on);
}

void BVContainerWidgetInterface::setBvStatus(BVWidgetStatus::Stati stati)
{
    setBvStatus(currentIndex(), stati);
}

bool BVContainerWidgetInterface::getBvStatus(BVWidgetStatus::Status status) const
{
    return getBvStatus(currentIndex(), status);
}

BVWidgetStatus::Stati BVContainerWidgetInterface::getBvStatus() const
{
    return getBvStatus(currentIndex());
}

void BVContainerWidgetInterface::updateWidget()
{
    QWidget *widget = getStatusWidget();
    BVWidgetStatus::setStatusProperty(widget, BVWidgetStatus::status(widget));
    BVStatusBatch::repolish(widget);
    onStatusChanged();
}

QWidget *BVContainerWidgetInterface::getStatusWidget() const
{
    return getStatusWidget(currentIndex());
}

void BVContainerWidgetInterface::updateWidget(int index)
{
    BVStatusBatch::repolish(getStatusWidget(index));
}

void BVContainerWidgetInterface::setBvStatus(int index, BVWidgetStatus::Status status, bool on)
{
    QWidget *widget = getStatusWidget(index);
    const bool hasProperty =
        status == BVWidgetStatus::Normal || !BVWidgetStatus::statusPropertyName(status).isEmpty();
    bool changed = false;
    if (hasProperty) {
        changed = BVWidgetStatus::setStatusProperty(widget, status, on);
    } else if (BVWidgetStatus::testStatus(widget, status) != on) { // a flag that steers the menu
        BVWidgetStatus::setStatus(widget, status, on);
        changed = widget != nullptr;
    }
    if (!changed)
        return;
    updateWidget(index);
    onStatusChanged();
}

void BVContainerWidgetInterface::setBvStatus(int index, BVWidgetStatus::Stati stati)
{
    if (!BVWidgetStatus::setStatusProperty(getStatusWidget(index), stati))
        return;
    updateWidget(index);
    onStatusChanged();
}

bool BVContainerWidgetInterface::getBvStatus(int index, BVWidgetStatus::Status status) const
{
    return BVWidgetStatus::testStatus(getStatusWidget(index), status);
}

BVWidgetStatus::Stati BVContainerWidgetInterface::getBvStatus(int index) const
{
    return BVWidgetStatus::status(getStatusWidget(index));
}

#define BV_DEFINE_FLAG(Name, Flag) \
    void BVContainerWidgetInterface::set##Name(int index, bool on) \
    { \
        setBvStatus(index, BVWidgetStatus::Flag, on); \
    } \
    bool BVContainerWidgetInterface::is##Name(int index) const \
    { \
        return getBvStatus(index, BVWidgetStatus::Flag); \
    }

BV_FOR_NAMED_FLAGS(BV_DEFINE_FLAG)

#undef BV_DEFINE_FLAG
