// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

class QStatusBar;

/// Short messages in a status bar, cut where the room beside its permanent widgets ends. The whole
/// text is the bar's tool tip for as long as it is shown.
class StatusMessages : public QObject
{
    Q_OBJECT

public:
    explicit StatusMessages(QStatusBar *bar);

    void show(const QString &text);
    /// The user's choice of units.
    void showUnits();

private:
    int room() const;

    QStatusBar *m_bar;
};
