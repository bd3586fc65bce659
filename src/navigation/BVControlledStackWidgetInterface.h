// SPDX-License-Identifier: MIT
#pragma once

#include "BVWidgetsExport.h"

#include "foundation/BVContainerWidgetInterface.h"

#include <QPointer>

class BVControlledStackWidget;

/// Statuses and texts of a controlled stack's entries by their depth-first index.
///
/// The status is that of the entry, not of its page, which keeps its own. An index out of range is
/// ignored, and answered with no flags.
class BVWIDGETS_EXPORT BVControlledStackWidgetInterface : public BVContainerWidgetInterface
{
public:
    /// The stack is not owned; without it nothing happens.
    explicit BVControlledStackWidgetInterface(BVControlledStackWidget *stack);
    ~BVControlledStackWidgetInterface() override;

    int currentIndex() const override;
    void setCurrentIndex(int index) override;
    void setItemText(int index, const QString &text) override;
    void setItemToolTip(int index, const QString &toolTip) override;

    using BVContainerWidgetInterface::getBvStatus;
    using BVContainerWidgetInterface::setBvStatus;
    BVWidgetStatus::Stati getBvStatus(int index) const override;
    bool getBvStatus(int index, BVWidgetStatus::Status status) const override;
    void setBvStatus(int index, BVWidgetStatus::Stati stati) override;
    void setBvStatus(int index, BVWidgetStatus::Status status, bool on) override;

protected:
    using BVContainerWidgetInterface::getStatusWidget;
    /// The page of the entry.
    QWidget *getStatusWidget(int index) const override;

private:
    QPointer<BVControlledStackWidget> m_stack;
};
