// SPDX-License-Identifier: MIT
#pragma once

#include <QListWidget>
#include <QPointer>
#include <QString>

#include <vector>

class FieldEditor;
class SetupStack;

/// The messages of the application: above, what is wrong with the set-up at present; below, what
/// has happened, the last first. Activating what is wrong leads to its field.
class MessageList : public QListWidget
{
    Q_OBJECT

public:
    enum Kind { Information, Warning, Error };

    explicit MessageList(SetupStack *form, QWidget *parent = nullptr);

    /// Tells of something that has happened; a few hundred are kept.
    void addMessage(Kind kind, const QString &text);
    /// How many of the rows tell what is wrong.
    int problemCount() const { return int(m_problems.size()); }
    /// Looks at the set-up again; not needed when that tells of a change.
    void showProblems();

    QSize sizeHint() const override;

private:
    struct Problem
    {
        Kind kind;
        QString text;
        QPointer<FieldEditor> editor;

        bool operator==(const Problem &other) const;
    };

    std::vector<Problem> findProblems() const;
    void goTo(int row);

    SetupStack *m_form; // not owned
    std::vector<Problem> m_problems;
};
