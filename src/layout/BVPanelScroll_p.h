// SPDX-License-Identifier: MIT
#pragma once

#include <QPointer>
#include <QSize>

class QWidget;
class ResizableScrollArea;

/// Lets the container of a panel stand in the panel itself or in a scroll area.
class BVPanelScroll
{
public:
    explicit BVPanelScroll(QWidget *panel);

    bool isUsed() const;
    /// Moves @p container, which may be null, into the scroll area or out of it, and makes or
    /// deletes that.
    void manageScrollAreas(bool use, QWidget *container);
    /// Puts @p container into the scroll area if that is used.
    void fitToScrollArea(QWidget *container);
    /// What stands in the panel for the container; null for none.
    QWidget *standIn(QWidget *container) const;

private:
    void makeArea();

    QWidget *m_panel;
    QPointer<ResizableScrollArea> m_area; // child of the panel
};
