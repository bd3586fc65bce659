// SPDX-License-Identifier: MIT
#pragma once

#include "BVWidgetsExport.h"

#include <QFrame>
#include <QPointer>

class BVContainerListControl;
class BVControlledStackItem;
class BVControlledStackWidget;
class BVDragTreeWidget;
class BVStackContextHandler;

/// The navigation of a controlled stack: ...
class BVWIDGETS_EXPORT BVStackControllerWidget : public QFrame
{
    Q_OBJECT

public:
    /// Takes the tree over; null makes one.
    BVStackControllerWidget(QWidget *parent, BVDragTreeWidget *tree, bool showToolBar);
    ~BVStackControllerWidget() override;

    /// Never null while the controller lives, unless someone has deleted them.
    BVDragTreeWidget *tree() const;
    BVContainerListControl *listControl() const;

    /// Called by the stack itself.
    BVControlledStackWidget *getControlledStack() const;
    void setControlledStack(BVControlledStackWidget *stack);

    /// The label above the tree; hidden while its text is empty. Made when first asked for.
    QWidget *headerWidget() const;
    QString getHeaderLabel() const;
    void setHeaderLabel(const QString &text, bool alignRight);
    /// Whether the header stays where it is when entries get check boxes.
    bool isHeaderAlignmentFixed() const;
};
