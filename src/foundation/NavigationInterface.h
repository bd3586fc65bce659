// SPDX-License-Identifier: MIT
#pragma once

#include "BVWidgetsExport.h"

class QString;
class QWidget;

/// A container of items of which one is current.
class BVWIDGETS_EXPORT NavigationInterface
{
public:
    virtual ~NavigationInterface();

    /// The position of the current item; -1 for none.
    virtual int currentIndex() const = 0;
    virtual void setCurrentIndex(int index) = 0;
    virtual void setItemText(int index, const QString &text) = 0;
    virtual void setItemToolTip(int index, const QString &toolTip) = 0;

protected:
    /// The widget that carries the item's status; null for an index out of range.
    virtual QWidget *getStatusWidget(int index) const = 0;
};
