// SPDX-License-Identifier: MIT
#pragma once

#include "BVWidgetsExport.h"

#include "foundation/BVWidgetStatus.h"

#include <QTabBar>
#include <QVector>

/// The tab bar of BVTabWidget: marks each tab with a dot in the colour of its status.
///
/// The dot shows the dominant status of the tab's flags; Normal shows none. Assistive technology is
/// told it behind the tab's text. A style sheet that makes tabs dark says so with
/// qproperty-darkBackground. The wheel changes the tab only while the bar has the focus.
class BVWIDGETS_EXPORT BVTabBar : public QTabBar
{
    Q_OBJECT
    Q_PROPERTY(bool darkBackground READ isDarkBackground WRITE setDarkBackground)

public:
    explicit BVTabBar(QWidget *parent = nullptr);

    /// Whether the dots stand on dark tabs and take their colours for those. Off at first.
    bool isDarkBackground() const { return m_darkBackground; }
    void setDarkBackground(bool dark);

    /// The flags that the tab shows. An index out of range is ignored.
    void setTabStatus(int index, BVWidgetStatus::Stati stati);
    /// Normal for an index out of range.
    BVWidgetStatus::Stati tabStatus(int index) const;

protected:
    void paintEvent(QPaintEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void tabInserted(int index) override;
    void tabRemoved(int index) override;
    void tabLayoutChange() override;

private:
    void onTabMoved(int from, int to);
    QRectF dotRect(int index) const;

    QVector<BVWidgetStatus::Stati> m_stati;
    bool m_darkBackground = false;
};
