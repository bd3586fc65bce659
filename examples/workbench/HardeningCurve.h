// SPDX-License-Identifier: MIT
#pragma once

#include "HardeningLaw.h"

#include <QWidget>

/// Plots a hardening law: stress, in the user's unit, over plastic strain, and the yield stress as
/// a dashed line. Under the pointer, the values of a point are told. While parameters are missing,
/// the plot tells which.
class HardeningCurve : public QWidget
{
    Q_OBJECT

public:
    explicit HardeningCurve(QWidget *parent = nullptr);

    const HardeningLaw &law() const { return m_law; }
    /// The yield stress in MPa; FieldValues::noValue() for none.
    void setLaw(const HardeningLaw &law, double yieldStress);
    /// What stands in for the curve; empty while there is one.
    QString hint() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void leaveEvent(QEvent *event) override;

private:
    struct Plot;

    Plot plot() const;
    void paintHint(QPainter &painter) const;
    void paintAxes(QPainter &painter, const Plot &plot) const;
    void paintYieldStress(QPainter &painter, const Plot &plot) const;
    void paintCurve(QPainter &painter, const Plot &plot) const;
    void paintPointer(QPainter &painter, const Plot &plot) const;

    HardeningLaw m_law;
    double m_yieldStress = FieldValues::noValue(); // MPa
    double m_pointed = -1.0;                       // the strain under the pointer; negative: none
};
