// SPDX-License-Identifier: MIT
#pragma once

#include "BVWidgetsExport.h"

#include "platform/ConfigurationObject.h"
#include "platform/Signal.h"

#include <QObject>
#include <QStringList>

#include <functional>
#include <map>
#include <memory>
#include <string>

namespace Brimvale {
class ConfigurationValue;
}

/// The user's choice of units: one unit for each of 18 quantities, the active currency, and the
/// path of the exchange rates.
///
/// An application has one registered configuration, instance(), which the configuration manager
/// loads and saves under the name "UnitsConfiguration". Others may be made freely; they load
/// nothing unless told to. A copy takes over the values, neither the slots nor whether loading is
/// enabled; assignment announces nothing.
///
/// A change is announced twice, first by the "changed" signal, then by one UnitsChangedEvent that
/// is sent to the main window, if there is one. The currency starts as "EUR", the path empty.
///
/// For the GUI thread only.
class BVWIDGETS_EXPORT UnitsConfiguration : public Brimvale::ConfigurationObject
{
    Q_GADGET

public:
    /// The quantities whose unit can be chosen. A list of the enumerators has NoDimension, too.
    enum Dimension : qint32 {
        NoDimension = -1,
        Length = 0,
        TinyLength = 1,
        NanoLength = 2,
        Mass = 3,
        Temperature = 4,
        Pressure = 5,
        Force = 6,
        Angle = 7,
        Area = 8,
        Volume = 9,
        Percentage = 10,
        Rate = 11,
        Stiffness = 12,
        Torque = 13,
        AngularVelocity = 14,
        Moment = 15,
        Curvature = 16,
        GaussianCurvature = 17,
    };
    Q_ENUM(Dimension)

    static constexpr int s_dimensionCount = 18;

    /// The registered configuration; registers itself when it is first asked for. One that the
    /// application has registered before under the same name takes its place. Either way the first
    /// call enables loading and, where that was off, takes over the values of the file that the
    /// configuration manager has loaded last. If an object of another class has taken the name, a
    /// warning says so, and the configuration is one that is never saved.
    static UnitsConfiguration &instance();

    UnitsConfiguration();
    UnitsConfiguration(const UnitsConfiguration &other);
    UnitsConfiguration &operator=(const UnitsConfiguration &other);
    ~UnitsConfiguration() override;

    /// The name of the dimension's setting ("Length"); empty for an unknown dimension.
    static QString dimensionKey(Dimension dimension);
    /// The units that can be chosen, the default first; empty for an unknown dimension.
    static QStringList allowedUnits(Dimension dimension);

    /// The chosen unit; empty for an unknown dimension.
    QString currentUnit(Dimension dimension) const;
    /// The chosen unit of the dimension to which @p unit belongs; @p unit itself if there is none.
    QString currentUnit(const QString &unit) const;
    /// Stores the choice, whether allowed or not, and announces it even if nothing changes. An
    /// unknown dimension is ignored.
    void setCurrentUnit(Dimension dimension, const QString &unit);

    /// The first dimension of which @p unit is, exactly, an allowed unit; else NoDimension (-1).
    Dimension isSupportedUnitOfAny(const QString &unit) const;
    /// The number of decimals with which values in @p unit are shown.
    int precisionOfUnit(const QString &unit) const;

    /// The symbol of the active currency, in UTF-8.
    std::string getActiveCurrency() const;
    /// The path of the exchange-rate data, in UTF-8.
    std::string getExchangeRatePath() const;
    /// Sets both, in UTF-8. Announces nothing.
    void setCurrencySettings(const std::string &currency, const std::string &path);

    /// Whether loadContent() does anything. On for instance(), off for others.
    bool isLoadingEnabled() const { return m_loadingEnabled; }
    void setLoadingEnabled(bool on) { m_loadingEnabled = on; }

    /// Calls @p slot after each announced change until the returned connection is destroyed.
    [[nodiscard]] Signals::Connection connectChanged(const std::function<void()> &slot);

    std::unique_ptr<Brimvale::ConfigurationObject> createConfigurationObject() const override;
    /// Takes the stored values over, if loading is enabled, and announces it if any value changes.
    /// A unit that its dimension does not allow is refused with a warning, and the choice stays.
    void loadContent(Brimvale::ConfigReader &reader) override;
    /// Resets every value to its default and announces it.
    void setDefaultValues() override;

private:
    void linkValues();
    void refuseUnsupportedUnits(const Brimvale::ConfigReader &reader,
                                const UnitsConfiguration &earlier);
    bool hasEqualValues(const UnitsConfiguration &other) const;
    void announce();

    std::map<Dimension, Brimvale::ConfigurationValue *> m_units; // owned by the base
    Brimvale::ConfigurationValue *m_currency = nullptr;          // owned by the base
    Brimvale::ConfigurationValue *m_exchangeRates = nullptr;     // owned by the base
    Signals::Signal<void()> m_changed;
    bool m_loadingEnabled = false;
};
