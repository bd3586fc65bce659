// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>

#include <UnitsConfiguration.h>

#include <vector>

class BVCheckBox;
class BVComboBox;

/// Lets the user choose the unit of each quantity, the font size and the light version.
///
/// Apply and OK put the choice into effect, keep it in the preferences file and emit sigApplied().
class PreferencesDialog : public QDialog
{
    Q_OBJECT

public:
    explicit PreferencesDialog(QWidget *parent = nullptr);

    BVComboBox *unitBox(UnitsConfiguration::Dimension dimension) const;
    BVComboBox *fontSizeBox() const { return m_fontSize; }
    BVCheckBox *lightVersionBox() const { return m_lightVersion; }

    void apply();
    /// Shows the defaults; they take effect when they are applied.
    void showDefaults();

Q_SIGNALS:
    void sigApplied();

private:
    QWidget *createUnitsPage();
    QWidget *createAppearancePage();
    BVComboBox *createUnitBox(UnitsConfiguration::Dimension dimension);
    void showCurrent();
    void applyUnits();
    /// Gives every row its full height, also after the font has changed, which combo boxes do not
    /// tell their layout.
    void makeRoom();

    std::vector<BVComboBox *> m_units; // by dimension
    BVComboBox *m_fontSize = nullptr;
    BVCheckBox *m_lightVersion = nullptr;
};
