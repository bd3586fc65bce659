// SPDX-License-Identifier: MIT
#pragma once

#include "BVWidgetsExport.h"

#include "controls/BVStatusControl.h"
#include "foundation/BVStatusProperties.h"

#include <QTextEdit>

/// An edit for text of several lines that carries a status. The wheel does not give it the focus.
class BVWIDGETS_EXPORT BVTextEdit : public BVStatusControl<QTextEdit>
{
    Q_OBJECT
    BV_STATUS_PROPERTIES

public:
    explicit BVTextEdit(QWidget *parent = nullptr);
    explicit BVTextEdit(const QString &text, QWidget *parent = nullptr);

Q_SIGNALS:
    /// An entry of the standard context menu was chosen; @p action is a StandardAction.
    void standardActionTriggered(int action);

protected:
    bool viewportEvent(QEvent *event) override;
    /// The edit's menu of cut, copy, paste and the like.
    QMenu *createContextMenu() override;
};
