// SPDX-License-Identifier: MIT
#include "foundation/MainWindow.h"

#include <QCoreApplication>
#include <QVariant>
#include <QWidget>

namespace Brimvale {

QWidget *mainWindow()
{
    const QCoreApplication *application = QCoreApplication::instance();
    return application
               ? qobject_cast<QWidget *>(application->property("MainWindow").value<QObject *>())
               : nullptr;
}

} // namespace Brimvale
