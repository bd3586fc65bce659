// SPDX-License-Identifier: MIT
#include "itemviews/BVTreeSizeHint_p.h"

#include "itemviews/BVTreeContentHeight_p.h"
#include "itemviews/BVTreeView.h"

#include <QScrollBar>

namespace {

constexpr int s_spaceRowHeight = 20; // px, of a row of space below the content
constexpr int s_frameSpace = 2;      // px, without rows of space

} // namespace

BVTreeSizeHint::BVTreeSizeHint(const BVTreeView *view, BVTreeContentHeight *content)
    : m_view(view)
    , m_content(content)
{
}

int BVTreeSizeHint::rowsHeight(const QModelIndex &parent) const
{
    using Children = BVTreeContentHeight::Children;
    const Children children = m_view->isOnlyAdjustedOnTopLevelItems() ? Children::None
                              : m_view->isAdjustableOnChildItems()    ? Children::Expanded
                                                                      : Children::All;
    if (parent == m_view->rootIndex())
        return m_content->rowsHeight(children);
    return m_content->rowsHeight(parent, children);
}

int BVTreeSizeHint::contentHeight() const
{
    int height = m_content->headerHeight() + rowsHeight(m_view->rootIndex());
    const QScrollBar *bar = m_view->horizontalScrollBar();
    if (bar->minimum() < bar->maximum())
        height += bar->sizeHint().height();
    return qMax(height, qMax(m_view->minimumHeight(), m_view->getMinimumResizableHeight()));
}

QSize BVTreeSizeHint::preferred(QSize size) const
{
    const int fixedHeight = m_view->getCustomFixedHeight();
    if (m_view->isResizable())
        size.setHeight(fixedHeight >= 0 ? fixedHeight : contentHeight());
    constexpr int mostRows = QWIDGETSIZE_MAX / s_spaceRowHeight;
    const int space = m_view->getSpaceToAdd();
    if (space == 0)
        size.rheight() += s_frameSpace;
    else if (space > 0)
        size.rheight() += qMin(space, mostRows) * s_spaceRowHeight;
    return size;
}

QSize BVTreeSizeHint::minimum(QSize size) const
{
    if (m_view->isResizable()) {
        size.setHeight(qMax(qMin(size.height(), m_view->sizeHint().height()),
                            m_view->getMinimumResizableHeight()));
    }
    return size;
}
