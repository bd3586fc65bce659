// SPDX-License-Identifier: MIT
#pragma once

#include "navigation/BVTabBarLayout_p.h"
#include "navigation/BVTabList_p.h"
#include "navigation/BVTabPictures_p.h"

class QWidget;

/// The layout of a bar as it stands: made when it is asked for, kept until something changes.
class BVTabBarGeometry
{
public:
    /// Neither is owned; both outlive the geometry.
    BVTabBarGeometry(QWidget *bar, BVTabList *tabs, BVTabPictures *pictures);

    void setTextReducing(const BVTabTexts::Reducing &reducing);
    QString imageAfterTabs() const { return m_imageAfterTabs; }
    void setImageAfterTabs(const QString &url);

    /// Something about the tabs or the bar has changed.
    void invalidate();
    /// So has the font or the way that texts are shortened.
    void remeasure();

    const BVTabBarLayout::Result &layout() const;
    /// What the tab shows of its text, and whether that is less than all.
    const QString &shownText(int index) const;
    bool isShortened(int index) const;

    /// Scrolls the tab into sight with the next layout.
    void show(int index);
    /// Scrolls by @p distance px towards the end; false if the tabs do not move.
    bool scrollBy(int distance);

    int barHeight() const;
    /// The width that the bar needs to show all texts in full, with the tool buttons.
    int fullWidth() const;
    int reservedWidth() const;

private:
    void measure() const;
    void measureTexts() const;
    BVTabBarLayout::Request request() const;
    QVector<QString> shownTexts() const;

    QWidget *m_bar;
    BVTabList *m_tabs;
    BVTabPictures *m_pictures;
    BVTabTexts::Reducing m_reducing;
    QString m_imageAfterTabs;
    mutable QVector<BVTabBarLayout::Tab> m_sizes;
    mutable BVTabBarLayout::Result m_layout;
    mutable QSize m_laidOutSize; // of the bar
    mutable QVector<QString> m_shownTexts;
    mutable int m_shown = -1; // the id of the tab to be scrolled into sight; -1 for none
    mutable bool m_isMeasured = false;
    mutable bool m_isLaidOut = false;
};
