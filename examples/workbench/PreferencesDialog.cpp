// SPDX-License-Identifier: MIT
#include "PreferencesDialog.h"

#include "WorkbenchSettings.h"

#include <BVCheckBox.h>
#include <BVComboBox.h>
#include <BVFormatter.h>
#include <BVLabel.h>

#include <QDialogButtonBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QMessageBox>
#include <QPushButton>
#include <QVBoxLayout>

#include <iterator>

namespace {

struct DimensionName
{
    UnitsConfiguration::Dimension dimension;
    const char *name;
};

// In the order of the dialog, what a forming process needs first.
const DimensionName s_dimensions[] = {
    {UnitsConfiguration::Length, QT_TRANSLATE_NOOP("PreferencesDialog", "Length")},
    {UnitsConfiguration::TinyLength, QT_TRANSLATE_NOOP("PreferencesDialog", "Tiny length")},
    {UnitsConfiguration::NanoLength, QT_TRANSLATE_NOOP("PreferencesDialog", "Nano length")},
    {UnitsConfiguration::Area, QT_TRANSLATE_NOOP("PreferencesDialog", "Area")},
    {UnitsConfiguration::Volume, QT_TRANSLATE_NOOP("PreferencesDialog", "Volume")},
    {UnitsConfiguration::Curvature, QT_TRANSLATE_NOOP("PreferencesDialog", "Curvature")},
    {UnitsConfiguration::GaussianCurvature,
     QT_TRANSLATE_NOOP("PreferencesDialog", "Gaussian curvature")},
    {UnitsConfiguration::Angle, QT_TRANSLATE_NOOP("PreferencesDialog", "Angle")},
    {UnitsConfiguration::AngularVelocity,
     QT_TRANSLATE_NOOP("PreferencesDialog", "Angular velocity")},
    {UnitsConfiguration::Force, QT_TRANSLATE_NOOP("PreferencesDialog", "Force")},
    {UnitsConfiguration::Pressure, QT_TRANSLATE_NOOP("PreferencesDialog", "Pressure, stress")},
    {UnitsConfiguration::Stiffness, QT_TRANSLATE_NOOP("PreferencesDialog", "Stiffness")},
    {UnitsConfiguration::Torque, QT_TRANSLATE_NOOP("PreferencesDialog", "Torque")},
    {UnitsConfiguration::Moment, QT_TRANSLATE_NOOP("PreferencesDialog", "Moment")},
    {UnitsConfiguration::Mass, QT_TRANSLATE_NOOP("PreferencesDialog", "Mass")},
    {UnitsConfiguration::Temperature, QT_TRANSLATE_NOOP("PreferencesDialog", "Temperature")},
    {UnitsConfiguration::Percentage, QT_TRANSLATE_NOOP("PreferencesDialog", "Percentage")},
    {UnitsConfiguration::Rate, QT_TRANSLATE_NOOP("PreferencesDialog", "Rate")},
};
static_assert(std::size(s_dimensions) == UnitsConfiguration::s_dimensionCount);

constexpr int s_rows = UnitsConfiguration::s_dimensionCount / 2;
constexpr int s_columnsPerHalf = 3; // label, unit, gap
constexpr int s_rowSpacing = 5;     // px
constexpr int s_columnSpacing = 10; // px
constexpr int s_columnGap = 28;     // px

void select(BVComboBox *box, const QString &data)
{
    box->setCurrentIndex(qMax(0, box->findData(data)));
}

} // namespace

PreferencesDialog::PreferencesDialog(QWidget *parent)
    : QDialog(parent)
    , m_units(UnitsConfiguration::s_dimensionCount)
{
    setWindowTitle(tr("Preferences"));
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(createUnitsPage());
    layout->addWidget(createAppearancePage());
    layout->addStretch();
    auto *buttons =
        new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel |
                                 QDialogButtonBox::Apply | QDialogButtonBox::RestoreDefaults,
                             this);
    buttons->button(QDialogButtonBox::Ok)->setDefault(true);
    layout->addWidget(buttons);
    connect(buttons, &QDialogButtonBox::accepted, this, &PreferencesDialog::apply);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(buttons->button(QDialogButtonBox::Apply), &QPushButton::clicked, this,
            &PreferencesDialog::apply);
    connect(buttons->button(QDialogButtonBox::RestoreDefaults), &QPushButton::clicked, this,
            &PreferencesDialog::showDefaults);
    showCurrent();
    makeRoom();
}

QWidget *PreferencesDialog::createUnitsPage()
{
    auto *box = new QGroupBox(tr("Units"), this);
    auto *layout = new QGridLayout(box);
    layout->setHorizontalSpacing(s_columnSpacing);
    layout->setVerticalSpacing(s_rowSpacing);
    for (int i = 0; i < UnitsConfiguration::s_dimensionCount; ++i) {
        BVComboBox *unit = createUnitBox(s_dimensions[i].dimension);
        unit->setAccessibleName(tr(s_dimensions[i].name));
        auto *label = new BVLabel(tr(s_dimensions[i].name), box);
        label->setBuddy(unit);
        const int column = i / s_rows * s_columnsPerHalf;
        layout->addWidget(label, i % s_rows, column);
        layout->addWidget(unit, i % s_rows, column + 1);
    }
    layout->setColumnMinimumWidth(2, s_columnGap);
    layout->setColumnStretch(1, 1);
    layout->setColumnStretch(4, 1);
    return box;
}

BVComboBox *PreferencesDialog::createUnitBox(UnitsConfiguration::Dimension dimension)
{
    auto *box = new BVComboBox(this);
    const QStringList units = UnitsConfiguration::allowedUnits(dimension);
    for (const QString &unit : units) {
        QString symbol = unit;
        BVFormatter::replaceSymbols(symbol, false);
        box->addItem(symbol, unit);
    }
    box->setEnabled(units.size() > 1); // no choice otherwise
    m_units[size_t(dimension)] = box;
    return box;
}

QWidget *PreferencesDialog::createAppearancePage()
{
    auto *box = new QGroupBox(tr("Appearance"), this);
    m_fontSize = new BVComboBox(box);
    for (int size = WorkbenchSettings::s_minimumFontSize;
         size <= WorkbenchSettings::s_maximumFontSize; ++size)
        m_fontSize->addItem(tr("%1 pt").arg(size), QString::number(size));
    m_lightVersion = new BVCheckBox(tr("&Lighter colours for errors, for dark screens"), box);
    auto *label = new BVLabel(tr("&Font size"), box);
    label->setBuddy(m_fontSize);

    auto *layout = new QGridLayout(box);
    layout->setHorizontalSpacing(s_columnSpacing);
    layout->addWidget(label, 0, 0);
    layout->addWidget(m_fontSize, 0, 1);
    layout->setColumnMinimumWidth(2, s_columnGap);
    layout->addWidget(m_lightVersion, 0, 3);
    layout->setColumnStretch(4, 1);
    return box;
}

BVComboBox *PreferencesDialog::unitBox(UnitsConfiguration::Dimension dimension) const
{
    return m_units[size_t(dimension)];
}

void PreferencesDialog::showCurrent()
{
    const UnitsConfiguration &units = UnitsConfiguration::instance();
    for (const DimensionName &row : s_dimensions)
        select(unitBox(row.dimension), units.currentUnit(row.dimension));
    const WorkbenchSettings &settings = WorkbenchSettings::instance();
    select(m_fontSize, QString::number(settings.fontSize()));
    m_lightVersion->setChecked(settings.useLightVersion());
}

void PreferencesDialog::showDefaults()
{
    for (const DimensionName &row : s_dimensions)
        unitBox(row.dimension)->setCurrentIndex(0);
    select(m_fontSize, QString::number(WorkbenchSettings::s_defaultFontSize));
    m_lightVersion->setChecked(false);
}

void PreferencesDialog::apply()
{
    applyUnits();
    WorkbenchSettings &settings = WorkbenchSettings::instance();
    settings.setFontSize(m_fontSize->currentData().toInt());
    settings.setUseLightVersion(m_lightVersion->isChecked());
    const bool kept = Preferences::save();
    Q_EMIT sigApplied();
    makeRoom();
    if (!kept)
        QMessageBox::warning(this, windowTitle(),
                             tr("The preferences hold until you quit; their file cannot be "
                                "written."));
}

void PreferencesDialog::makeRoom()
{
    const QList<BVComboBox *> boxes = findChildren<BVComboBox *>();
    for (BVComboBox *box : boxes) {
        box->ensurePolished();
        box->updateGeometry();
    }
    setMinimumSize(sizeHint());
}

void PreferencesDialog::applyUnits()
{
    UnitsConfiguration &units = UnitsConfiguration::instance();
    for (const DimensionName &row : s_dimensions) {
        const QString unit = unitBox(row.dimension)->currentData().toString();
        if (unit != units.currentUnit(row.dimension)) // each choice is announced to every field
            units.setCurrentUnit(row.dimension, unit);
    }
}
