// SPDX-License-Identifier: MIT
#include "FieldEditor.h"
#include "FieldGroup.h"
#include "OperationKinds.h"
#include "OperationList.h"
#include "OperationPage.h"
#include "SetupFile.h"
#include "SetupStack.h"
#include "StartPage.h"
#include "StepHeader.h"
#include "TestSupport.h"
#include "WorkbenchBench.h"
#include "WorkbenchSettings.h"
#include "WorkbenchWindow.h"

#include <BVControlledStackItem.h>
#include <BVControlledStackWidget.h>
#include <BVDragTreeWidget.h>
#include <BVStackAnimationWidget.h>
#include <BVStackControllerWidget.h>

#include <QAbstractButton>
#include <QAction>
#include <QFile>
#include <QMessageBox>
#include <QTemporaryDir>
#include <QTest>

#include <tuple>

namespace {

const QString s_steel = QStringLiteral(":/Setups/square-cup-steel.xml");

struct Bench : WorkbenchBench
{
    BVControlledStackItem *entry(int index) { return form->operationsEntry()->itemAt(index); }
    FieldEditor *field(int page, size_t index) { return this->page(page)->group()->editors()[index]; }
    QStringList names()
    {
        QStringList names;
        for (const OperationSetup &operation : form->operations()->operations())
            names << operation.name;
        return names;
    }
    QAction *action(const char *kind) { return form->startPage()->kindActions().value(OperationKinds::find(QLatin1String(kind))); }
    void type(int page, size_t index, const QString &text) { WorkbenchBench::type(field(page, index), text); }
    bool needsInput(int index) { return entry(index)->getBVWidgetStatus() & BVWidgetStatus::NeedInput; }

    BVDragTreeWidget *tree = form->controller()->tree();
};

} // namespace

class tst_Operations : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void startPageAddsOperation();
    void statusIsLive();
    void operationIsSkipped();
    void operationsAreArranged();
    void roundTrips();
    void refusesFile();

private:
    QTemporaryDir m_directory;
};

void tst_Operations::initTestCase()
{
    muteOffscreenWarnings();
    QVERIFY(m_directory.isValid());
    Preferences::load(m_directory.filePath(QStringLiteral("workbench.ini")));
}

void tst_Operations::startPageAddsOperation()
{
    Bench bench;
    StartPage *start = bench.form->startPage();
    QVERIFY(!start->isVisible());
    bench.form->operationsEntry()->setCurrent();
    QVERIFY(start->isVisible());
    auto *button = qobject_cast<QAbstractButton *>(start->getWidgetFromAction(bench.action("trim")));
    QVERIFY(button);
    button->click();
    start->animationWidget()->endAnimation();
    QTRY_COMPARE(bench.names(), QStringList({"Draw", "Trim", "Spring-back", "Trim 2"}));
    QVERIFY(bench.entry(3)->isCurrent() && bench.page(3)->isVisible() && !start->isVisible());
    QVERIFY(bench.field(3, 0)->edit()->hasFocus());
    QVERIFY(bench.needsInput(3) && bench.window.isWindowModified());
    bench.window.resetAll();
    QCOMPARE(bench.names().size(), 3);
    QVERIFY(!bench.window.isWindowModified());
}

void tst_Operations::statusIsLive()
{
    Bench bench;
    bench.type(0, 0, QStringLiteral("5 kg"));
    QVERIFY(bench.needsInput(0) && !bench.needsInput(1));
    QCOMPARE(bench.form->fieldsNeedingInput(), QStringList("Draw: Blank-holder force"));
    QVERIFY(bench.form->property("needInputStatus").toBool());
    bench.form->stack()->setCurrentIndex(0);
    QTest::keyClick(&bench.window, Qt::Key_F8);
    QVERIFY(bench.entry(0)->isCurrent() && bench.field(0, 0)->edit()->hasFocus());
    bench.type(0, 0, QStringLiteral("25"));
    QVERIFY(!bench.needsInput(0));
    QVERIFY(bench.entry(0)->getBVWidgetStatus() & BVWidgetStatus::StandardChanged);
    QVERIFY(!bench.form->property("needInputStatus").toBool());
}

void tst_Operations::operationIsSkipped()
{
    Bench bench;
    bench.type(0, 0, QStringLiteral("5 kg"));
    bench.tree->setFocus();
    QTest::keyClick(bench.tree, Qt::Key_Space);
    QVERIFY(!bench.entry(0)->checked() && bench.page(0)->operation().isSkipped);
    QVERIFY(!bench.field(0, 0)->edit()->isEnabled());
    QVERIFY(!bench.needsInput(0) && bench.form->fieldsNeedingInput().isEmpty());
    QTest::keyClick(bench.tree, Qt::Key_Space);
    QVERIFY(bench.field(0, 0)->edit()->isEnabled() && bench.needsInput(0));
}

void tst_Operations::operationsAreArranged()
{
    Bench bench;
    bench.entry(2)->setCurrent();
    bench.tree->setFocus();
    QTest::keyClick(bench.tree, Qt::Key_Up, Qt::AltModifier);
    QCOMPARE(bench.names(), QStringList({"Draw", "Spring-back", "Trim"}));
    QVERIFY(bench.window.isWindowModified());
    for (int i = 0; i < 5; ++i) // it stays among the operations
        QTest::keyClick(bench.tree, Qt::Key_Up, Qt::AltModifier);
    QCOMPARE(bench.names(), QStringList({"Spring-back", "Draw", "Trim"}));
    for (const auto &[typed, name] : {std::pair("  After the press ", "After the press"), std::pair(" ", "After the press")}) {
        bench.entry(0)->treeItem()->setText(0, QString::fromLatin1(typed));
        QCOMPARE(bench.entry(0)->getText(), QString::fromLatin1(name));
        QCOMPARE(bench.page(0)->header()->title(), QString::fromLatin1(name));
    }
    bench.form->operations()->remove(bench.entry(1));
    QCOMPARE(bench.names(), QStringList({"After the press", "Trim"}));
    bench.form->operations()->remove(bench.form->stack()->itemAt(0));
    QCOMPARE(bench.form->stack()->itemAt(0)->getText(), QStringLiteral("General"));
}

void tst_Operations::roundTrips()
{
    Bench bench;
    bench.action("flange")->trigger();
    bench.entry(3)->treeItem()->setText(0, QStringLiteral("Flange <1> & \"up\""));
    bench.type(3, 0, QStringLiteral("91.234567"));
    const QString path = m_directory.filePath(QStringLiteral("operations.xml"));
    QVERIFY(!bench.window.saveFile(path)); // two values are missing
    delete bench.window.findChild<QMessageBox *>();
    bench.entry(3)->setCurrent();
    bench.tree->setFocus();
    QTest::keyClick(bench.tree, Qt::Key_Space);
    QTest::keyClick(bench.tree, Qt::Key_Up, Qt::AltModifier);
    QVERIFY(bench.window.saveFile(path));
    QVERIFY(!bench.window.isWindowModified());
    const ProcessSetup saved = bench.form->setup();
    bench.window.newSetup();
    QVERIFY(bench.names().isEmpty());
    QVERIFY(bench.window.openFile(path));
    QVERIFY(bench.form->setup() == saved);
    QCOMPARE(bench.names(), QStringList({"Draw", "Trim", "Flange <1> & \"up\"", "Spring-back"}));
    QVERIFY(!bench.entry(2)->checked() && bench.entry(1)->checked());
    QCOMPARE(bench.page(2)->operation().values.number(0), 91.234567);
}

void tst_Operations::refusesFile()
{
    QFile file(s_steel);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QString good = QString::fromUtf8(file.readAll());
    const std::tuple<QString, QString, QString> rows[] = {
        {"kind=\"draw\"", "kind=\"weld\"", "no kind of operation \"weld\""},
        {"kind=\"draw\"", "", "no kind of operation \"\""},
        {"name=\"Trim\"", "name=\" \"", "no name"},
        {"name=\"Trim\"", "name=\"Trim\" skipped=\"maybe\"", "\"maybe\""},
        {"name=\"Trim\"", "name=\"Trim\" line=\"1\"", "unknown attribute \"line\""},
        {"lineOffset", "gap", "<gap> is not known in <operation>"},
        {"<lineOffset unit=\"mm\">5</lineOffset>", "", "missing: Trim: Line offset"},
        {"<lineOffset", "<lineOffset unit=\"mm\">1</lineOffset><lineOffset", "twice"},
        {"lineOffset unit=\"mm\"", "lineOffset unit=\"kg\"", "does not convert"},
        {"<operations>", "<operations><step/>", "<step> is not known"},
    };
    const QString path = m_directory.filePath(QStringLiteral("bad.xml"));
    for (const auto &[text, bad, reason] : rows) {
        QFile written(path);
        QVERIFY(written.open(QIODevice::WriteOnly));
        written.write(QString(good).replace(text, bad).toUtf8());
        written.close();
        ProcessSetup setup;
        QString error;
        QVERIFY2(!SetupFile::read(path, setup, error) && setup == ProcessSetup(), qPrintable(bad));
        QVERIFY2(error.contains(reason), qPrintable(error));
    }
}

QTEST_MAIN(tst_Operations)
#include "tst_operations.moc"
