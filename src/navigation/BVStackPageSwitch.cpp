// SPDX-License-Identifier: MIT
#include "navigation/BVStackPageSwitch_p.h"

#include <QLayout>
#include <QStackedWidget>

BVStackPageSwitch::BVStackPageSwitch(QStackedWidget *pages)
    : m_pages(pages)
{
}

void BVStackPageSwitch::setStartPage(QWidget *page, QLayout *layout)
{
    if (m_startPage && m_startPage != page) {
        layout->removeWidget(m_startPage);
        m_startPage->hide();
    }
    if (m_startPage != page)
        page->hide(); // until it is due
    m_startPage = page;
    layout->addWidget(page);
}

void BVStackPageSwitch::releaseStartPage()
{
    showStartPage(false);
    m_startPage = nullptr;
}

/// What goes is hidden first, so that the window never has to hold both.
void BVStackPageSwitch::showStartPage(bool show)
{
    if (!m_startPage || !m_pages)
        return;
    m_isHiddenForCurrent = false;
    QWidget *const going = show ? m_pages.data() : m_startPage.data();
    const QPointer<QWidget> coming = show ? m_startPage.data() : m_pages.data();
    going->hide();
    if (coming)
        coming->show();
}

void BVStackPageSwitch::updateStartPage()
{
    if (isDecidedByCount() && m_pages)
        showStartPage(m_pages->count() <= m_threshold);
}

void BVStackPageSwitch::updateForCurrent(bool hasCurrent)
{
    if (m_startPage)
        showStartPage(!hasCurrent);
    else if (m_pages)
        m_pages->setVisible(hasCurrent);
    m_isHiddenForCurrent = !hasCurrent;
}

void BVStackPageSwitch::forgetCurrent()
{
    if (isDecidedByCount())
        updateStartPage();
    else if (m_isHiddenForCurrent)
        updateForCurrent(true);
}
