// SPDX-License-Identifier: MIT
#include "navigation/BVTabBarGeometry_p.h"

#include <QLayout>
#include <QWidget>

#include <algorithm>

namespace {

constexpr int s_textPadding = 10;      // px above and below a text together
constexpr int s_minimumTabHeight = 24; // px; tool buttons of 22 px fit

} // namespace

BVTabBarGeometry::BVTabBarGeometry(QWidget *bar, BVTabList *tabs, BVTabPictures *pictures)
    : m_bar(bar)
    , m_tabs(tabs)
    , m_pictures(pictures)
{
}

void BVTabBarGeometry::setTextReducing(const BVTabTexts::Reducing &reducing)
{
    m_reducing = reducing;
    remeasure();
}

void BVTabBarGeometry::setImageAfterTabs(const QString &url)
{
    m_imageAfterTabs = url;
    invalidate();
}

void BVTabBarGeometry::invalidate()
{
    m_isMeasured = false;
    m_isLaidOut = false;
}

void BVTabBarGeometry::remeasure()
{
    for (BVTab &tab : *m_tabs)
        tab.m_texts.forget();
    invalidate();
}

void BVTabBarGeometry::measure() const
{
    if (m_isMeasured)
        return;
    measureTexts();
    m_sizes.clear();
    m_sizes.reserve(m_tabs->count());
    const int imageHeight = barHeight() - BVTabBarLayout::s_topMargin;
    for (const BVTab &tab : *m_tabs) {
        const QString image = tab.shownImage(m_imageAfterTabs);
        m_sizes.append({tab.m_texts.m_widths, m_pictures->sizeOf(image, imageHeight).width(),
                        !tab.shownIcon().isEmpty(), tab.m_state.testFlag(BVTab::HasCloseButton),
                        tab.m_state.testFlag(BVTab::HasMenuButton)});
    }
    m_isMeasured = true;
}

/// All texts get as many levels as the one with the most.
void BVTabBarGeometry::measureTexts() const
{
    const QFontMetrics metrics = m_bar->fontMetrics();
    int levels = 0;
    for (BVTab &tab : *m_tabs) {
        if (!tab.m_texts.isMeasured())
            tab.m_texts.measure(tab.m_text, m_reducing, metrics);
        levels = std::max(levels, tab.m_texts.m_forms.size());
    }
    for (BVTab &tab : *m_tabs)
        tab.m_texts.pad(levels);
}

BVTabBarLayout::Request BVTabBarGeometry::request() const
{
    BVTabBarLayout::Request request;
    request.m_size = m_bar->size();
    request.m_reserved = reservedWidth();
    request.m_rightToLeft = m_bar->isRightToLeft();
    request.m_offset = m_layout.m_offset;
    request.m_shown = m_shown < 0 ? -1 : m_tabs->indexOf(m_shown);
    request.m_tabs = m_sizes;
    return request;
}

const BVTabBarLayout::Result &BVTabBarGeometry::layout() const
{
    if (!m_isLaidOut || m_laidOutSize != m_bar->size()) { // hidden bars hear of their size later
        measure();
        m_laidOutSize = m_bar->size();
        m_layout = BVTabBarLayout::layOut(request());
        m_shown = -1;
        m_isLaidOut = true;
        m_shownTexts = shownTexts();
    }
    return m_layout;
}

QVector<QString> BVTabBarGeometry::shownTexts() const
{
    QVector<QString> texts;
    texts.reserve(m_tabs->count());
    const QFontMetrics metrics = m_bar->fontMetrics();
    for (int index = 0; index < m_tabs->count(); ++index) {
        const BVTabTexts &known = m_tabs->at(index).m_texts;
        const QString form = known.m_forms.value(m_layout.m_level);
        const int width = m_layout.m_places.at(index).m_text.width();
        texts.append(width < known.m_widths.value(m_layout.m_level)
                         ? metrics.elidedText(form, Qt::ElideRight, width)
                         : form);
    }
    return texts;
}

const QString &BVTabBarGeometry::shownText(int index) const
{
    layout();
    return m_shownTexts.at(index);
}

bool BVTabBarGeometry::isShortened(int index) const
{
    return shownText(index) != BVTabTexts::oneLine(m_tabs->at(index).m_text);
}

void BVTabBarGeometry::show(int index)
{
    m_shown = m_tabs->idAt(index);
    m_isLaidOut = false;
}

bool BVTabBarGeometry::scrollBy(int distance)
{
    const int offset = qBound(0, layout().m_offset + distance, layout().m_maximumOffset);
    if (offset == m_layout.m_offset)
        return false;
    m_layout.m_offset = offset;
    m_isLaidOut = false;
    return true;
}

int BVTabBarGeometry::barHeight() const
{
    return BVTabBarLayout::s_topMargin +
           std::max(s_minimumTabHeight, m_bar->fontMetrics().height() + s_textPadding);
}

int BVTabBarGeometry::fullWidth() const
{
    measure();
    return BVTabBarLayout::contentWidth(m_sizes, 0) + reservedWidth();
}

int BVTabBarGeometry::reservedWidth() const
{
    return m_bar->layout() ? m_bar->layout()->sizeHint().width() : 0;
}
