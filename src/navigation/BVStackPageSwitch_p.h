// SPDX-License-Identifier: MIT
#pragma once

#include <QPointer>

class QLayout;
class QStackedWidget;
class QWidget;

/// Decides which of the pages and the start page of a controlled stack is in sight.
class BVStackPageSwitch
{
public:
    explicit BVStackPageSwitch(QStackedWidget *pages);

    QWidget *startPage() const { return m_startPage; }
    /// Puts the page into the layout in place of the one before, which is hidden.
    void setStartPage(QWidget *page, QLayout *layout);
    /// The page belongs to others from now on; the pages come into sight if it was.
    void releaseStartPage();
    int threshold() const { return m_threshold; }
    void setThreshold(int threshold) { m_threshold = threshold; }

    /// Ignored without a start page.
    void showStartPage(bool show);
    /// By the number of pages.
    void updateStartPage();
    /// By whether there is a current entry; to be called only while deselection is enabled.
    void updateForCurrent(bool hasCurrent);
    /// Deselection has been disabled: what was hidden for want of a current entry comes back.
    void forgetCurrent();

private:
    bool isDecidedByCount() const { return m_threshold >= 0 && m_startPage; }

    QPointer<QStackedWidget> m_pages;
    QPointer<QWidget> m_startPage;
    int m_threshold = -1;
    bool m_isHiddenForCurrent = false;
};
