// SPDX-License-Identifier: MIT
#pragma once

#include <QFrame>

class BVLabel;

/// The band above a page: its title, and below that what the page is about.
class StepHeader : public QFrame
{
    Q_OBJECT

public:
    explicit StepHeader(QWidget *parent = nullptr);

    QString title() const;
    void setTitle(const QString &title);
    /// An empty text leaves no room.
    void setHint(const QString &hint);

private:
    BVLabel *m_title;
    BVLabel *m_hint;
};
