// SPDX-License-Identifier: MIT
#include "controls/BVTabBar.h"

#include "foundation/BVStatusColor.h"

#include <QPainter>
#include <QStyle>
#include <QWheelEvent>

namespace {

constexpr int s_dotSize = 6;   // px
constexpr int s_dotMargin = 3; // px, to the edges of the tab

struct StatusText
{
    BVWidgetStatus::Status status;
    const char *text;
};

// What a dot tells those who do not see its colour.
constexpr StatusText s_statusTexts[] = {
    {BVWidgetStatus::NeedInput, QT_TRANSLATE_NOOP("BVTabBar", "needs input")},
    {BVWidgetStatus::CompareDifferent, QT_TRANSLATE_NOOP("BVTabBar", "differs in comparison")},
    {BVWidgetStatus::RuvixInvalid, QT_TRANSLATE_NOOP("BVTabBar", "variation not valid")},
    {BVWidgetStatus::StandardChanged, QT_TRANSLATE_NOOP("BVTabBar", "differs from the standard")},
    {BVWidgetStatus::Different, QT_TRANSLATE_NOOP("BVTabBar", "differs from the reference")},
    {BVWidgetStatus::RuvixActive, QT_TRANSLATE_NOOP("BVTabBar", "variation active")},
    {BVWidgetStatus::UserEdit, QT_TRANSLATE_NOOP("BVTabBar", "edited")},
};

/// The tab's text with its status; empty, for the tab's text alone, without one.
QString nameWithStatus(const QString &text, BVWidgetStatus::Stati stati)
{
    const auto status = BVWidgetStatus::getDominantStatusFromFlag(stati);
    for (const StatusText &entry : s_statusTexts) {
        if (entry.status == status)
            return text + QLatin1String(", ") + BVTabBar::tr(entry.text);
    }
    return QString();
}

} // namespace

BVTabBar::BVTabBar(QWidget *parent)
    : QTabBar(parent)
{
    connect(this, &QTabBar::tabMoved, this, &BVTabBar::onTabMoved);
}

void BVTabBar::setDarkBackground(bool dark)
{
    if (dark == m_darkBackground)
        return;
    m_darkBackground = dark;
    update();
}

void BVTabBar::setTabStatus(int index, BVWidgetStatus::Stati stati)
{
    if (index < 0 || index >= m_stati.size() || m_stati.at(index) == stati)
        return;
    m_stati[index] = stati;
    setAccessibleTabName(index, nameWithStatus(tabText(index), stati));
    update(tabRect(index));
}

BVWidgetStatus::Stati BVTabBar::tabStatus(int index) const
{
    return m_stati.value(index);
}

void BVTabBar::paintEvent(QPaintEvent *event)
{
    QTabBar::paintEvent(event);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    const BVStatusColor &colors = BVStatusColor::colors();
    for (int index = 0; index < m_stati.size(); ++index) {
        const auto status = BVWidgetStatus::getDominantStatusFromFlag(m_stati.at(index));
        if (status == BVWidgetStatus::Normal || !isTabVisible(index))
            continue;
        painter.setBrush(m_darkBackground ? colors.forDarkBackground(status)
                                          : colors.forLightBackground(status));
        painter.drawEllipse(dotRect(index));
    }
}

void BVTabBar::wheelEvent(QWheelEvent *event)
{
    if (hasFocus())
        QTabBar::wheelEvent(event);
    else
        event->ignore();
}

void BVTabBar::tabInserted(int index)
{
    m_stati.insert(index, BVWidgetStatus::Normal);
    QTabBar::tabInserted(index);
}

void BVTabBar::tabRemoved(int index)
{
    m_stati.remove(index);
    QTabBar::tabRemoved(index);
}

void BVTabBar::tabLayoutChange()
{
    QTabBar::tabLayoutChange();
    for (int index = 0; index < m_stati.size(); ++index) // a text may have changed
        setAccessibleTabName(index, nameWithStatus(tabText(index), m_stati.at(index)));
}

QRectF BVTabBar::dotRect(int index) const
{
    const QRect tab = tabRect(index).adjusted(s_dotMargin, s_dotMargin, -s_dotMargin, -s_dotMargin);
    return QStyle::alignedRect(layoutDirection(), Qt::AlignRight | Qt::AlignTop,
                               QSize(s_dotSize, s_dotSize), tab);
}

void BVTabBar::onTabMoved(int from, int to)
{
    m_stati.move(from, to);
}
