// SPDX-License-Identifier: MIT
#pragma once

#include <QPointer>
#include <QVector>

class QWidget;

/// The frame and soft shadow around a widget: strips along its sides and at its corners, which are
/// its siblings and take no input.
///
/// Strips, since one widget under all of it would have the whole widget painted anew with every
/// frame of an animation.
class BVPanelShadow
{
public:
    /// The strips belong to @p parent, and to the shadow.
    explicit BVPanelShadow(QWidget *parent);
    ~BVPanelShadow();
    BVPanelShadow(const BVPanelShadow &) = delete;
    BVPanelShadow &operator=(const BVPanelShadow &) = delete;

    /// Goes around @p widget, and shows when that does.
    void follow(QWidget *widget);
    void stackUnder(QWidget *widget);

    static bool isStrip(const QObject *object);

private:
    QVector<QPointer<QWidget>> m_strips;
};
