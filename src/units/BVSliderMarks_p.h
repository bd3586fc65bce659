// SPDX-License-Identifier: MIT
#pragma once

#include <QBrush>
#include <QColor>
#include <QVector>

struct BVSliderScene;

/// What the application shows on a slider beside its value and limits.
class BVSliderMarks
{
public:
    /// See BVSlider for these.
    bool mark(int from, int to, const QBrush &brush);
    void clearMarkers() { m_markers.clear(); }
    bool setDistribution(double mean, double deviation);
    void clearDistribution() { m_hasDistribution = false; }
    void setBestValue(int position);
    void clearBestValue() { m_hasBestValue = false; }
    bool hasBestValue() const { return m_hasBestValue; }

    QBrush groove() const { return m_groove; }
    void setGroove(const QBrush &brush) { m_groove = brush; }
    QColor tint() const { return m_tint; }
    void setTint(const QColor &color) { m_tint = color; }

    /// Whether there is nothing but, perhaps, a distribution or a tint.
    bool isEmpty() const;
    /// Adds them to a scene, whose admissible positions are from @p lower to @p upper.
    void fill(BVSliderScene &scene, double lower, double upper) const;

private:
    struct Marker
    {
        int from;
        int to; // not below from
        QBrush brush;
    };

    QVector<Marker> m_markers;
    bool m_hasDistribution = false;
    double m_mean = 0.0;      // positions
    double m_deviation = 0.0; // positions
    bool m_hasBestValue = false;
    int m_bestValue = 0;
    QBrush m_groove;
    QColor m_tint;
};
