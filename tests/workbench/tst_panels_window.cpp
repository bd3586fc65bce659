// SPDX-License-Identifier: MIT
#include "FloatingPanel.h"
#include "OperationList.h"
#include "OperationPage.h"
#include "OperationTabs.h"
#include "SetupFields.h"
#include "SetupStack.h"
#include "WorkbenchPanels.h"
#include "WorkbenchSettings.h"
#include "WorkbenchWindow.h"
#include "XdoTool.h"

#include <BVControlledStackItem.h>
#include <BVResizableWidgetHandle.h>
#include <MainWidget.h>

#include <QMenu>
#include <QTemporaryDir>
#include <QTest>

#include <memory>
#include <tuple>

/// What the user does to tabs and panels with mouse and keyboard.
class tst_PanelsWindow : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void tabIsLockedAndClosed();
    void panelsAreDragged();

private:
    QTemporaryDir m_directory;
    std::unique_ptr<WorkbenchWindow> m_window;
    OperationList *m_operations = nullptr;
};

void tst_PanelsWindow::initTestCase()
{
    QVERIFY(m_directory.isValid());
    Preferences::load(m_directory.filePath(QStringLiteral("workbench.ini")));
}

void tst_PanelsWindow::init()
{
    m_window = std::make_unique<WorkbenchWindow>();
    m_window->resize(1040, 780);
    m_window->openExample(QStringLiteral(":/Setups/square-cup-steel.xml"));
    m_operations = m_window->form()->operations();
    QVERIFY(XdoTool::showActive(m_window.get()));
}

void tst_PanelsWindow::cleanup()
{
    m_window.reset();
}

void tst_PanelsWindow::tabIsLockedAndClosed()
{
    OperationTabs *tabs = m_window->tabs();
    QVERIFY(XdoTool::clickAt(tabs, tabs->getTabCoordinates(1)));
    QTRY_VERIFY(m_operations->pages()[1]->isVisible());
    const auto open = [] { return XdoTool::pressKey(QStringLiteral("alt+Down")); };
    const auto lock = [](QMenu *menu) { return XdoTool::clickAt(menu, menu->actionGeometry(menu->actions()[1]).center()); };
    tabs->setFocus();
    QVERIFY(XdoTool::inMenu(open, lock));
    QTRY_VERIFY(m_operations->pages()[1]->operation().isLocked);
    QVERIFY(XdoTool::pressKey(QStringLiteral("Delete")));
    QTRY_COMPARE(tabs->count(), 2);
    QCOMPARE(m_operations->pages().size(), 2);
    QCOMPARE(tabs->getItemText(1), QStringLiteral("20 Spring-back"));
}

void tst_PanelsWindow::panelsAreDragged()
{
    m_window->showPageOf(m_window->form()->page(SetupFields::findGroup(QStringLiteral("material"))));
    FloatingPanel *messages = m_window->panels()->messagePanel();
    FloatingPanel *curve = m_window->panels()->curvePanel();
    QTRY_VERIFY(curve->isVisible());
    const std::tuple<FloatingPanel *, BVResizableWidgetHandle *, QPoint> rows[] = {
        {messages, messages->verticalHandle(), QPoint(0, -150)},
        {curve, curve->diagonalHandle(), QPoint(-120, 60)},
    };
    for (const auto &[panel, handle, distance] : rows) {
        const QSize before = panel->size();
        const QPoint middle = handle->rect().center();
        const QPoint end = handle->mapToGlobal(middle + distance);
        QVERIFY(XdoTool::drag(m_window.get(), {m_window->mapFromGlobal(end - distance), m_window->mapFromGlobal(end)}));
        QTRY_VERIFY(panel->isFloating() && !panel->mainWidget()->isAnimating());
        QCOMPARE(panel->height(), before.height() + std::abs(distance.y()));
        panel->toggle();
        QTRY_COMPARE(panel->size(), before);
    }
}

QTEST_MAIN(tst_PanelsWindow)
#include "tst_panels_window.moc"
