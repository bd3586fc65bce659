// SPDX-License-Identifier: MIT
#include "layout/BVPanelScroll_p.h"

#include "layout/ResizableScrollArea.h"

BVPanelScroll::BVPanelScroll(QWidget *panel)
    : m_panel(panel)
{
}

bool BVPanelScroll::isUsed() const
{
    return m_area;
}

void BVPanelScroll::manageScrollAreas(bool use, QWidget *container)
{
    if (use == isUsed())
        return;
    if (use) {
        makeArea();
        fitToScrollArea(container);
        return;
    }
    if (container) {
        container->setParent(m_panel);
        container->show();
    }
    delete m_area;
}

void BVPanelScroll::makeArea()
{
    m_area = new ResizableScrollArea(m_panel);
    m_area->useResizeHandle(false); // the panel has handles
    m_area->setFocusPolicy(Qt::NoFocus);
}

void BVPanelScroll::fitToScrollArea(QWidget *container)
{
    if (!m_area || !container || m_area->widget() == container)
        return;
    if (m_area->widget() && !m_area->isAncestorOf(m_area->widget())) {
        delete m_area; // which would delete that widget with the next one
        makeArea();
    }
    m_area->setWidget(container);
}

QWidget *BVPanelScroll::standIn(QWidget *container) const
{
    return m_area && container ? m_area.data() : container;
}
