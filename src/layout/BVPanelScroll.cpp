// SPDX-License-Identifier: MIT
#include "layout/BVPanelScroll_p.h"

#include <QScrollArea>

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
        m_area = new QScrollArea(m_panel);
        m_area->setFrameShape(QFrame::NoFrame);
        m_area->setWidgetResizable(true);
        m_area->setFocusPolicy(Qt::NoFocus);
        fitToScrollArea(container);
        return;
    }
    if (container) {
        container->setAutoFillBackground(false); // which the area has set
        container->setParent(m_panel);
        container->show();
    }
    delete m_area;
}

void BVPanelScroll::fitToScrollArea(QWidget *container)
{
    if (m_area && container && m_area->widget() != container)
        m_area->setWidget(container);
}

QWidget *BVPanelScroll::standIn(QWidget *container) const
{
    return m_area && container ? m_area.data() : container;
}
