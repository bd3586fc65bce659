// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QEvent>
#include <QList>
#include <QObject>

/// Counts the events of one type that reach an object, in order of arrival.
class EventCounter : public QObject
{
    Q_OBJECT

public:
    /// Watches @p watched, which must outlive the counter or be deleted with it.
    EventCounter(QObject *watched, QEvent::Type type);

    int count() const { return m_count; }
    void reset() { m_count = 0; }

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QEvent::Type m_type;
    int m_count = 0;
};

/// Drops the warnings by which the offscreen platform says that it cannot raise windows. Called in
/// initTestCase() by tests that open menus or tool tips.
void muteOffscreenWarnings();
