// SPDX-License-Identifier: MIT
#include <BVLineEdit.h>
#include <BVWidgetsVersion.h>
#include <Presentation_BVWidgets/foundation/BVWidgetStatus.h>

#include <QApplication>
#include <QDebug>

/// Shows that headers, libraries and resources of the installed package fit together; 0 is success.
int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    BVLineEdit edit;
    edit.show();
    BVWidgetStatus::setStatus(&edit, BVWidgetStatus::NeedInput, true);
    const bool marked = edit.property("needInputStatus").toBool();
    qInfo() << "version" << BVWIDGETS_VERSION_STRING << "marked" << marked;
    return marked ? 0 : 1;
}
