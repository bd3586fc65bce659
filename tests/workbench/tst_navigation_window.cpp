// SPDX-License-Identifier: MIT
#include "OperationKinds.h"
#include "OperationList.h"
#include "OperationPage.h"
#include "SetupStack.h"
#include "StartPage.h"
#include "WorkbenchSettings.h"
#include "WorkbenchWindow.h"
#include "XdoTool.h"

#include <BVControlledStackItem.h>
#include <BVControlledStackWidget.h>
#include <BVDragTreeWidget.h>

#include <QAction>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <memory>

namespace {

const QString s_steel = QStringLiteral(":/Setups/square-cup-steel.xml");

} // namespace

/// What the user does to the operations with mouse and keyboard.
class tst_NavigationWindow : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void buttonFliesToItsEntry();
    void rowsAreDragged();
    void rowIsRenamedAndSkipped();

private:
    QWidget *viewport() const { return m_form->stack()->tree()->viewport(); }
    /// The middle of the row of an operation, or of another entry on the top level.
    QPoint row(const BVControlledStackItem *item) const { return m_form->stack()->tree()->visualItemRect(item->treeItem()).center(); }
    BVControlledStackItem *operation(int index) const { return m_form->operationsEntry()->itemAt(index); }
    bool drag(const QPoint &from, const QPoint &to) const;
    QStringList names() const
    {
        QStringList names;
        for (const OperationSetup &operation : m_form->operations()->operations())
            names << operation.name;
        return names;
    }

    QTemporaryDir m_directory;
    std::unique_ptr<WorkbenchWindow> m_window;
    SetupStack *m_form = nullptr;
};

void tst_NavigationWindow::initTestCase()
{
    QVERIFY(m_directory.isValid());
    Preferences::load(m_directory.filePath(QStringLiteral("workbench.ini")));
}

void tst_NavigationWindow::init()
{
    m_window = std::make_unique<WorkbenchWindow>();
    m_window->openExample(s_steel);
    m_form = m_window->form();
    QVERIFY(XdoTool::showActive(m_window.get()));
}

void tst_NavigationWindow::cleanup()
{
    m_window.reset();
}

/// A drag has an event loop of its own, which ends with it; so the button goes up from within.
bool tst_NavigationWindow::drag(const QPoint &from, const QPoint &to) const
{
    bool isOver = false;
    bool succeeded = false;
    QTimer poll;
    poll.callOnTimeout([&] {
        if (isOver || QCursor::pos() != viewport()->mapToGlobal(to))
            return;
        isOver = true;
        succeeded = XdoTool::run({"mouseup", "1"});
    });
    poll.start(10);
    return XdoTool::drag(viewport(), {from, from + QPoint(0, 8), to}, [&] { return QTest::qWaitFor([&] { return isOver; }); }) && succeeded;
}

void tst_NavigationWindow::buttonFliesToItsEntry()
{
    QVERIFY(XdoTool::clickAt(viewport(), row(m_form->operationsEntry())));
    QTRY_VERIFY(m_form->startPage()->isVisible());
    QAction *trim = m_form->startPage()->kindActions().value(OperationKinds::find(QStringLiteral("trim")));
    QVERIFY(XdoTool::click(m_form->startPage()->getWidgetFromAction(trim)));
    QTRY_COMPARE(names(), QStringList({"Draw", "Trim", "Spring-back", "Trim 2"}));
    QVERIFY(operation(3)->isCurrent());
    QVERIFY(XdoTool::typeText(QStringLiteral("7")));
    QVERIFY(XdoTool::pressKey(QStringLiteral("Return")));
    QTRY_COMPARE(m_form->operations()->pages().last()->operation().values.number(0), 7.0);
}

void tst_NavigationWindow::rowsAreDragged()
{
    const QPoint inFront(0, 10); // of a row's middle
    QVERIFY(drag(row(operation(2)), row(operation(1)) - inFront));
    const QStringList moved{"Draw", "Spring-back", "Trim"};
    QTRY_COMPARE(names(), moved);
    for (const QPoint &refused : {row(m_form->stack()->itemAt(1)), row(m_form->stack()->itemAt(1)) - inFront}) {
        QVERIFY(drag(row(operation(2)), refused));
        QVERIFY(drag(row(m_form->stack()->itemAt(0)), row(operation(1)) - inFront));
        QCOMPARE(names(), moved);
        QCOMPARE(m_form->stack()->itemAt(0)->getText(), QStringLiteral("General"));
    }
}

void tst_NavigationWindow::rowIsRenamedAndSkipped()
{
    QVERIFY(XdoTool::clickAt(viewport(), row(operation(1))));
    QVERIFY(XdoTool::pressKey(QStringLiteral("F2")));
    QVERIFY(XdoTool::typeText(QStringLiteral("Cut")));
    QVERIFY(XdoTool::pressKey(QStringLiteral("Return")));
    QTRY_COMPARE(names().value(1), QStringLiteral("Cut"));
    QVERIFY(XdoTool::pressKey(QStringLiteral("space")));
    QTRY_VERIFY(m_form->operations()->pages()[1]->operation().isSkipped);
    QVERIFY(XdoTool::clickAt(viewport(), row(m_form->stack()->itemAt(0))));
    QVERIFY(XdoTool::pressKey(QStringLiteral("F2")));
    QVERIFY(XdoTool::pressKey(QStringLiteral("Delete")));
    QTRY_VERIFY(m_form->stack()->itemAt(0)->isCurrent());
    QCOMPARE(m_form->stack()->itemAt(0)->getText(), QStringLiteral("General"));
}

QTEST_MAIN(tst_NavigationWindow)
#include "tst_navigation_window.moc"
