// SPDX-License-Identifier: MIT
#include "ResultsPage.h"

#include "ResultsDelegate.h"
#include "ResultsFilter.h"
#include "ResultsModel.h"

#include <BVCheckBox.h>
#include <BVLabel.h>
#include <BVLineEdit.h>
#include <BVPushButton.h>
#include <BVTextEdit.h>
#include <BVTreeView.h>
#include <TreeViewCopyHandler.h>

#include <QEvent>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QSplitter>
#include <QVBoxLayout>

namespace {

constexpr int s_margin = 8;          // px
constexpr int s_spacing = 6;         // px
constexpr int s_numberWidth = 13;    // characters of a column with numbers
constexpr int s_showWidth = 9;       // characters of the column with check boxes
constexpr int s_tabWidth = 20;       // characters between tab stops
constexpr int s_pasteHeight = 134;   // px
constexpr int s_expandLimit = 20000; // rows up to which all of a filtered tree are opened

int textWidth(const QWidget *widget, int characters)
{
    return characters * widget->fontMetrics().horizontalAdvance(QLatin1Char('0'));
}

} // namespace

ResultsPage::ResultsPage(QWidget *parent)
    : QWidget(parent)
    , m_model(new ResultsModel(this))
    , m_filter(new ResultsFilter(this))
    , m_view(new BVTreeView(this))
    , m_filterEdit(new BVLineEdit(this))
    , m_onlyBeyond(new BVCheckBox(tr("Only beyond limits"), this))
    , m_paste(new BVTextEdit(this))
    , m_summary(new BVLabel(this))
{
    setUpView();
    auto *splitter = new QSplitter(Qt::Vertical, this);
    splitter->setChildrenCollapsible(false);
    splitter->addWidget(m_view);
    splitter->addWidget(createPasteField());
    splitter->setStretchFactor(0, 1);
    splitter->setSizes({s_pasteHeight * 10, s_pasteHeight});
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(s_margin, s_margin, s_margin, s_margin);
    layout->setSpacing(s_spacing);
    layout->addWidget(createTools());
    layout->addWidget(splitter, 1);
    connect(m_model, &ResultsModel::summaryChanged, this, &ResultsPage::updateSummary);
    loadCup();
}

QWidget *ResultsPage::createTools()
{
    auto *tools = new QWidget(this);
    m_filterEdit->setPlaceholderText(tr("Search results"));
    m_filterEdit->setClearButtonEnabled(true);
    m_filterEdit->setMaximumWidth(textWidth(this, 40));
    auto *cup = new BVPushButton(tr("Load one &cup"), tools);
    auto *longRun = new BVPushButton(tr("Load a &long run"), tools);
    auto *layout = new QHBoxLayout(tools);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_filterEdit, 1);
    layout->addWidget(m_onlyBeyond);
    layout->addStretch();
    layout->addWidget(cup);
    layout->addWidget(longRun);
    connect(m_filterEdit, &QLineEdit::textChanged, this, &ResultsPage::filter);
    connect(m_onlyBeyond, &QCheckBox::toggled, this, &ResultsPage::filter);
    connect(cup, &QPushButton::clicked, this, &ResultsPage::loadCup);
    connect(longRun, &QPushButton::clicked, this, &ResultsPage::loadLongRun);
    return tools;
}

QWidget *ResultsPage::createPasteField()
{
    auto *field = new QWidget(this);
    auto *title = new BVLabel(tr("&Paste here what you have copied above:"), field);
    title->setProperty("hint", true);
    title->setBuddy(m_paste);
    m_summary->setProperty("hint", true);
    auto *line = new QHBoxLayout;
    line->addWidget(title);
    line->addStretch();
    line->addWidget(m_summary);
    m_paste->setAcceptRichText(false);
    m_paste->setLineWrapMode(QTextEdit::NoWrap);
    m_paste->setMinimumHeight(s_pasteHeight);
    auto *layout = new QVBoxLayout(field);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(2);
    layout->addLayout(line);
    layout->addWidget(m_paste);
    setTabStops();
    return field;
}

void ResultsPage::setUpView()
{
    m_filter->setSourceModel(m_model);
    m_view->setModel(m_filter);
    m_view->setItemDelegate(new ResultsDelegate(m_view));
    m_view->setUniformRowHeights(true);
    m_view->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_view->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::SelectedClicked |
                            QAbstractItemView::EditKeyPressed);
    m_view->setShowGrid(true);
    m_view->enableCopySelectedAction(true);
    m_view->enableCopyAllAction(true);
    m_view->getCopyHandler()->setUseFormattedValues(true);
    m_view->getCopyHandler()->setHtmlEnabled(true);
    m_view->getCopyHandler()->setIgnoredColumns({ResultsModel::Show});
    m_view->useCheckStateHeader(ResultsModel::Show, Qt::AlignLeft | Qt::AlignVCenter);
    m_view->header()->setSortIndicator(ResultsModel::Result, Qt::AscendingOrder);
    m_view->setSortingEnabled(true);
    setColumnWidths();
}

void ResultsPage::setColumnWidths()
{
    QHeaderView *header = m_view->header();
    header->setStretchLastSection(false);
    header->setSectionResizeMode(QHeaderView::Interactive);
    header->setSectionResizeMode(ResultsModel::Result, QHeaderView::Stretch);
    for (int column = ResultsModel::Minimum; column <= ResultsModel::Show; ++column) {
        const bool isShow = column == ResultsModel::Show;
        header->resizeSection(column, textWidth(this, isShow ? s_showWidth : s_numberWidth));
    }
}

void ResultsPage::setTabStops()
{
    m_paste->setTabStopDistance(textWidth(m_paste, s_tabWidth));
}

void ResultsPage::loadCup()
{
    setResults(ResultsData::cup());
}

void ResultsPage::loadLongRun()
{
    setResults(ResultsData::longRun());
}

void ResultsPage::setResults(const ResultOperations &operations)
{
    m_model->setResults(operations);
    if (m_filter->isFiltering())
        filter();
    else
        m_view->expandToDepth(0);
    m_view->scrollToTop();
}

void ResultsPage::filter()
{
    m_filter->setOnlyBeyond(m_onlyBeyond->isChecked());
    m_filter->setFilterFixedString(m_filterEdit->text());
    if (m_filter->isFiltering() && m_model->childCount() <= s_expandLimit)
        m_view->expandAll();
}

void ResultsPage::updateSummary()
{
    m_summary->setText(m_model->summary());
}

void ResultsPage::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() != QEvent::FontChange && event->type() != QEvent::StyleChange)
        return;
    setColumnWidths();
    setTabStops();
}
