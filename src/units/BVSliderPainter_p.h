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

/// What a slider shows beside its value, ready to be painted.
struct BVSliderScene
{
    struct Stretch
    {
        QRect area;
        QBrush brush;
    };

    explicit BVSliderScene(const BVSliderLayout &layout)
        : geometry(layout)
    {
    }

    BVSliderGeometry geometry;
    bool showsAdmissible = false;
    QRect admissible; // part of the band
    QVector<Stretch> markers;
    QPolygon lowerLimit; // empty without a handle
    QPolygon upperLimit;
    QRect lowerLine; // from groove to handle
    QRect upperLine;
    QPolygonF curve;    // empty without one
    QPolygon bestShape; // empty without a best value
    QRect bestLine;
    QBrush groove; // without a style for the palette's colour
};

/// How it is shown at the moment.
struct BVSliderState
{
    BVSlider::Handle focused = BVSlider::NoHandle;
    BVSlider::Handle hovered = BVSlider::NoHandle;
    BVSlider::Handle pressed = BVSlider::NoHandle;
    bool active = true; // takes input
    QColor outline;
    QColor tint;
    QColor best;

    /// Takes the colours of the dominant status. @p wantedTint, if valid, replaces that of the
    /// status.
    void setColors(const QPalette &palette, BVWidgetStatus::Status status,
                   const QColor &wantedTint);
    /// The same with the value's handle left alone.
    BVSliderState withoutValue() const;
    bool operator==(const BVSliderState &other) const;
};

/// Paints a slider that shows more than the style's drawing.
class BVSliderPainter
{
public:
    /// @p widget gives style and palette.
    BVSliderPainter(QPainter &painter, const QWidget &widget, const BVSliderScene &scene,
                    const BVSliderState &state);

    /// All but the handle of the value, which covers it.
    void paintDecoration();
    /// The handle, or what stands for it, of the slider that @p option describes.
    void paintValue(const QStyleOptionSlider &option);

private:
    void paintCurve();
    void paintGroove();
    void paintLines();
    void paintBest();
    void paintLimit(const QPolygon &shape, BVSlider::Handle handle);
    void paintDVMarker(int position);
    void paintHandle(const QStyleOptionSlider &option);
    QColor handleColor(BVSlider::Handle handle) const;

    QPainter &m_painter;
    const QWidget &m_widget;
    const BVSliderScene &m_scene;
    const BVSliderState &m_state;
    QColor m_base; // of the groove
};
