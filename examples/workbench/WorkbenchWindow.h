// SPDX-License-Identifier: MIT
#pragma once

#include <QMainWindow>
#include <QString>

class Appearance;
class OperationsPage;
class QAction;
class ResultsPage;
class SetupStack;
class StatusSummary;

/// The workbench's window: one process set-up in steps, with the commands to open, change and save
/// it, and pages with results and the plan.
///
/// While it lives it is the application's main window, which is told about a changed unit choice.
class WorkbenchWindow : public QMainWindow
{
    Q_OBJECT

public:
    /// @p appearance must outlive the window; null leaves the application's look alone.
    explicit WorkbenchWindow(Appearance *appearance = nullptr);
    ~WorkbenchWindow() override;

    /// Opens a set-up without asking about changes. A file that cannot be read is told in a message
    /// box; the open set-up then stays as it is.
    bool openFile(const QString &path);
    /// Opens one of the examples, which have no file to be saved to yet.
    bool openExample(const QString &resource);
    /// Takes over what is being typed and saves. Told and refused while fields need input.
    bool saveFile(const QString &path);

    SetupStack *form() const { return m_form; }
    StatusSummary *summary() const { return m_summary; }
    ResultsPage *results() const { return m_results; }
    OperationsPage *operations() const { return m_operations; }
    /// Brings the page of a widget to the front.
    void showPageOf(QWidget *widget);
    /// The file of the open set-up; empty for none.
    const QString &fileName() const { return m_fileName; }

public Q_SLOTS:
    void newSetup();
    void open();
    bool save();
    bool saveAs();
    void resetAll();
    /// Opens the preferences; they delete themselves when they are closed.
    void showPreferences();
    void showAbout();
    /// Puts the chosen font size and version into effect.
    void applyAppearance();

protected:
    bool event(QEvent *event) override;
    void closeEvent(QCloseEvent *event) override;

private:
    QWidget *createCentre();
    void createActions();
    void createExamplesMenu();
    QAction *addCommand(QMenu *menu, const QString &icon, const QString &text,
                        const QKeySequence &shortcut, const QString &toolTip);
    bool readSetup(const QString &path);
    void goToNextNeedingInput();
    void setFileName(const QString &path);
    void rememberFile();
    void updateTitle();
    bool mayDropChanges();
    bool isReadyToSave();
    void showError(const QString &text, const QString &detail);
    void showUnits();

    Appearance *m_appearance; // not owned
    SetupStack *m_form = nullptr;
    StatusSummary *m_summary = nullptr;
    ResultsPage *m_results;
    OperationsPage *m_operations;
    QString m_fileName;
    QString m_documentName; // shown in the window title
};
