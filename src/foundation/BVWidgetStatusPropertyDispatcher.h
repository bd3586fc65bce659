// SPDX-License-Identifier: MIT
#pragma once

#include "BVWidgetsExport.h"

#include <QObject>

class QWidget;

/// Keeps a widget's boolean style properties in step with status changes made with plain
/// operations.
class BVWIDGETS_EXPORT BVWidgetStatusPropertyDispatcher : public QObject
{
    Q_OBJECT

public:
    /// Writes every status change announced to @p watched to the style properties of @p owner, to
    /// which the dispatcher belongs; often both are one widget. Null is ignored.
    static void dispatch(QWidget *watched, QWidget *owner);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    BVWidgetStatusPropertyDispatcher(QWidget *watched, QWidget *owner);
};
