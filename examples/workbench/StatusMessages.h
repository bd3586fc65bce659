// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QString>

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

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void fit();
    void refit();
    int room() const;

    QStatusBar *m_bar;
    QString m_text; // the whole one; empty for none
};
