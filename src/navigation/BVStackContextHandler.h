// SPDX-License-Identifier: MIT
#pragma once

#include "BVWidgetsExport.h"

#include <QObject>

class BVControlledStackItem;
class QMenu;
class QPoint;

/// An application's say in the context menus of a navigation: derive from it and give it to
/// BVStackControllerWidget::setCustomContextMenuHandler().
///
/// The entry is null where the menu opens beside the entries.
class BVWIDGETS_EXPORT BVStackContextHandler : public QObject
{
    Q_OBJECT

public:
    explicit BVStackContextHandler(QObject *parent = nullptr);
    ~BVStackContextHandler() override;

    /// Shows a menu of the application's own for the entry. False, as by default, has the
    /// navigation show its menu.
    virtual bool showContextMenu(BVControlledStackItem *item, const QPoint &globalPosition);
    /// Adds entries at the end of the navigation's menu, which is about to open; none by default.
    /// The choice of one of them is told by onCustomActionTriggeredOnTree(), too.
    virtual void addActions(BVControlledStackItem *item, QMenu *menu);
};
