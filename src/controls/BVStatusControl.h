// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/BVReferenceValueInterface.h"
#include "foundation/BVWidgetInterface.h"
#include "foundation/BVWidgetStatusPropertyDispatcher.h"
#include "foundation/StandardSymbolPainter.h"
#include "platform/BVMenu.h"

#include <QContextMenuEvent>
#include <QHelpEvent>
#include <QMenu>

#include <utility>

/// A widget of the toolkit that carries a status: what all plain controls of the library share.
///
/// A control derives from BVStatusControl<toolkit class>, declares BV_STATUS_PROPERTIES and the
/// signal standardActionTriggered(int). It then keeps its style properties in step with its flags,
/// re-applies its style at most once a change, opens the standard context menu, in front of the
/// entries of createContextMenu(), and tells its reference value (dynamic property
/// "ReferenceValue") in its tool tip.
template <typename Base>
class BVStatusControl : public Base, public BVWidgetInterface
{
public:
    bool event(QEvent *event) override
    {
        StandardSymbolPainter::handleStandardLocked(this, event);
        return showsReference(event) || Base::event(event);
    }

protected:
    template <typename... Args>
    explicit BVStatusControl(Args &&...args)
        : Base(std::forward<Args>(args)...)
        , BVWidgetInterface(this)
    {
        BVWidgetStatusPropertyDispatcher::dispatch(this, this);
    }

    /// The control's own menu, which the caller owns; null for none.
    virtual QMenu *createContextMenu() { return nullptr; }

    bool showsReference(QEvent *event)
    {
        return event->type() == QEvent::ToolTip &&
               BVReferenceValueInterface::showToolTip(this, static_cast<QHelpEvent *>(event));
    }

    void contextMenuEvent(QContextMenuEvent *event) override
    {
        QMenu *menu = createContextMenu();
        if (!menu)
            menu = new BVMenu(this);
        if (!popupStandardMenu(menu, this, event->globalPos()))
            Base::contextMenuEvent(event);
    }

    // The dispatcher has re-applied the style already unless the flags were cleared silently; then
    // the properties differ from them here.
    void updateWidget() override
    {
        BVWidgetStatus::setStatusProperty(this, BVWidgetStatus::status(this));
    }
};
