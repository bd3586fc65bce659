// SPDX-License-Identifier: MIT
#include "layout/BVPanelShadow_p.h"

#include <QPainter>
#include <QWidget>

namespace {

constexpr int s_reach = 9;     // px from the widget to where the shadow ends
constexpr int s_sink = 2;      // px that the shadow lies lower than the widget
constexpr int s_ringAlpha = 5; // that each ring is darker than the next one outside
constexpr int s_frameAlpha = 70;
constexpr int s_partCount = 8;

void paintRing(QPainter *painter, const QRect &area, const QColor &color)
{
    painter->fillRect(QRect(area.left(), area.top(), area.width(), 1), color);
    painter->fillRect(QRect(area.left(), area.bottom(), area.width(), 1), color);
    painter->fillRect(QRect(area.left(), area.top() + 1, 1, area.height() - 2), color);
    painter->fillRect(QRect(area.right(), area.top() + 1, 1, area.height() - 2), color);
}

/// A side or corner of the shadow around a rectangle in the parent's coordinates.
class Strip : public QWidget
{
public:
    explicit Strip(QWidget *parent)
    {
        setParent(parent); // which tells the parent of a strip, not of any widget
        setAttribute(Qt::WA_TransparentForMouseEvents);
        setAttribute(Qt::WA_NoSystemBackground);
        setAttribute(Qt::WA_StaticContents); // a side that grows looks the same where it was
        hide();
    }

    void setInner(const QRect &inner) { m_inner = inner; }

protected:
    void paintEvent(QPaintEvent * /*event*/) override
    {
        QPainter painter(this);
        painter.translate(-pos());
        const QMargins one(1, 1, 1, 1);
        const QRect shadow = m_inner.translated(0, s_sink);
        for (int ring = 1; ring < s_reach; ++ring)
            paintRing(&painter, shadow.marginsAdded(one * ring),
                      QColor(0, 0, 0, s_ringAlpha * (s_reach - ring)));
        QColor frame = palette().color(QPalette::WindowText);
        frame.setAlpha(s_frameAlpha);
        paintRing(&painter, m_inner.marginsAdded(one), frame);
    }

private:
    QRect m_inner;
};

} // namespace

BVPanelShadow::BVPanelShadow(QWidget *parent)
{
    for (int i = 0; i < s_partCount; ++i)
        m_strips.append(new Strip(parent));
}

BVPanelShadow::~BVPanelShadow()
{
    for (const QPointer<QWidget> &strip : qAsConst(m_strips))
        delete strip;
}

void BVPanelShadow::follow(QWidget *widget)
{
    const QRect inner = widget->geometry();
    const int lefts[] = {inner.left() - s_reach, inner.left(), inner.right() + 1};
    const int tops[] = {inner.top() - s_reach, inner.top() + s_sink, inner.bottom() + 1};
    const int widths[] = {s_reach, inner.width(), s_reach};
    const int heights[] = {s_reach + s_sink, inner.height() - s_sink, s_reach + s_sink};
    for (int i = 0; i < m_strips.size(); ++i) {
        auto *strip = static_cast<Strip *>(m_strips.at(i).data());
        if (!strip)
            continue;
        const int cell = i < 4 ? i : i + 1; // of three by three without the middle
        const int column = cell % 3;
        const int row = cell / 3;
        strip->setInner(inner);
        strip->setGeometry(lefts[column], tops[row], widths[column], heights[row]);
        strip->setVisible(!widget->isHidden());
    }
}

void BVPanelShadow::stackUnder(QWidget *widget)
{
    for (const QPointer<QWidget> &strip : qAsConst(m_strips)) {
        if (strip)
            strip->stackUnder(widget);
    }
}

bool BVPanelShadow::isStrip(const QObject *object)
{
    return dynamic_cast<const Strip *>(object);
}
