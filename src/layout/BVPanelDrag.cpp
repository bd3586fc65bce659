// SPDX-License-Identifier: MIT
#include "layout/BVPanelDrag_p.h"

#include "layout/BVPanelFloat_p.h"
#include "layout/BVPanelGeometry_p.h"
#include "layout/MainWidget.h"

namespace {

MainWidget *mainWidgetOf(const BVPanelFloat *panelFloat)
{
    return panelFloat ? panelFloat->mainWidget() : nullptr;
}

} // namespace

QRect BVPanelDrag::currentRect(const QWidget *panel, const BVPanelFloat *panelFloat)
{
    const MainWidget *mainWidget = mainWidgetOf(panelFloat);
    return mainWidget ? mainWidget->targetGeometry() : BVPanelGeometry::rectInWindow(panel);
}

QRect BVPanelDrag::grown(const QWidget *panel, const BVPanelFloat *panelFloat, const QSize &wanted,
                         bool keepsRight, bool keepsBottom)
{
    const QRect rect = currentRect(panel, panelFloat);
    const QSize least = mainWidgetOf(panelFloat) ? panelFloat->placeRect().size() : rect.size();
    const QRect area = BVPanelGeometry::availableArea(BVPanelGeometry::hostWindow(panel));
    return BVPanelGeometry::grown({area, least, panel->maximumSize(), keepsRight, keepsBottom},
                                  rect, wanted);
}

/// A panel on its way back counts as being there.
void BVPanelDrag::begin(const QWidget *panel, const BVPanelFloat *panelFloat)
{
    const MainWidget *mainWidget = mainWidgetOf(panelFloat);
    m_rectAtPress = currentRect(panel, panelFloat);
    m_wantedSize = m_rectAtPress.size();
    m_floatedAtPress = mainWidget && !mainWidget->isReturning();
}

void BVPanelDrag::end()
{
    m_wantedSize = QSize();
}

bool BVPanelDrag::isGoingOn() const
{
    return m_wantedSize.isValid();
}

QSize BVPanelDrag::wants(const QSize &growth)
{
    m_wantedSize = BVPanelGeometry::plausible(m_wantedSize + BVPanelGeometry::plausible(growth));
    return m_wantedSize;
}

void BVPanelDrag::undo(BVPanelFloat *panelFloat) const
{
    MainWidget *mainWidget = mainWidgetOf(panelFloat);
    if (mainWidget && m_floatedAtPress)
        mainWidget->setGeometryWithAnimation(
            BVPanelGeometry::clamped(mainWidget->availableArea(), m_rectAtPress), 0, false);
    else if (mainWidget)
        panelFloat->comeBack();
}
