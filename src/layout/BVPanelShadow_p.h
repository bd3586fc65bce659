// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

/// The frame and soft shadow around a widget, painted by a sibling under it; takes no input.
class BVPanelShadow : public QWidget
{
    Q_OBJECT

public:
    explicit BVPanelShadow(QWidget *parent);

    /// Goes around and under @p widget, a sibling, and shows when that does.
    void follow(QWidget *widget);

protected:
    void paintEvent(QPaintEvent *event) override;
};
