// SPDX-License-Identifier: MIT
#pragma once

#include "BVWidgetsExport.h"

#include "controls/BVStatusControl.h"
#include "foundation/BVStatusProperties.h"

#include <QComboBox>

/// A combo box that carries a status.
///
/// The wheel changes the choice only while the box has the focus; without it the page scrolls on.
class BVWIDGETS_EXPORT BVComboBox : public BVStatusControl<QComboBox>
{
    Q_OBJECT
    BV_STATUS_PROPERTIES

public:
    explicit BVComboBox(QWidget *parent = nullptr);

Q_SIGNALS:
    /// An entry of the standard context menu was chosen; @p action is a StandardAction.
    void standardActionTriggered(int action);

protected:
    /// The menu of an editable box's line edit.
    QMenu *createContextMenu() override;
    void wheelEvent(QWheelEvent *event) override;
};
