// SPDX-License-Identifier: MIT
#pragma once

#include "BVWidgetsExport.h"

#include "controls/BVStatusControl.h"
#include "foundation/BVStatusProperties.h"

#include <QLabel>

/// A label that carries a status, its own or one routed to it from the widget that it describes.
class BVWIDGETS_EXPORT BVLabel : public BVStatusControl<QLabel>
{
    Q_OBJECT
    BV_STATUS_PROPERTIES

public:
    explicit BVLabel(QWidget *parent = nullptr);
    explicit BVLabel(const QString &text, QWidget *parent = nullptr);

Q_SIGNALS:
    /// An entry of the standard context menu was chosen; @p action is a StandardAction.
    void standardActionTriggered(int action);

protected:
    /// Copy and Select All, where the text can be selected.
    QMenu *createContextMenu() override;
};
