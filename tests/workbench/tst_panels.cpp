// SPDX-License-Identifier: MIT
#include "FieldEditor.h"
#include "FieldGroup.h"
#include "FloatingPanel.h"
#include "HardeningCurve.h"
#include "MessageList.h"
#include "OperationKinds.h"
#include "OperationList.h"
#include "OperationPage.h"
#include "OperationTabs.h"
#include "PanelMenu.h"
#include "SetupFields.h"
#include "SetupStack.h"
#include "StartPage.h"
#include "TestSupport.h"
#include "WorkbenchBench.h"
#include "WorkbenchPanels.h"
#include "WorkbenchSettings.h"
#include "WorkbenchWindow.h"

#include <BVControlledStackItem.h>
#include <BVControlledStackWidget.h>
#include <BVDragTreeWidget.h>
#include <BVResizableWidgetHandle.h>
#include <MainWidget.h>
#include <UnitsConfiguration.h>

#include <QAction>
#include <QApplication>
#include <QLineEdit>
#include <QStatusBar>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <cmath>
#include <tuple>

namespace {

int fieldIndex(const char *group, const char *key)
{
    return SetupFields::findField(SetupFields::findGroup(QLatin1String(group)), QLatin1String(key));
}

struct Bench : WorkbenchBench
{
    Bench()
        : WorkbenchBench(QSize(1040, 780))
    {
    }

    BVControlledStackItem *entry(int index) { return form->operations()->entries().value(index); }
    QStringList texts()
    {
        QStringList texts;
        for (int i = 0; i < tabs->count(); ++i)
            texts << tabs->getItemText(i);
        return texts;
    }
    /// Chooses an entry of the current tab's menu.
    void choose(const QString &text)
    {
        QTimer::singleShot(0, &window, [text] {
            auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
            QVERIFY(menu);
            for (QAction *action : menu->actions()) {
                if (action->text() == text)
                    action->trigger();
            }
            menu->close();
        });
        QTest::keyClick(tabs, Qt::Key_Down, Qt::AltModifier);
    }
    QAction *viewAction(const QString &text)
    {
        for (QAction *action : window.panels()->menu()->actions()) {
            if (action->text() == text)
                return action;
        }
        return nullptr;
    }

    OperationTabs *tabs = window.tabs();
    FloatingPanel *messagePanel = window.panels()->messagePanel();
    FloatingPanel *curvePanel = window.panels()->curvePanel();
};

} // namespace

/// The operations as tabs, the messages and the hardening curve.
class tst_Panels : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void tabsFollowEntries();
    void entriesFollowTabs();
    void statesAreChosenAndStored();
    void lawIsPlotted();
    void messagesLeadToFields();
    void panelsFloat();
    void statusTextIsCut();

private:
    QTemporaryDir m_directory;
};

void tst_Panels::initTestCase()
{
    muteOffscreenWarnings();
    QVERIFY(m_directory.isValid());
    Preferences::load(m_directory.filePath(QStringLiteral("workbench.ini")));
}

void tst_Panels::tabsFollowEntries()
{
    Bench bench;
    QCOMPARE(bench.texts(), QStringList({"10 Draw", "20 Trim", "30 Spring-back"}));
    QCOMPARE(bench.tabs->currentIndex(), -1); // another page is in sight
    bench.entry(2)->setCurrent();
    QCOMPARE(bench.tabs->currentIndex(), 2);
    QTest::keyClick(bench.form->stack()->tree(), Qt::Key_Up, Qt::AltModifier);
    QCOMPARE(bench.texts(), QStringList({"10 Draw", "20 Spring-back", "30 Trim"}));
    QCOMPARE(bench.tabs->currentIndex(), 1);
    bench.entry(0)->treeItem()->setText(0, QStringLiteral("Deep draw"));
    bench.form->startPage()->kindActions().constFirst()->trigger();
    bench.form->operations()->remove(bench.entry(1));
    QCOMPARE(bench.texts(), QStringList({"10 Deep draw", "20 Trim", "30 Draw"}));
    QVERIFY(bench.entry(bench.tabs->currentIndex())->isCurrent());
    bench.type(bench.page(0)->group()->editors().front(), QStringLiteral("5 kg"));
    QCOMPARE(bench.tabs->getWidgetStatus(0), BVWidgetStatus::NeedInput);
    bench.entry(0)->setChecked(false);
    QCOMPARE(bench.tabs->getWidgetStatus(0), BVWidgetStatus::Normal);
    QVERIFY(bench.tabs->data(0, BVAnimatedOPTabBar::OperationSkipped).toBool());
    bench.window.newSetup();
    QVERIFY(bench.texts().isEmpty() && !bench.tabs->isVisible());
}

void tst_Panels::entriesFollowTabs()
{
    Bench bench;
    const auto click = [&bench](int tab) {
        QTest::mouseClick(bench.tabs, Qt::LeftButton, {}, bench.tabs->getTabCoordinates(tab));
    };
    click(0);
    QVERIFY(bench.entry(0)->isCurrent() && bench.page(0)->isVisible());
    bench.form->stack()->setCurrentIndex(0);
    click(0); // again, from another page
    QVERIFY(bench.entry(0)->isCurrent());
    bench.tabs->setFocus();
    QTest::keyClick(bench.tabs, Qt::Key_Right);
    QVERIFY(bench.entry(1)->isCurrent());
    QTest::keyClick(bench.tabs, Qt::Key_Delete);
    QCOMPARE(bench.texts(), QStringList({"10 Draw", "20 Spring-back"}));
    QCOMPARE(bench.form->operations()->pages().size(), 2);
    QVERIFY(bench.window.isWindowModified());
}

void tst_Panels::statesAreChosenAndStored()
{
    Bench bench;
    const std::tuple<int, QString, int, bool OperationSetup::*> rows[] = {
        {0, QStringLiteral("&Lock"), BVAnimatedOPTabBar::OperationLocked, &OperationSetup::isLocked},
        {1, QStringLiteral("&Skip"), BVAnimatedOPTabBar::OperationSkipped, &OperationSetup::isSkipped},
        {2, QStringLiteral("&Cycle"), BVAnimatedOPTabBar::OperationCycled, &OperationSetup::isCycled},
    };
    for (const auto &[index, text, role, value] : rows) {
        bench.tabs->setCurrentIndex(index);
        bench.choose(text);
        QVERIFY2(bench.tabs->data(index, role).toBool(), qPrintable(text));
        QVERIFY2(bench.page(index)->operation().*value, qPrintable(text));
    }
    const QString path = m_directory.filePath(QStringLiteral("states.xml"));
    QVERIFY(bench.window.isWindowModified() && bench.window.saveFile(path));
    const ProcessSetup saved = bench.form->setup();
    bench.window.newSetup();
    QVERIFY(bench.window.openFile(path) && bench.form->setup() == saved);
    for (const FieldEditor *editor : bench.page(0)->group()->editors()) {
        QVERIFY(editor->status()->isStandardLocked());
        auto *edit = qobject_cast<QLineEdit *>(editor->edit());
        QVERIFY((edit ? edit : editor->edit()->findChild<QLineEdit *>())->isReadOnly());
    }
    bench.type(bench.page(0)->group()->editors().front(), QStringLiteral("25"));
    QVERIFY(bench.form->setup() == saved);
    bench.tabs->setCurrentIndex(0);
    bench.choose(QStringLiteral("&Lock"));
    bench.type(bench.page(0)->group()->editors().front(), QStringLiteral("25"));
    QCOMPARE(bench.page(0)->operation().values.number(0), 25.0);
}

void tst_Panels::lawIsPlotted()
{
    const std::tuple<double, int, double, int> rows[] = {
        {0.5, 5, 0.1, 5}, {0.5, 3, 0.2, 3}, {473.0, 10, 50.0, 10}, {473.0, 1, 500.0, 1},
        {1.0, 1, 1.0, 1}, {7e-7, 4, 2e-7, 4}, {-1.0, 2, 0.5, 2},   {qQNaN(), 0, 1.0, 1},
    };
    for (const auto &[maximum, mostSteps, step, steps] : rows) {
        const AxisScale scale(maximum, mostSteps);
        QCOMPARE(scale.step, step);
        QCOMPARE(scale.steps, steps);
    }
    Bench bench;
    const HardeningLaw &law = bench.window.panels()->curve()->law();
    const std::vector<QPointF> points = law.curve(0.5, 3);
    QCOMPARE(points.size(), size_t(3));
    QCOMPARE(points[0], QPointF(0.0, 157.1281635718857));
    QCOMPARE(points[1], QPointF(0.125, 565.32 * std::pow(0.132117, 0.2589)));
    QCOMPARE(points[2].x(), 0.5);
    bench.type(bench.form->editor(fieldIndex("material", "hardeningExponent")), QStringLiteral("0"));
    QCOMPARE(law.stress(0.3), 565.32);
    bench.type(bench.form->editor(fieldIndex("material", "prestrain")), QString());
    bench.window.newSetup();
    QVERIFY(law.curve(0.5, 3).empty());
    QVERIFY(bench.window.panels()->curve()->hint().contains(QStringLiteral("Prestrain")));
}

void tst_Panels::messagesLeadToFields()
{
    Bench bench;
    MessageList *messages = bench.window.panels()->messages();
    QCOMPARE(messages->problemCount(), 0);
    QVERIFY(messages->item(0)->text().contains(QStringLiteral("square-cup-steel.xml")));
    FieldEditor *gap = bench.form->editor(fieldIndex("tools", "gap"));
    FieldEditor *angle = bench.page(1)->group()->editors()[1];
    bench.type(gap, QStringLiteral("3"));
    bench.type(angle, QStringLiteral("5 kg"));
    QTRY_COMPARE(messages->problemCount(), 2);
    QCOMPARE(messages->item(0)->text(), QStringLiteral("Trim: Cutting angle needs input."));
    QVERIFY(messages->item(1)->text().endsWith(QStringLiteral("2 mm.")));
    for (FieldEditor *editor : {angle, gap}) {
        const int row = editor == angle ? 0 : 1;
        Q_EMIT messages->itemActivated(messages->item(row));
        QVERIFY(editor->edit()->isVisible() && editor->edit()->hasFocus());
    }
    bench.window.resetAll();
    QCOMPARE(messages->problemCount(), 0);
}

void tst_Panels::panelsFloat()
{
    {
        Bench bench;
        QTRY_VERIFY(bench.viewAction(QStringLiteral("Message panel")));
        QAction *curve = bench.viewAction(QStringLiteral("Material curve"));
        QVERIFY(curve && !curve->isChecked());
        curve->trigger(); // on a page that is not in sight
        QTRY_VERIFY(bench.curvePanel->isFloating() && bench.curvePanel->isVisible());
        QVERIFY(curve->isChecked() && bench.curvePanel->isEnlarged());
        curve->trigger();
        QVERIFY(!curve->isChecked() && !bench.curvePanel->isFloating());
        bench.messagePanel->toggle(); // though its place is not in the room for panels
        QVERIFY(bench.messagePanel->isFloating());
        bench.messagePanel->toggle();
        bench.messagePanel->verticalHandle()->moveBy(QSize(0, 150));
        QVERIFY(bench.messagePanel->isFloating());
        QVERIFY(bench.viewAction(QStringLiteral("Message panel"))->isChecked());
        QTRY_VERIFY(!bench.messagePanel->mainWidget()->isAnimating());
        QVERIFY(bench.window.close());
    }
    Preferences::load(m_directory.filePath(QStringLiteral("workbench.ini")));
    Bench bench;
    QTRY_VERIFY(bench.messagePanel->isFloating());
    QVERIFY(bench.messagePanel->height() > 150 && !bench.curvePanel->isFloating());
    bench.messagePanel->toggle();
    QVERIFY(!bench.messagePanel->isFloating());
    QVERIFY(bench.window.close());
}

void tst_Panels::statusTextIsCut()
{
    Bench bench;
    bench.window.resize(640, 600);
    UnitsConfiguration::instance().setCurrentUnit(UnitsConfiguration::Length, QStringLiteral("inch"));
    QTRY_VERIFY(bench.window.statusBar()->currentMessage().endsWith(QChar(0x2026)));
    QVERIFY(bench.window.statusBar()->toolTip().startsWith(QStringLiteral("Units: inch, ")));
    UnitsConfiguration::instance().setCurrentUnit(UnitsConfiguration::Length, QStringLiteral("mm"));
}

QTEST_MAIN(tst_Panels)
#include "tst_panels.moc"
