// SPDX-License-Identifier: MIT
#pragma once

#include "layout/BVResizeWidget.h"

#include <QAccessibleWidget>

/// What the grip of a window tells assistive technology: where it is, and that it makes the window
/// larger or smaller.
class BVResizeWidgetAccessible : public QAccessibleWidget
{
public:
    explicit BVResizeWidgetAccessible(BVResizeWidget *grip);

    /// Makes all grips known; further calls do nothing.
    static void install();

    QString text(QAccessible::Text kind) const override;
    QStringList actionNames() const override;
    void doAction(const QString &name) override;

private:
    BVResizeWidget *grip() const;
};
