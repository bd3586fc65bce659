// SPDX-License-Identifier: MIT
#include "foundation/MainWindow.h"

#include <QCoreApplication>
#include <QPointer>
#include <QSet>
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
    static QPointer<QCoreApplication> s_application;
    static QSet<QObject *> s_watched; // all that it has held, since it may hold them again
    if (s_application != application)
        s_watched.clear();
    s_application = application;
    if (!window || s_watched.contains(window))
        return;
    s_watched.insert(window);
    QObject::connect(window, &QObject::destroyed, application, [application](QObject *gone) {
        s_watched.remove(gone);
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
