// SPDX-License-Identifier: MIT
#pragma once

#include "layout/BVResizableWidgetHandle.h"

#include <QAccessibleWidget>

/// What a handle tells assistive technology: a grip whose value is the width or height of the
/// widget that it drags, for a corner the width. A handle with a text has that as its name.
class BVHandleAccessible : public QAccessibleWidget, public QAccessibleValueInterface
{
public:
    explicit BVHandleAccessible(BVResizableWidgetHandle *handle);

    /// Makes all handles known; further calls do nothing.
    static void install();
    /// Tells that the widget of the handle has got another size.
    static void announceValue(BVResizableWidgetHandle *handle);
    /// Tells that the handle shows another text.
    static void announceName(BVResizableWidgetHandle *handle);

    void *interface_cast(QAccessible::InterfaceType type) override;
    QString text(QAccessible::Text kind) const override;

    QVariant currentValue() const override;
    void setCurrentValue(const QVariant &value) override;
    QVariant maximumValue() const override;
    QVariant minimumValue() const override;
    QVariant minimumStepSize() const override;

    QStringList actionNames() const override;
    void doAction(const QString &name) override;

private:
    BVResizableWidgetHandle *handle() const;
    int extent(const QSize &size) const;
    void growBy(int pixels, bool bothWays);
};
