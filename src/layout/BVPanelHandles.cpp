// SPDX-License-Identifier: MIT
#include "layout/BVPanelHandles_p.h"

#include "layout/BVHandleAccessible_p.h"
#include "layout/BVPanelGeometry_p.h"

#include <QGridLayout>

BVPanelHandles::BVPanelHandles(QWidget *panel)
    : m_panel(panel)
    , m_layout(new QGridLayout(panel))
{
    m_layout->setContentsMargins(0, 0, 0, 0);
    m_layout->setSpacing(0);
    m_layout->setRowStretch(1, 1);
    m_layout->setColumnStretch(1, 1);
}

BVResizableWidgetHandle *BVPanelHandles::handle(Kind kind) const
{
    return m_handles[kind];
}

void BVPanelHandles::add(Kind kind, BVResizableWidgetHandle *handle)
{
    m_handles[kind] = handle;
    updateHandleLayoutPosition(kind);
    handle->show();
}

void BVPanelHandles::remove(Kind kind)
{
    const QPointer<BVResizableWidgetHandle> handle = m_handles[kind];
    m_handles[kind] = nullptr;
    if (handle)
        handle->cancelMove();
    if (!handle)
        return;
    handle->hide();
    m_layout->removeWidget(handle);
    handle->deleteLater();
}

void BVPanelHandles::updateContainerWidgetLayoutPosition(QWidget *content)
{
    if (!content)
        return;
    m_layout->addWidget(content, 1, 1); // which takes it from where it is
    content->show();
}

void BVPanelHandles::setAnchoredRight(bool on)
{
    m_anchoredRight = on;
    updateLayoutPositions();
}

bool BVPanelHandles::isAnchoredRight() const
{
    return m_anchoredRight;
}

void BVPanelHandles::setAnchoredBottom(bool on)
{
    m_anchoredBottom = on;
    updateLayoutPositions();
}

bool BVPanelHandles::isAnchoredBottom() const
{
    return m_anchoredBottom;
}

bool BVPanelHandles::keepsRight() const
{
    return m_anchoredRight != m_panel->isRightToLeft();
}

bool BVPanelHandles::keepsBottom() const
{
    return m_anchoredBottom;
}

bool BVPanelHandles::dragsWidth() const
{
    return m_handles[Horizontal] || m_handles[Diagonal];
}

bool BVPanelHandles::dragsHeight() const
{
    return m_handles[Vertical] || m_handles[Diagonal];
}

BVResizableWidgetHandle::Position BVPanelHandles::positionOf(Kind kind) const
{
    return BVPanelGeometry::positionOf(kind != Vertical, kind != Horizontal, keepsRight(),
                                       keepsBottom());
}

void BVPanelHandles::updateHandleLayoutPosition(Kind kind)
{
    BVResizableWidgetHandle *handle = m_handles[kind];
    if (!handle)
        return;
    const int row = kind == Horizontal ? 1 : m_anchoredBottom ? 0 : 2;
    const int column = kind == Vertical ? 1 : m_anchoredRight ? 0 : 2;
    m_layout->addWidget(handle, row, column); // the layout mirrors its columns by itself
    handle->setPosition(positionOf(kind));
}

void BVPanelHandles::updateLayoutPositions()
{
    for (const Kind kind : {Vertical, Horizontal, Diagonal})
        updateHandleLayoutPosition(kind);
}

void BVPanelHandles::announceSize()
{
    for (const QPointer<BVResizableWidgetHandle> &handle : m_handles) {
        if (handle)
            BVHandleAccessible::announceValue(handle);
    }
}
