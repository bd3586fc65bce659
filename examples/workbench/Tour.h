// SPDX-License-Identifier: MIT
#pragma once

#include <QSize>
#include <QString>
#include <QStringList>

class BVSlider;
class FieldEditor;
class WorkbenchWindow;
class PreferencesDialog;
class QPixmap;

/// Goes through the workbench as a person would, checks what it shows, and writes a numbered
/// picture of each step.
class Tour
{
public:
    /// @p window must outlive the tour. The directory is made when it is missing.
    Tour(WorkbenchWindow &window, const QString &directory);

    /// Goes all the way, or to the first step that does not show what it should.
    bool run();
    /// What went wrong, or where the pictures are.
    QString report() const;

private:
    static constexpr QSize s_windowSize = QSize(1040, 780); // px

    bool prepare();
    bool openSteel();
    bool chooseInch();
    bool typeMillimetres();
    bool typeUnacceptable();
    bool openPreferences();
    bool useLightVersion();
    bool useBiggerFont();
    bool openAluminium();
    bool refuseFile();
    bool moveSliders();
    bool dragLimit();
    bool turnWheel();
    bool beginNewSetup();
    bool useNarrowWindow();
    bool showResults();
    bool changeLimit();
    bool uncheckResults();
    bool copyResults();
    bool openContextMenu();
    bool searchResults();
    bool loadLongRun();
    bool planOperation();
    bool typeOnStep();
    bool beginOperations();
    bool flyToEntry();
    bool arrangeOperations();
    bool openNavigationMenu();
    bool filterEntries();

    FieldEditor *field(const char *group, const char *key) const;
    BVSlider *slider(const char *key) const;
    void type(FieldEditor *field, const QString &text);
    PreferencesDialog *preferences() const;
    /// Opens the preferences, lets @p change set something, and presses OK.
    template <typename Change>
    bool withPreferences(Change change);
    bool expect(bool holds, const QString &what);
    bool expectText(FieldEditor *field, const QString &text);
    /// Writes a picture of the window as it is.
    bool picture(const QString &name);
    bool write(const QString &name, const QPixmap &pixmap);

    WorkbenchWindow &m_window;
    QString m_directory;
    QString m_failure;
    int m_number = 0;
};
