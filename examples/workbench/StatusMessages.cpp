// SPDX-License-Identifier: MIT
#include "StatusMessages.h"

#include <BVFormatter.h>
#include <UnitsConfiguration.h>

#include <QEvent>
#include <QStatusBar>
#include <QTimer>

#include <algorithm>

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
        if (!text.isEmpty())
            return;
        m_text.clear();
        m_bar->setToolTip(QString());
    });
    bar->installEventFilter(this);
}

void StatusMessages::show(const QString &text)
{
    m_text = text;
    m_bar->setToolTip(text);
    fit();
}

void StatusMessages::fit()
{
    m_bar->showMessage(m_bar->fontMetrics().elidedText(m_text, Qt::ElideRight, room()),
                       s_messageTime);
}

bool StatusMessages::eventFilter(QObject *watched, QEvent *event)
{
    const bool isResized =
        event->type() == QEvent::Resize || event->type() == QEvent::LayoutRequest;
    if (isResized && !m_text.isEmpty())
        QTimer::singleShot(0, this, &StatusMessages::refit);
    return QObject::eventFilter(watched, event);
}

/// When the permanent widgets have found their places.
void StatusMessages::refit()
{
    if (!m_text.isEmpty())
        fit();
}

/// What the permanent widgets and the grip leave.
int StatusMessages::room() const
{
    int room = m_bar->width();
    const auto widgets = m_bar->findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly);
    for (const QWidget *widget : widgets) {
        const int edge =
            m_bar->isRightToLeft() ? m_bar->width() - widget->geometry().right() - 1 : widget->x();
        if (widget->isVisibleTo(m_bar))
            room = std::min(room, edge);
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
