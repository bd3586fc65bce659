// SPDX-License-Identifier: MIT
#include "OperationsPage.h"
#include "ResultsModel.h"
#include "ResultsPage.h"
#include "Tour.h"
#include "TourHands.h"
#include "WorkbenchWindow.h"

#include <BVCheckBox.h>
#include <BVContainerListControl.h>
#include <BVCustomHeaderView.h>
#include <BVDragTreeWidget.h>
#include <BVItemDelegate.h>
#include <BVLineEdit.h>
#include <BVTextEdit.h>
#include <BVTreeView.h>
#include <BVWidgetStatus.h>

#include <QApplication>

using namespace TourHands;

namespace {

constexpr int s_drawing = 2;  // row of the operation
constexpr int s_lastStep = 7; // its row in the operation

/// A cell of the results, by the rows that lead to it.
QModelIndex cell(const BVTreeView *view, const QVector<int> &rows, int column)
{
    QModelIndex index;
    for (const int row : rows)
        index = view->model()->index(row, 0, index);
    return index.sibling(index.row(), column);
}

QString shownText(const BVTreeView *view, const QModelIndex &index)
{
    return static_cast<BVItemDelegate *>(view->itemDelegate())->getDisplayedText(index);
}

void typeText(const QString &text)
{
    for (const QChar c : text)
        sendKey(QApplication::focusWidget(), c.toUpper().unicode(), QString(c));
    settle();
}

} // namespace

bool Tour::showResults()
{
    m_window.resize(s_windowSize);
    m_window.showPageOf(m_window.results());
    BVTreeView *view = m_window.results()->view();
    const QModelIndex drawing = cell(view, {s_drawing}, 0);
    view->expand(drawing);
    view->expand(cell(view, {s_drawing, s_lastStep}, 0));
    view->setFocus(Qt::TabFocusReason);
    const QModelIndex thickness = cell(view, {s_drawing, s_lastStep, 0}, ResultsModel::Minimum);
    return expect(getWidgetStatus(thickness).testFlag(BVWidgetStatus::NeedInput),
                  QStringLiteral("the thinnest place is beyond its limit")) &&
           expect(shownText(view, cell(view, {s_drawing, s_lastStep}, 0)) ==
                      QStringLiteral("40 mm stroke"),
                  QStringLiteral("a step shows its stroke")) &&
           picture(QStringLiteral("results"));
}

bool Tour::changeLimit()
{
    BVTreeView *view = m_window.results()->view();
    const QModelIndex limit = cell(view, {s_drawing, s_lastStep - 1, 0}, ResultsModel::Limit);
    view->setCurrentIndex(limit);
    sendKey(view, Qt::Key_F2);
    typeText(QStringLiteral("0.03inch"));
    if (!picture(QStringLiteral("limit_typed")))
        return false;
    sendKey(QApplication::focusWidget(), Qt::Key_Return, QStringLiteral("\r"));
    const QModelIndex minimum = limit.sibling(limit.row(), ResultsModel::Minimum);
    return expect(becomes(
                      [&minimum] { return getWidgetStatus(minimum) == BVWidgetStatus::NeedInput; }),
                  QStringLiteral("the value is beyond the new limit")) &&
           expect(shownText(view, limit) == QStringLiteral("0.762 mm"),
                  QStringLiteral("the limit shows what was typed")) &&
           picture(QStringLiteral("limit_changed"));
}

bool Tour::uncheckResults()
{
    BVTreeView *view = m_window.results()->view();
    view->setCurrentIndex(cell(view, {s_drawing, s_lastStep, 3}, ResultsModel::Show));
    sendKey(view, Qt::Key_Space, QStringLiteral(" "));
    const auto *header = qobject_cast<BVCustomHeaderView *>(view->header());
    return expect(header && becomes([header] {
                      return header->checkState(ResultsModel::Show) == Qt::PartiallyChecked;
                  }),
                  QStringLiteral("the header's box is partially checked")) &&
           picture(QStringLiteral("results_unchecked"));
}

bool Tour::copyResults()
{
    ResultsPage *page = m_window.results();
    page->view()->setCurrentIndex(cell(page->view(), {s_drawing, s_lastStep, 0}, 0));
    for (int i = 0; i < 5; ++i)
        sendKey(page->view(), Qt::Key_Down, QString(), Qt::ShiftModifier);
    sendKey(page->view(), Qt::Key_C, QString(), Qt::ControlModifier);
    page->pasteEdit()->setFocus(Qt::TabFocusReason);
    sendKey(page->pasteEdit(), Qt::Key_V, QString(), Qt::ControlModifier);
    return expect(page->pasteEdit()->toPlainText().count(QLatin1Char('\n')) == 6,
                  QStringLiteral("six rows and the header are pasted")) &&
           picture(QStringLiteral("results_copied"));
}

bool Tour::openContextMenu()
{
    BVTreeView *view = m_window.results()->view();
    const QRect row = view->visualRect(cell(view, {s_drawing, s_lastStep, 2}, 0));
    const QPixmap menu = withContextMenu(&m_window, view->viewport(), row.center());
    return expect(!menu.isNull(), QStringLiteral("a context menu opens")) &&
           write(QStringLiteral("context_menu"), menu);
}

bool Tour::searchResults()
{
    ResultsPage *page = m_window.results();
    page->onlyBeyondBox()->setChecked(true);
    page->filterEdit()->setFocus(Qt::TabFocusReason);
    typeText(QStringLiteral("th"));
    waitForClearButton(page->filterEdit());
    const bool shown = expect(page->view()->model()->rowCount() == 3,
                              QStringLiteral("three operations hold what is searched")) &&
                       picture(QStringLiteral("results_searched"));
    page->filterEdit()->clear();
    waitForClearButton(page->filterEdit());
    page->onlyBeyondBox()->setChecked(false);
    return shown;
}

bool Tour::loadLongRun()
{
    ResultsPage *page = m_window.results();
    page->loadLongRun();
    return expect(page->model()->childCount() == ResultsData::s_longRunRows,
                  QStringLiteral("the long run has all its rows")) &&
           picture(QStringLiteral("long_run"));
}

bool Tour::planOperation()
{
    OperationsPage *page = m_window.operations();
    m_window.showPageOf(page);
    BVDragTreeWidget *available = page->available()->tree();
    available->setFocus(Qt::TabFocusReason);
    page->available()->setCurrentItem(page->available()->topLevelItem(0));
    page->plan()->setCurrentItem(page->plan()->topLevelItem(1));
    if (!picture(QStringLiteral("operations")))
        return false;
    sendKey(available, Qt::Key_Right, QString(), Qt::AltModifier);
    return expect(page->plan()->topLevelItem(2)->text(0) == QStringLiteral("Heating"),
                  QStringLiteral("the operation is behind the current one of the plan")) &&
           picture(QStringLiteral("operation_planned"));
}
