// SPDX-License-Identifier: MIT
#include "StatusMessages.h"

#include <BVFormatter.h>
#include <UnitsConfiguration.h>

#include <QStatusBar>

namespace {

constexpr int s_messageTime = 6000; // ms
constexpr int s_margin = 12;        // px, around the message

QString shownUnit(UnitsConfiguration::Dimension dimension)
{
    QString unit = UnitsConfiguration::instance().currentUnit(dimension);
    BVFormatter::replaceSymbols(unit, false);
    return unit;
}

} // namespace

StatusMessages::StatusMessages(QStatusBar *bar)
    : QObject(bar)
    , m_bar(bar)
{
    connect(bar, &QStatusBar::messageChanged, this, [this](const QString &text) {
        if (text.isEmpty())
            m_bar->setToolTip(QString());
    });
}

void StatusMessages::show(const QString &text)
{
    m_bar->showMessage(m_bar->fontMetrics().elidedText(text, Qt::ElideRight, room()),
                       s_messageTime);
    m_bar->setToolTip(text);
}

/// What the permanent widgets and the grip leave.
int StatusMessages::room() const
{
    int room = m_bar->width();
    const auto widgets = m_bar->findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly);
    for (const QWidget *widget : widgets) {
        if (widget->isVisibleTo(m_bar))
            room -= widget->width();
    }
    return room - s_margin;
}

void StatusMessages::showUnits()
{
    show(tr("Units: %1, %2, %3, %4, %5")
             .arg(shownUnit(UnitsConfiguration::Length), shownUnit(UnitsConfiguration::Pressure),
                  shownUnit(UnitsConfiguration::Force), shownUnit(UnitsConfiguration::Temperature),
                  shownUnit(UnitsConfiguration::Angle)));
}
