// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

class BVLabel;
class FieldGroup;
class QVBoxLayout;

/// A page of the set-up: a title, what the step is about, and a group of fields, whose status the
/// page carries. A page that is too low scrolls.
class StepPage : public QWidget
{
    Q_OBJECT

public:
    /// Takes the group over.
    StepPage(const QString &title, const QString &hint, FieldGroup *group,
             QWidget *parent = nullptr);

    void setTitle(const QString &title);
    /// An empty text leaves no room.
    void setHint(const QString &hint);
    QString title() const;
    FieldGroup *group() const { return m_group; }

protected:
    /// Puts a widget above the group.
    void insertAboveGroup(QWidget *widget);

private:
    QWidget *createHeader();
    QWidget *createContent();

    BVLabel *m_title;
    BVLabel *m_hint;
    FieldGroup *m_group;
    QVBoxLayout *m_content = nullptr;
};
