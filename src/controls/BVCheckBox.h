// SPDX-License-Identifier: MIT
#pragma once

#include "BVWidgetsExport.h"

#include "controls/BVStatusControl.h"
#include "foundation/BVStatusProperties.h"

#include <QCheckBox>

/// A check box that carries a status.
class BVWIDGETS_EXPORT BVCheckBox : public BVStatusControl<QCheckBox>
{
    Q_OBJECT
    BV_STATUS_PROPERTIES

public:
    explicit BVCheckBox(QWidget *parent = nullptr);
    explicit BVCheckBox(const QString &text, QWidget *parent = nullptr);

Q_SIGNALS:
    /// An entry of the standard context menu was chosen; @p action is a StandardAction.
    void standardActionTriggered(int action);
};
