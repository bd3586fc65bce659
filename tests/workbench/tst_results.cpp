// SPDX-License-Identifier: MIT
#include "OperationsPage.h"
#include "ResultsDelegate.h"
#include "ResultsModel.h"
#include "ResultsPage.h"
#include "TestSupport.h"
#include "WorkbenchWindow.h"

#include <BVCheckBox.h>
#include <BVContainerListControl.h>
#include <BVCustomHeaderView.h>
#include <BVDragTreeWidget.h>
#include <BVLabel.h>
#include <BVLineEdit.h>
#include <BVTextEdit.h>
#include <BVTreeView.h>
#include <BVWidgetStatus.h>
#include <UnitsConfiguration.h>

#include <QAbstractButton>
#include <QAbstractItemModelTester>
#include <QTest>

namespace {

/// A cell of the view's model, by the rows that lead to it.
QModelIndex cell(const BVTreeView *view, const QVector<int> &rows, int column)
{
    QModelIndex index;
    for (const int row : rows)
        index = view->model()->index(row, 0, index);
    return index.sibling(index.row(), column);
}

const QVector<int> s_lastDrawing = {2, 7};
const QVector<int> s_thickness = {2, 7, 0};

QString shown(const BVTreeView *view, const QVector<int> &rows, int column)
{
    const auto *delegate = static_cast<const ResultsDelegate *>(view->itemDelegate());
    return delegate->getDisplayedText(cell(view, rows, column));
}

} // namespace

class tst_Results : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { muteOffscreenWarnings(); }
    void cleanup() { UnitsConfiguration::instance().setDefaultValues(); }

    void dataIsPlausible();
    void showsChosenUnits();
    void judgesChangedLimit();
    void headerBoxChecksAllRows();
    void sortsByValueAndByProcess();
    void filters();
    void longRunIsWhole();
    void copiesWhatIsShown();
    void operationsAreExchanged();
};

void tst_Results::dataIsPlausible()
{
    QCOMPARE(ResultsData::rowCount(ResultsData::cup()), 175);
    for (const ResultOperations &operations : {ResultsData::cup(), ResultsData::longRun()}) {
        for (const ResultOperation &operation : operations) {
            double before = 0.0;
            for (const ResultStep &step : operation.steps) {
                QVERIFY(step.position > before);
                before = step.position;
                for (const ResultRange &range : step.ranges)
                    QVERIFY2(range.minimum <= range.maximum, qPrintable(operation.name));
            }
        }
    }
}

void tst_Results::showsChosenUnits()
{
    ResultsPage page;
    const BVTreeView *view = page.view();
    const std::tuple<QVector<int>, int, QString, QString> rows[] = {
        {s_lastDrawing, ResultsModel::Result, "40 mm stroke", "1.575 inch stroke"},
        {{4, 2}, ResultsModel::Result, "0.3 s", "0.3 s"},
        {s_thickness, ResultsModel::Limit, "0.620 mm", "0.0244 inch"},
        {{2, 7, 7}, ResultsModel::Minimum, "20.0\u00b0C", "68.0\u00b0F"},
        {{2, 7, 3}, ResultsModel::Limit, "", ""},
    };
    for (const auto &[row, column, before, after] : rows)
        QCOMPARE(shown(view, row, column), before);
    UnitsConfiguration::instance().setCurrentUnit(UnitsConfiguration::Length, "inch");
    UnitsConfiguration::instance().setCurrentUnit(UnitsConfiguration::Temperature, "degF");
    for (const auto &[row, column, before, after] : rows)
        QCOMPARE(shown(view, row, column), after);
}

void tst_Results::judgesChangedLimit()
{
    ResultsPage page;
    const QModelIndex limit = cell(page.view(), {2, 0, 0}, ResultsModel::Limit);
    const QModelIndex step = limit.parent();
    const QString before = page.model()->summary();
    const std::tuple<double, BVWidgetStatus::Stati, BVWidgetStatus::Stati> rows[] = {
        {0.9, BVWidgetStatus::NeedInput, BVWidgetStatus::UserEdit},
        {0.74, BVWidgetStatus::StandardChanged, BVWidgetStatus::UserEdit},
        {0.62, BVWidgetStatus::Normal, BVWidgetStatus::Normal},
    };
    for (const auto &[value, status, limitStatus] : rows) {
        QVERIFY(page.view()->model()->setData(limit, value));
        QTRY_COMPARE(getWidgetStatus(step), status);
        QCOMPARE(getWidgetStatus(limit), limitStatus);
        const QModelIndex minimum = limit.sibling(limit.row(), ResultsModel::Minimum);
        QCOMPARE(getWidgetStatus(minimum), status);
        QCOMPARE(minimum.data(Qt::ToolTipRole).toString().isEmpty(), status == BVWidgetStatus::Normal);
        QCOMPARE(page.model()->summary() == before, status != BVWidgetStatus::NeedInput);
    }
}

void tst_Results::headerBoxChecksAllRows()
{
    ResultsPage page;
    auto *header = qobject_cast<BVCustomHeaderView *>(page.view()->header());
    QVERIFY(header);
    QTRY_COMPARE(header->checkState(ResultsModel::Show), Qt::Checked);
    const QModelIndex thickness = cell(page.view(), s_thickness, ResultsModel::Show);
    QVERIFY(page.view()->model()->setData(thickness, Qt::Unchecked, Qt::CheckStateRole));
    QCOMPARE(thickness.parent().parent().siblingAtColumn(ResultsModel::Show).data(Qt::CheckStateRole).toInt(), int(Qt::PartiallyChecked));
    QTRY_COMPARE(header->checkState(ResultsModel::Show), Qt::PartiallyChecked);
    for (const bool checked : {true, false}) {
        QVERIFY(header->setChecked(checked, ResultsModel::Show));
        for (const BVTreeViewItem *item : page.model()->getAllItems())
            QCOMPARE(item->data(ResultsModel::Show, Qt::CheckStateRole).toInt(), checked ? int(Qt::Checked) : int(Qt::Unchecked));
    }
}

void tst_Results::sortsByValueAndByProcess()
{
    ResultsPage page;
    const BVTreeView *view = page.view();
    page.view()->sortByColumn(ResultsModel::Maximum, Qt::DescendingOrder);
    double before = 1.0e9;
    for (int row = 0; row < 10; ++row) {
        const double value = cell(view, {2, 0, row}, ResultsModel::Maximum).data().toDouble();
        QVERIFY(value <= before);
        before = value;
    }
    page.view()->sortByColumn(ResultsModel::Result, Qt::AscendingOrder);
    QCOMPARE(shown(view, {2}, 0), QStringLiteral("Drawing"));
    QCOMPARE(shown(view, s_thickness, 0), QStringLiteral("Thickness"));
}

void tst_Results::filters()
{
    ResultsPage page;
    const BVTreeView *view = page.view();
    const QAbstractItemModelTester tester(view->model(), QAbstractItemModelTester::FailureReportingMode::Fatal);
    page.filterEdit()->setText(QStringLiteral("STRAIN"));
    QCOMPARE(view->model()->rowCount(), 5);
    QCOMPARE(view->model()->rowCount(cell(view, {2, 0}, 0)), 3);
    page.onlyBeyondBox()->setChecked(true);
    QCOMPARE(shown(view, {0}, 0), QStringLiteral("Drawing"));
    QCOMPARE(shown(view, {0, 0, 0}, 0), QStringLiteral("Major strain"));
    page.filterEdit()->setText(QStringLiteral("?"));
    QCOMPARE(view->model()->rowCount(), 0);
    // The toolkit leaks the animation of a clear button that dies while it fades in.
    const auto *clear = page.filterEdit()->findChild<QAbstractButton *>();
    QTRY_COMPARE(clear->property("opacity").toDouble(), 1.0);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void tst_Results::longRunIsWhole()
{
    WorkbenchWindow window;
    ResultsPage *page = window.results();
    window.showPageOf(page->view());
    QVERIFY(page->isVisibleTo(&window));
    page->loadLongRun();
    QCOMPARE(page->model()->childCount(), ResultsData::s_longRunRows);
    QVERIFY(page->model()->summary().startsWith(QStringLiteral("100,000 rows")));
    page->loadCup();
    QCOMPARE(page->model()->childCount(), 175);
    window.showPageOf(window.operations());
    QVERIFY(!page->isVisibleTo(&window));
}

void tst_Results::copiesWhatIsShown()
{
    ResultsPage page;
    page.show();
    QVERIFY(QTest::qWaitForWindowActive(&page));
    page.view()->expand(cell(page.view(), s_lastDrawing, 0));
    page.view()->setFocus();
    page.view()->setCurrentIndex(cell(page.view(), s_lastDrawing, 0));
    QTest::keyClick(page.view(), Qt::Key_Down, Qt::ShiftModifier);
    QTest::keyClick(page.view(), Qt::Key_C, Qt::ControlModifier);
    page.pasteEdit()->setFocus();
    QTest::keyClick(page.pasteEdit(), Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(page.pasteEdit()->toPlainText(), QStringLiteral("Result\tMinimum\tMaximum\tLimit\n"
                                                             "40 mm stroke\t\t\t\n"
                                                             "Thickness\t0.617 mm\t0.874 mm\t0.620 mm"));
}

void tst_Results::operationsAreExchanged()
{
    OperationsPage page;
    page.show();
    QVERIFY(QTest::qWaitForWindowActive(&page));
    BVContainerListControl *plan = page.plan();
    BVContainerListControl *available = page.available();
    const QString heating = available->topLevelItem(0)->text(0);
    available->tree()->setFocus();
    available->setCurrentItem(available->topLevelItem(0));
    QTest::keyClick(available->tree(), Qt::Key_Right, Qt::AltModifier);
    QCOMPARE(plan->topLevelItemCount(), 6);
    QVERIFY(plan->tree()->hasFocus());
    plan->setCurrentItem(plan->topLevelItem(5));
    QTest::keyClick(plan->tree(), Qt::Key_Up, Qt::AltModifier);
    QCOMPARE(plan->topLevelItem(4)->text(0), heating);
    QVERIFY(page.summary()->text().contains(heating));
    plan->removeSelected();
    QCOMPARE(available->topLevelItem(available->topLevelItemCount() - 1)->text(0), heating);
    QVERIFY(!page.summary()->text().contains(heating));
}

QTEST_MAIN(tst_Results)
#include "tst_results.moc"
