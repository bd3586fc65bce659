// SPDX-License-Identifier: MIT
#include "platform/RepolishOnShow_p.h"

#include "platform/PropertyChangeFilter.h"

#include <QEvent>
#include <QWidget>

void RepolishOnShow::ask(QWidget *window)
{
    if (!window->findChild<RepolishOnShow *>(QString(), Qt::FindDirectChildrenOnly))
        new RepolishOnShow(window);
}

bool RepolishOnShow::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == parent() && event->type() == QEvent::Show) {
        setParent(nullptr); // a change from here on asks anew
        watched->removeEventFilter(this);
        deleteLater();
        PropertyChangeFilter::repolish(static_cast<QWidget *>(watched), true);
    }
    return false;
}

RepolishOnShow::RepolishOnShow(QWidget *window)
    : QObject(window)
{
    window->installEventFilter(this);
}
