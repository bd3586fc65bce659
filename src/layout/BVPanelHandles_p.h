// SPDX-License-Identifier: MIT
#pragma once

#include "layout/BVResizableWidgetHandle.h"

#include <QPointer>

class QGridLayout;

/// The handles of a panel and their places around its content.
class BVPanelHandles
{
public:
    enum Kind { Vertical, Horizontal, Diagonal };

    /// Gives the panel a layout with places for a content and the handles.
    explicit BVPanelHandles(QWidget *panel);

    /// Null for a handle that is not used.
    BVResizableWidgetHandle *handle(Kind kind) const;
    /// Puts a child of the panel in the place of a handle of that kind.
    void add(Kind kind, BVResizableWidgetHandle *handle);
    /// Ends its drag and lets it go; it may be asking for that itself.
    void remove(Kind kind);
    /// Puts @p content, which may be null, between the handles.
    void updateContainerWidgetLayoutPosition(QWidget *content);

    /// The sides that stay: right in place of left, which change places in a right-to-left layout,
    /// and bottom in place of top.
    void setAnchoredRight(bool on);
    bool isAnchoredRight() const;
    void setAnchoredBottom(bool on);
    bool isAnchoredBottom() const;

    /// Whether the right side on the screen stays, and the bottom.
    bool keepsRight() const;
    bool keepsBottom() const;
    bool dragsWidth() const;
    bool dragsHeight() const;
    BVResizableWidgetHandle::Position positionOf(Kind kind) const;
    void updateLayoutPositions();
    /// Tells assistive technology the new size of the panel.
    void announceSize();

private:
    void updateHandleLayoutPosition(Kind kind);

    QWidget *m_panel;
    QGridLayout *m_layout; // child of the panel
    QPointer<BVResizableWidgetHandle> m_handles[3];
    bool m_anchoredRight = false;
    bool m_anchoredBottom = false;
};
