// SPDX-License-Identifier: MIT
#pragma once

#include <ConfigurationObject.h>

#include <QByteArray>
#include <QString>

/// What the workbench remembers besides the unit choice: font size, light version, recent file,
/// and where the panels are.
///
/// The configuration manager loads and saves it under the name "Workbench".
class WorkbenchSettings : public Brimvale::ConfigurationObject
{
public:
    static constexpr int s_minimumFontSize = 8;  // pt
    static constexpr int s_maximumFontSize = 14; // pt
    static constexpr int s_defaultFontSize = 10; // pt

    WorkbenchSettings();

    /// The registered settings; registers them when they are first asked for.
    static WorkbenchSettings &instance();

    /// In points; the default when what was loaded is not in range.
    int fontSize() const;
    void setFontSize(int points);
    bool useLightVersion() const;
    void setUseLightVersion(bool on);
    /// The path of the set-up that was opened or saved last; empty for none.
    QString recentFile() const;
    void setRecentFile(const QString &path);
    /// What BVResizableWidget::saveState() has told of the panel of that name, "messagePanel" or
    /// "curvePanel"; empty for nothing.
    QByteArray panelState(const QString &panel) const;
    void setPanelState(const QString &panel, const QByteArray &state);
};

/// Where settings and unit choice are kept.
namespace Preferences {

/// Sets the file, reads it and takes its settings over; an empty path stands for the usual place.
void load(const QString &path);
/// Writes settings and unit choice; false if that fails.
bool save();

} // namespace Preferences
