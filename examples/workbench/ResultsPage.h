// SPDX-License-Identifier: MIT
#pragma once

#include "ResultsData.h"

#include <QWidget>

class BVCheckBox;
class BVLabel;
class BVLineEdit;
class BVTextEdit;
class BVTreeView;
class ResultsFilter;
class ResultsModel;

/// The page of results: a tree of them with what narrows it down, and below it a field to paste
/// copied rows into.
class ResultsPage : public QWidget
{
    Q_OBJECT

public:
    explicit ResultsPage(QWidget *parent = nullptr);

    BVTreeView *view() const { return m_view; }
    ResultsModel *model() const { return m_model; }
    BVLineEdit *filterEdit() const { return m_filterEdit; }
    BVCheckBox *onlyBeyondBox() const { return m_onlyBeyond; }
    BVTextEdit *pasteEdit() const { return m_paste; }

public Q_SLOTS:
    void loadCup();
    /// A hundred thousand rows.
    void loadLongRun();

protected:
    void changeEvent(QEvent *event) override;

private:
    QWidget *createTools();
    QWidget *createPasteField();
    void setUpView();
    void setResults(const ResultOperations &operations);
    void filter();
    void setColumnWidths();
    void setTabStops();
    void updateSummary();

    ResultsModel *m_model;
    ResultsFilter *m_filter;
    BVTreeView *m_view;
    BVLineEdit *m_filterEdit;
    BVCheckBox *m_onlyBeyond;
    BVTextEdit *m_paste;
    BVLabel *m_summary;
};
