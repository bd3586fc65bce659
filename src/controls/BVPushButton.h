// SPDX-License-Identifier: MIT
#pragma once

#include "BVWidgetsExport.h"

#include "controls/BVStatusControl.h"
#include "foundation/BVStatusProperties.h"

#include <QPushButton>

/// A push button that carries a status.
class BVWIDGETS_EXPORT BVPushButton : public BVStatusControl<QPushButton>
{
    Q_OBJECT
    BV_STATUS_PROPERTIES

public:
    explicit BVPushButton(QWidget *parent = nullptr);
    explicit BVPushButton(const QString &text, QWidget *parent = nullptr);

Q_SIGNALS:
    /// An entry of the standard context menu was chosen; @p action is a StandardAction.
    void standardActionTriggered(int action);
};
