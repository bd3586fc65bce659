// SPDX-License-Identifier: MIT
#pragma once

#include "BVWidgetsExport.h"

#include "controls/BVStatusControl.h"
#include "foundation/BVStatusProperties.h"

#include <QToolButton>

/// A tool button that carries a status.
class BVWIDGETS_EXPORT BVButton : public BVStatusControl<QToolButton>
{
    Q_OBJECT
    BV_STATUS_PROPERTIES

public:
    explicit BVButton(QWidget *parent = nullptr);

Q_SIGNALS:
    /// An entry of the standard context menu was chosen; @p action is a StandardAction.
    void standardActionTriggered(int action);
};
