// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

class FieldGroup;
class QVBoxLayout;
class StepHeader;

/// A page of the set-up: a title, what the step is about, and a group of fields, whose status the
/// page carries. A page that is too low scrolls.
class StepPage : public QWidget
{
    Q_OBJECT

public:
    /// Takes the group over.
    StepPage(const QString &title, const QString &hint, FieldGroup *group,
             QWidget *parent = nullptr);

    StepHeader *header() const { return m_header; }
    FieldGroup *group() const { return m_group; }

protected:
    /// Puts a widget above the group.
    void insertAboveGroup(QWidget *widget);

private:
    QWidget *createContent();

    StepHeader *m_header;
    FieldGroup *m_group;
    QVBoxLayout *m_content = nullptr;
};
