// SPDX-License-Identifier: MIT
#include "layout/ResizeableWidgetInterface.h"

#include "layout/BVPanelGeometry_p.h"

#include <QWidget>

namespace Brimvale {

ResizeableWidgetInterface::~ResizeableWidgetInterface() = default;

bool ResizeableWidgetInterface::checkResizingPossible(QObject *handle, const QSize & /*delta*/)
{
    return m_resizingEnabled && handle;
}

void ResizeableWidgetInterface::setResizingEnabled(bool on)
{
    m_resizingEnabled = on;
}

bool ResizeableWidgetInterface::isResizingEnabled() const
{
    return m_resizingEnabled;
}

void ResizeableWidgetInterface::saveLastSize()
{
    m_lastSize = getResizableWidget()->size();
}

QSize ResizeableWidgetInterface::lastSize() const
{
    return m_lastSize;
}

void ResizeableWidgetInterface::saveRelativePosition(QPoint &position)
{
    m_relativePosition = BVPanelGeometry::rectInWindow(getResizableWidget()).topLeft();
    position = m_relativePosition;
}

QPoint ResizeableWidgetInterface::relativePosition() const
{
    return m_relativePosition;
}

} // namespace Brimvale
