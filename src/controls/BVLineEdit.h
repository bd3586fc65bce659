// SPDX-License-Identifier: MIT
#pragma once

#include "BVWidgetsExport.h"

#include "controls/BVStatusControl.h"
#include "foundation/BVStatusProperties.h"

#include <QLineEdit>

/// A line edit that carries a status.
class BVWIDGETS_EXPORT BVLineEdit : public BVStatusControl<QLineEdit>
{
    Q_OBJECT
    BV_STATUS_PROPERTIES

public:
    explicit BVLineEdit(QWidget *parent = nullptr);
    explicit BVLineEdit(const QString &text, QWidget *parent = nullptr);

Q_SIGNALS:
    /// An entry of the standard context menu was chosen; @p action is a StandardAction.
    void standardActionTriggered(int action);

protected:
    /// The edit's menu of cut, copy, paste and the like.
    QMenu *createContextMenu() override;
};
