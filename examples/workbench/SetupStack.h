// SPDX-License-Identifier: MIT
#pragma once

#include "ProcessSetup.h"

#include <QStringList>
#include <QWidget>

#include <vector>

class BVControlledStackItem;
class BVControlledStackWidget;
class BVStackControllerWidget;
class BVWidgetStatusHandler;
class FieldEditor;
class FieldGroup;
class OperationList;
class QAction;
class StartPage;
class StepPage;

/// The steps of a process set-up: a navigation beside the pages of the stack that it controls.
/// There is a page for each group of SetupFields, one for each operation, and what the window adds.
///
/// The stack shows the start page while the group of the operations is current. The widget carries
/// the combined status of all pages.
class SetupStack : public QWidget
{
    Q_OBJECT

public:
    explicit SetupStack(QWidget *parent = nullptr);
    ~SetupStack() override;

    BVStackControllerWidget *controller() const { return m_controller; }
    BVControlledStackWidget *stack() const { return m_stack; }
    OperationList *operations() const { return m_operations; }
    StartPage *startPage() const { return m_startPage; }
    /// The entry that the operations stand below.
    BVControlledStackItem *operationsEntry() const { return m_operationsEntry; }

    /// Adds an entry that is not part of the set-up.
    void addPage(QWidget *page, const QString &text);
    /// Makes the entry current on whose page the widget is.
    void showPageOf(QWidget *widget);

    /// Shows @p setup and makes its values the reference.
    void setSetup(const ProcessSetup &setup);
    /// The values that have been taken over.
    ProcessSetup setup() const;
    /// Tells what the set-up is, and where it comes from.
    void setHeading(const QString &title, const QString &source);
    /// Makes the values as they are the reference.
    void acceptAsReference();
    /// Brings the reference back: all values and the operations.
    void resetToReference();
    /// Takes over what is being typed.
    void takeOver();

    /// Whether anything differs from the reference.
    bool isChanged() const;
    /// The names of the fields that need input.
    QStringList fieldsNeedingInput() const;
    /// Goes to the next entry that needs input, or to the next such field of the current one if
    /// there is no other.
    void goToNextNeedingInput();
    FieldEditor *editor(int field) const { return m_editors[size_t(field)]; }
    FieldGroup *group(int group) const { return m_groups[size_t(group)]; }

Q_SIGNALS:
    /// A value, a text, a status or the operations may have changed.
    void changed();

private:
    void createNavigation();
    void createSteps();
    void createOperations();
    QWidget *createStartHolder();
    BVControlledStackItem *addEntry(QWidget *page, const QString &text);
    void addOperation(int kind);
    QPoint nextEntryPosition() const;
    void watch(StepPage *page);
    std::vector<FieldGroup *> allGroups() const;
    void onCurrentChanged(const BVControlledStackItem *current);

    ProcessSetup m_setup; // as it was loaded; the reference of the operations
    BVStackControllerWidget *m_controller;
    BVControlledStackWidget *m_stack;
    BVWidgetStatusHandler *m_statusHandler;
    BVControlledStackItem *m_operationsEntry = nullptr;
    OperationList *m_operations = nullptr;
    StartPage *m_startPage = nullptr;
    std::vector<StepPage *> m_steps;      // in the order of the navigation
    std::vector<FieldGroup *> m_groups;   // by index of SetupFields
    std::vector<FieldEditor *> m_editors; // by index of SetupFields
};
