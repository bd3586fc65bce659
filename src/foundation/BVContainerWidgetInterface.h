// SPDX-License-Identifier: MIT
#pragma once

#include "BVWidgetsExport.h"

#include "foundation/BVWidgetInterface.h"
#include "foundation/NavigationInterface.h"

/// The status operations of a widget that shows several items, each with a status of its own.
///
/// Item i's status lives on getStatusWidget(i). The operations without an index address the current
/// item. The items' statuses are not combined here; BVWidgetStatusHandler does that.
class BVWIDGETS_EXPORT BVContainerWidgetInterface :
    public NavigationInterface,
    public BVWidgetInterface
{
public:
    BVContainerWidgetInterface() = default;

    void setBvStatus(BVWidgetStatus::Status status, bool on) override;
    void setBvStatus(BVWidgetStatus::Stati stati) override;
    bool getBvStatus(BVWidgetStatus::Status status) const override;
    BVWidgetStatus::Stati getBvStatus() const override;

protected:
    using NavigationInterface::getStatusWidget;

    /// Brings the current item's style properties in line with its flags and re-applies its style.
    void updateWidget() override;
    QWidget *getStatusWidget() const override;

    /// Re-applies the style to the item's widget and its children.
    virtual void updateWidget(int index);

public:
    /// Sets or clears one flag of the item; calls updateWidget(int) and onStatusChanged() if that
    /// changes a style property.
    virtual void setBvStatus(int index, BVWidgetStatus::Status status, bool on);
    virtual void setBvStatus(int index, BVWidgetStatus::Stati stati);
    virtual bool getBvStatus(int index, BVWidgetStatus::Status status) const;
    virtual BVWidgetStatus::Stati getBvStatus(int index) const;

    using BVWidgetInterface::isCompareDifferent;
    using BVWidgetInterface::isDefaultChanged;
    using BVWidgetInterface::isDifferentStatus;
    using BVWidgetInterface::isNeedInputStatus;
    using BVWidgetInterface::isRuvixActive;
    using BVWidgetInterface::isRuvixEnabled;
    using BVWidgetInterface::isRuvixInvalid;
    using BVWidgetInterface::isRuvixStandardChanged;
    using BVWidgetInterface::isStandardChanged;
    using BVWidgetInterface::isStandardDefault;
    using BVWidgetInterface::isStandardDefined;
    using BVWidgetInterface::isStandardEnabled;
    using BVWidgetInterface::isStandardLocked;
    using BVWidgetInterface::isUserEditStatus;
    using BVWidgetInterface::setCompareDifferent;
    using BVWidgetInterface::setDefaultChanged;
    using BVWidgetInterface::setDifferentStatus;
    using BVWidgetInterface::setNeedInputStatus;
    using BVWidgetInterface::setRuvixActive;
    using BVWidgetInterface::setRuvixEnabled;
    using BVWidgetInterface::setRuvixInvalid;
    using BVWidgetInterface::setRuvixStandardChanged;
    using BVWidgetInterface::setStandardChanged;
    using BVWidgetInterface::setStandardDefault;
    using BVWidgetInterface::setStandardDefined;
    using BVWidgetInterface::setStandardEnabled;
    using BVWidgetInterface::setStandardLocked;
    using BVWidgetInterface::setUserEditStatus;

    void setNeedInputStatus(int index, bool on);
    bool isNeedInputStatus(int index) const;
    void setUserEditStatus(int index, bool on);
    bool isUserEditStatus(int index) const;
    void setDifferentStatus(int index, bool on);
    bool isDifferentStatus(int index) const;
    void setCompareDifferent(int index, bool on);
    bool isCompareDifferent(int index) const;
    void setRuvixEnabled(int index, bool on);
    bool isRuvixEnabled(int index) const;
    void setRuvixStandardChanged(int index, bool on);
    bool isRuvixStandardChanged(int index) const;
    void setRuvixActive(int index, bool on);
    bool isRuvixActive(int index) const;
    void setRuvixInvalid(int index, bool on);
    bool isRuvixInvalid(int index) const;
    void setStandardEnabled(int index, bool on);
    bool isStandardEnabled(int index) const;
    void setStandardDefined(int index, bool on);
    bool isStandardDefined(int index) const;
    void setStandardDefault(int index, bool on);
    bool isStandardDefault(int index) const;
    void setDefaultChanged(int index, bool on);
    bool isDefaultChanged(int index) const;
    void setStandardChanged(int index, bool on);
    bool isStandardChanged(int index) const;
    void setStandardLocked(int index, bool on);
    bool isStandardLocked(int index) const;
};
