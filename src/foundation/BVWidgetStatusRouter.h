// SPDX-License-Identifier: MIT
#pragma once

#include "BVWidgetsExport.h"

#include "foundation/BVWidgetStatus.h"

#include <QObject>
#include <QPointer>

class QWidget;

/// Makes one widget follow the status changes of another, such as a label those of the edit it
/// describes.
///
/// The router sends the receiver the sender's change events; it writes no status. A receiver that
/// shows what it is told installs a BVWidgetStatusPropertyDispatcher on itself. The events no
/// longer reach the sender's own handlers and event().
class BVWIDGETS_EXPORT BVWidgetStatusRouter : public QObject
{
    Q_OBJECT

public:
    /// Routes @p sender's changes to @p receiver in place of those of an earlier sender. The router
    /// belongs to the receiver. Null, and one widget given twice, are ignored.
    static void route(QWidget *receiver, QWidget *sender);

    bool eventFilter(QObject *watched, QEvent *event) override;

private Q_SLOTS:
    void onSenderDeleted();

private:
    BVWidgetStatusRouter(QWidget *receiver, QWidget *sender);
    void sendToReceiver(BVWidgetStatus::Stati oldStatus, BVWidgetStatus::Stati status);

    QPointer<QWidget> m_receiver;
    QPointer<QWidget> m_sender;
};
