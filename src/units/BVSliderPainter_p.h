// SPDX-License-Identifier: MIT
#pragma once

#include "units/BVSlider.h"
#include "units/BVSliderGeometry_p.h"

#include <QBrush>
#include <QPolygonF>
#include <QStyleOptionSlider>
#include <QVector>

class QPainter;
class QWidget;

/// What a slider shows at the moment.
struct BVSliderScene
{
    struct Stretch
    {
        QRect area;
        QBrush brush;
    };

    const BVSliderGeometry *geometry = nullptr;
    QStyleOptionSlider handle; // of the style, with its state
    bool showsAdmissible = false;
    QRect admissible; // part of the band
    QVector<Stretch> markers;
    QPolygon lowerLimit; // empty when it has no handle
    QPolygon upperLimit;
    QRect lowerLine; // from groove to handle
    QRect upperLine;
    QPolygonF curve;
    QPolygon bestShape; // empty without a best value
    QRect bestLine;
    BVSlider::Handle focused = BVSlider::NoHandle;
    BVSlider::Handle hovered = BVSlider::NoHandle;
    BVSlider::Handle pressed = BVSlider::NoHandle;
    bool active = true; // takes input
    QBrush groove;      // without a style for the palette's colour
    QColor outline;     // invalid for the palette's colour
    QColor tint;
    QColor best;
};

/// Paints a slider that shows more than the style's drawing.
class BVSliderPainter
{
public:
    /// @p widget gives style and palette.
    BVSliderPainter(QPainter &painter, const QWidget &widget, const BVSliderScene &scene);

    void paint();

private:
    void paintCurve();
    void paintGroove();
    void paintLines();
    void paintBest();
    void paintLimit(const QPolygon &shape, BVSlider::Handle handle);
    void paintDVMarker();
    void paintTickMarks();
    void paintHandle();
    QColor handleColor(BVSlider::Handle handle) const;

    QPainter &m_painter;
    const QWidget &m_widget;
    const BVSliderScene &m_scene;
    QColor m_base; // of the groove
    QColor m_outline;
    QColor m_tint;
    QColor m_best;
};
