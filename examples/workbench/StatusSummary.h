// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

class BVLabel;
class SetupStack;

/// What the status bar tells about the form: how many fields need input, coloured by the form's
/// status, and what the colours mean.
class StatusSummary : public QWidget
{
    Q_OBJECT

public:
    StatusSummary(SetupStack *form, QWidget *parent);

    QString text() const;

private:
    void updateText();

    SetupStack *m_form; // not owned
    BVLabel *m_label;
};
