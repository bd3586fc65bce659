// SPDX-License-Identifier: MIT
#pragma once

#include "units/BVSliderPainter_p.h"

#include <QPixmap>
#include <QPixmapCache>

/// What follows from the layout of a slider, kept until something that it follows from changes.
class BVSliderShapes
{
public:
    /// @p option describes the slider.
    BVSliderShapes(const BVSlider &slider, const QStyleOptionSlider &option);
    BVSliderShapes(const BVSliderShapes &) = delete;
    BVSliderShapes &operator=(const BVSliderShapes &) = delete;
    ~BVSliderShapes();

    /// False if the slider has changed in what the toolkit does not announce to it.
    bool fit(const BVSlider &slider) const;
    BVSliderScene &scene() { return m_scene; }
    const BVSliderScene &scene() const { return m_scene; }

    /// A picture of all but the handle of the value.
    QPixmap decoration(const BVSlider &slider, const BVSliderState &state, qreal pixelRatio);

private:
    BVSliderScene m_scene;
    QSlider::TickPosition m_ticks;
    BVSliderState m_decorationState;
    QPixmapCache::Key m_decoration;
};
