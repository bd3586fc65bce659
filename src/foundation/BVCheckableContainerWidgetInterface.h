// SPDX-License-Identifier: MIT
#pragma once

#include "BVWidgetsExport.h"

#include "foundation/BVContainerWidgetInterface.h"

class BVCheckableContainerInterface;

/// The container interface of a group of checkable buttons: the items are the buttons, the current
/// item is the checked one.
class BVWIDGETS_EXPORT BVCheckableContainerWidgetInterface : public BVContainerWidgetInterface
{
public:
    /// @p container holds the buttons; not owned, and used only after it is fully constructed.
    explicit BVCheckableContainerWidgetInterface(BVCheckableContainerInterface *container);

    void setItemText(int index, const QString &text) override;
    void setItemToolTip(int index, const QString &toolTip) override;
    void setCurrentIndex(int index) override = 0;

    using BVContainerWidgetInterface::getBvStatus;
    bool getBvStatus(BVWidgetStatus::Status status) const override = 0;

protected:
    int currentIndex() const override;
    /// The button at that position, or null.
    QWidget *getStatusWidget(int index) const override;
    /// The container itself.
    QWidget *getStatusWidget() const override;

private:
    BVCheckableContainerInterface *m_container; // not owned
};
