// SPDX-License-Identifier: MIT
#include "units/BVSliderShapes_p.h"

#include <QPainter>
#include <QStyle>

namespace {

bool isUpsideDown(const BVSlider &slider)
{
    if (slider.orientation() == Qt::Vertical)
        return !slider.invertedAppearance();
    return slider.invertedAppearance() != slider.isRightToLeft();
}

BVSliderLayout layoutOf(const BVSlider &slider, QStyleOptionSlider option)
{
    option.state &= ~(QStyle::State_HasFocus | QStyle::State_MouseOver);
    // The way of the handle, from a range that the style's arithmetic does not round.
    option.minimum = 0;
    option.maximum = 1;
    const auto styleRect = [&](QStyle::SubControl part, int position) {
        option.sliderPosition = position;
        return slider.style()->subControlRect(QStyle::CC_Slider, &option, part, &slider);
    };
    BVSliderLayout layout;
    layout.area = slider.rect();
    layout.groove = styleRect(QStyle::SC_SliderGroove, 0);
    layout.handleAtMinimum = styleRect(QStyle::SC_SliderHandle, 0);
    layout.handleAtMaximum = styleRect(QStyle::SC_SliderHandle, 1);
    layout.minimum = slider.minimum();
    layout.maximum = slider.maximum();
    layout.orientation = slider.orientation();
    layout.upsideDown = option.upsideDown;
    layout.rightToLeft = slider.isRightToLeft();
    layout.extended = slider.isExtended();
    layout.dvValue = slider.isDVValueSlider();
    layout.span = slider.isSpanSlider();
    return layout;
}

} // namespace

BVSliderShapes::BVSliderShapes(const BVSlider &slider, const QStyleOptionSlider &option)
    : m_scene(layoutOf(slider, option))
    , m_ticks(slider.tickPosition())
{
}

BVSliderShapes::~BVSliderShapes()
{
    QPixmapCache::remove(m_decoration);
}

bool BVSliderShapes::fit(const BVSlider &slider) const
{
    const BVSliderLayout &known = m_scene.geometry.layout();
    return known.area == slider.rect() && known.orientation == slider.orientation() &&
           known.upsideDown == isUpsideDown(slider) && m_ticks == slider.tickPosition();
}

QPixmap BVSliderShapes::decoration(const BVSlider &slider, const BVSliderState &state,
                                   qreal pixelRatio)
{
    QPixmap pixmap;
    if (state == m_decorationState && QPixmapCache::find(m_decoration, &pixmap) &&
        pixmap.devicePixelRatioF() == pixelRatio)
        return pixmap;
    if (slider.size().isEmpty())
        return QPixmap();
    pixmap = QPixmap((QSizeF(slider.size()) * pixelRatio).toSize());
    pixmap.setDevicePixelRatio(pixelRatio);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    BVSliderPainter(painter, slider, m_scene, state).paintDecoration();
    painter.end();
    QPixmapCache::remove(m_decoration);
    m_decoration = QPixmapCache::insert(pixmap);
    m_decorationState = state;
    return pixmap;
}
