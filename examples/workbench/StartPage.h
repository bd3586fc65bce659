// SPDX-License-Identifier: MIT
#pragma once

#include <BVStackStartPage.h>

#include <QList>

#include <functional>

class QAction;

/// The page from which operations are added: a large button for each kind, which flies to where its
/// entry will be.
class StartPage : public BVStackStartPage
{
    Q_OBJECT

public:
    /// Flights are seen over @p sky. @p target says, before each, which point of the sky it goes
    /// to.
    StartPage(QWidget *sky, const std::function<QPoint()> &target, QWidget *parent = nullptr);

    /// By index of OperationKinds.
    const QList<QAction *> &kindActions() const { return m_actions; }

Q_SIGNALS:
    /// An operation of that kind is wanted. Comes at the end of the flight.
    void operationChosen(int kind);

private:
    QAction *createAction(int kind);

    QList<QAction *> m_actions;
};
