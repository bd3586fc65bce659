// SPDX-License-Identifier: MIT
#pragma once

#include "FieldEditor.h"
#include "OperationList.h"
#include "SetupStack.h"
#include "WorkbenchWindow.h"

#include <QCoreApplication>
#include <QTest>

/// The main window with the steel set-up, shown and active.
struct WorkbenchBench
{
    /// An invalid size is the window's own.
    explicit WorkbenchBench(const QSize &size = QSize())
    {
        if (size.isValid())
            window.resize(size);
        window.openExample(QStringLiteral(":/Setups/square-cup-steel.xml"));
        window.show();
        QVERIFY(QTest::qWaitForWindowActive(&window));
    }

    OperationPage *page(int index) { return form->operations()->pages().value(index); }
    void type(FieldEditor *editor, const QString &text)
    {
        window.showPageOf(editor->edit());
        editor->edit()->setFocus();
        editor->selectAll();
        QTest::keyClicks(editor->edit(), text);
        QTest::keyClick(editor->edit(), Qt::Key_Return);
        QCoreApplication::processEvents();
    }

    WorkbenchWindow window;
    SetupStack *form = window.form();
};
