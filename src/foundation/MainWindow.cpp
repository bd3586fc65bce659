// SPDX-License-Identifier: MIT
#include "foundation/MainWindow.h"

#include <QCoreApplication>
#include <QPointer>
#include <QVariant>
#include <QWidget>

namespace Brimvale {

namespace {

constexpr char s_property[] = "MainWindow";

QObject *propertyOf(const QCoreApplication *application)
{
    return application->property(s_property).value<QObject *>();
}

/// Empties the property when the window goes that it holds, since others read it too.
void watch(QCoreApplication *application, QObject *window)
{
    static QPointer<QObject> s_watched;
    static QPointer<QObject> s_watcher;
    if (!window || (window == s_watched && s_watcher))
        return;
    delete s_watcher;
    s_watched = window;
    s_watcher = new QObject(application);
    QObject::connect(window, &QObject::destroyed, s_watcher, [application](QObject *gone) {
        if (propertyOf(application) == gone)
            application->setProperty(s_property, QVariant());
    });
}

} // namespace

QWidget *mainWindow()
{
    QCoreApplication *application = QCoreApplication::instance();
    QObject *window = application ? propertyOf(application) : nullptr;
    watch(application, window);
    return qobject_cast<QWidget *>(window);
}

} // namespace Brimvale
