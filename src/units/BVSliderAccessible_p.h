// SPDX-License-Identifier: MIT
#pragma once

#include "units/BVSlider.h"

#include <QAccessibleWidget>

/// What a slider tells assistive technology: itself, and its two limit handles as children in
/// front of all others. A limit without a handle is invisible.
class BVSliderAccessible : public QAccessibleWidget, public QAccessibleValueInterface
{
public:
    explicit BVSliderAccessible(BVSlider *slider);
    ~BVSliderAccessible() override;

    /// Makes all sliders known; further calls do nothing.
    static void install();
    /// Tell that a handle has got the focus, or another value; nothing for a limit that is not
    /// there.
    static void announceFocus(BVSlider *slider, BVSlider::Handle handle);
    static void announceValue(BVSlider *slider, BVSlider::Handle handle);
    /// The child of a limit; -1 for the slider itself.
    static int childOf(BVSlider::Handle handle);

    void *interface_cast(QAccessible::InterfaceType type) override;
    int childCount() const override;
    QAccessibleInterface *child(int index) const override;
    int indexOfChild(const QAccessibleInterface *child) const override;
    QAccessibleInterface *childAt(int x, int y) const override;
    QAccessibleInterface *focusChild() const override;
    QString text(QAccessible::Text kind) const override;
    QAccessible::State state() const override;

    QVariant currentValue() const override;
    void setCurrentValue(const QVariant &value) override;
    QVariant maximumValue() const override;
    QVariant minimumValue() const override;
    QVariant minimumStepSize() const override;

    QStringList actionNames() const override;
    void doAction(const QString &name) override;

private:
    BVSlider *slider() const;
    int limitCount() const;

    mutable QAccessible::Id m_limits[2] = {};
};
