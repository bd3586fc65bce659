// SPDX-License-Identifier: MIT
#include "units/UnitsConfiguration.h"

#include "foundation/MainWindow.h"
#include "platform/ConfigReader.h"
#include "platform/ConfigurationManager.h"
#include "platform/ConfigurationValue.h"
#include "units/UnitsChangedEvent.h"

#include <QCoreApplication>
#include <QWidget>
#include <QtDebug>

#include <algorithm>
#include <iterator>
#include <utility>

using Brimvale::ConfigurationManager;
using Brimvale::ConfigurationValue;

namespace {

struct Quantity
{
    const char *key;
    const char *units; // separated by commas, the default first
    int decimals;
};

// In the order of UnitsConfiguration::Dimension.
constexpr Quantity s_quantities[UnitsConfiguration::s_dimensionCount] = {
    {"Length", "mm,m,inch", 3},
    {"Tiny-Length", "um", 3},
    {"Nano-Length", "nm", 3},
    {"Mass", "kg,t,lb,lbt", 3},
    {"Temperature", "degC,degF,K", 2},
    {"Pressure", "MPa,N/mm^2,psi,bar", 1},
    {"Force", "kN,N,tf,tonf", 1},
    {"Angle", "deg,rad", 2},
    {"Area", "dm^2,mm^2,inch^2", 2},
    {"Volume", "dm^3,mm^3,inch^3", 2},
    {"Percentage", "%,perc", 1},
    {"Rate", "1/min", 1},
    {"Stiffness", "MPa/mm,N/mm^3,lbf/inch^3", 2},
    {"Torque", "N*m,lbf*inch", 2},
    {"Angular Velocity", "deg/s,rad/s", 2},
    {"Moment", "kNm,Nm", 3},
    {"Curvature", "1/mm,1/m,1/inch", 3},
    {"GaussianCurvature", "1/mm^2,1/m^2,1/inch^2", 3},
};

constexpr int s_otherDecimals = 3; // of units of no dimension

struct UnitDecimals
{
    const char *unit;
    int decimals;
};

// Units shown with other decimals than the rest of their quantity.
constexpr UnitDecimals s_unitDecimals[] = {{"mm", 2}, {"m", 5}, {"t", 6}, {"psi", 2}, {"N", 0}};

constexpr char s_objectName[] = "UnitsConfiguration";
constexpr char s_currencyKey[] = "Currency";
constexpr char s_exchangeRatesKey[] = "ExchangeRates";

const Quantity *quantityOf(UnitsConfiguration::Dimension dimension)
{
    const bool isKnown = dimension >= 0 && dimension < UnitsConfiguration::s_dimensionCount;
    return isKnown ? &s_quantities[dimension] : nullptr;
}

std::unique_ptr<ConfigurationValue> createValue(UnitsConfiguration::Dimension dimension)
{
    const QStringList units = UnitsConfiguration::allowedUnits(dimension);
    const QString description = QLatin1String("allowed values ") + units.join(QLatin1Char(','));
    return std::make_unique<ConfigurationValue>(UnitsConfiguration::dimensionKey(dimension),
                                                units.value(0), units, description);
}

std::unique_ptr<ConfigurationValue> createValue(const char *key, const char *defaultValue,
                                                const char *description)
{
    return std::make_unique<ConfigurationValue>(QLatin1String(key), QLatin1String(defaultValue),
                                                QStringList(), QLatin1String(description));
}

/// Registers a configuration unless the application has registered one already.
UnitsConfiguration &registeredConfiguration()
{
    Brimvale::ConfigurationObject *const object =
        ConfigurationManager::instance().registerObject(std::make_unique<UnitsConfiguration>());
    if (auto *const configuration = dynamic_cast<UnitsConfiguration *>(object))
        return *configuration;
    qWarning("The configuration object \"%s\" is of another class: units are not stored",
             s_objectName);
    static UnitsConfiguration s_unregistered;
    return s_unregistered;
}

} // namespace

UnitsConfiguration &UnitsConfiguration::instance()
{
    static UnitsConfiguration &s_registered = registeredConfiguration();
    static bool s_isFirstCall = true;
    // Loading comes last: who hears of it asks for the instance again.
    if (std::exchange(s_isFirstCall, false) && !s_registered.isLoadingEnabled()) {
        s_registered.setLoadingEnabled(true);
        ConfigurationManager::instance().reload(s_registered);
    }
    return s_registered;
}

UnitsConfiguration::UnitsConfiguration()
    : ConfigurationObject(QLatin1String(s_objectName))
{
    for (int index = 0; index < s_dimensionCount; ++index)
        addConfigurationValue(createValue(static_cast<Dimension>(index)));
    addConfigurationValue(createValue(s_currencyKey, "EUR", "symbol of the active currency"));
    addConfigurationValue(createValue(s_exchangeRatesKey, "", "path of the exchange-rate data"));
    linkValues();
}

UnitsConfiguration::UnitsConfiguration(const UnitsConfiguration &other)
    : ConfigurationObject(other)
{
    linkValues();
}

UnitsConfiguration &UnitsConfiguration::operator=(const UnitsConfiguration &other)
{
    if (this != &other) {
        ConfigurationObject::operator=(other);
        linkValues();
    }
    return *this;
}

UnitsConfiguration::~UnitsConfiguration() = default;

QString UnitsConfiguration::dimensionKey(Dimension dimension)
{
    const Quantity *quantity = quantityOf(dimension);
    return quantity ? QLatin1String(quantity->key) : QLatin1String();
}

QStringList UnitsConfiguration::allowedUnits(Dimension dimension)
{
    const Quantity *quantity = quantityOf(dimension);
    return quantity ? QString(QLatin1String(quantity->units)).split(QLatin1Char(','))
                    : QStringList();
}

QString UnitsConfiguration::currentUnit(Dimension dimension) const
{
    const auto it = m_units.find(dimension);
    return it == m_units.end() ? QString() : it->second->value();
}

QString UnitsConfiguration::currentUnit(const QString &unit) const
{
    const Dimension dimension = isSupportedUnitOfAny(unit);
    return dimension == NoDimension ? unit : currentUnit(dimension);
}

void UnitsConfiguration::setCurrentUnit(Dimension dimension, const QString &unit)
{
    const auto it = m_units.find(dimension);
    if (it == m_units.end())
        return;
    it->second->setValue(unit);
    announce();
}

UnitsConfiguration::Dimension UnitsConfiguration::isSupportedUnitOfAny(const QString &unit) const
{
    const auto it = std::find_if(m_units.begin(), m_units.end(), [&unit](const auto &entry) {
        return entry.second->allowedValues().contains(unit);
    });
    return it == m_units.end() ? NoDimension : it->first;
}

int UnitsConfiguration::precisionOfUnit(const QString &unit) const
{
    const auto it =
        std::find_if(std::begin(s_unitDecimals), std::end(s_unitDecimals),
                     [&unit](const auto &entry) { return unit == QLatin1String(entry.unit); });
    if (it != std::end(s_unitDecimals))
        return it->decimals;
    const Quantity *quantity = quantityOf(isSupportedUnitOfAny(unit));
    return quantity ? quantity->decimals : s_otherDecimals;
}

std::string UnitsConfiguration::getActiveCurrency() const
{
    return m_currency->value().toStdString();
}

std::string UnitsConfiguration::getExchangeRatePath() const
{
    return m_exchangeRates->value().toStdString();
}

void UnitsConfiguration::setCurrencySettings(const std::string &currency, const std::string &path)
{
    m_currency->setValue(QString::fromStdString(currency));
    m_exchangeRates->setValue(QString::fromStdString(path));
}

Signals::Connection UnitsConfiguration::connectChanged(const std::function<void()> &slot)
{
    return m_changed.connect(slot);
}

std::unique_ptr<Brimvale::ConfigurationObject> UnitsConfiguration::createConfigurationObject() const
{
    return std::make_unique<UnitsConfiguration>(*this);
}

void UnitsConfiguration::loadContent(Brimvale::ConfigReader &reader)
{
    if (!m_loadingEnabled)
        return;
    const UnitsConfiguration earlier(*this);
    ConfigurationObject::loadContent(reader);
    refuseUnsupportedUnits(reader, earlier);
    if (!hasEqualValues(earlier))
        announce();
}

void UnitsConfiguration::setDefaultValues()
{
    ConfigurationObject::setDefaultValues();
    announce();
}

/// Looks the values up anew, which the base has created or copied.
void UnitsConfiguration::linkValues()
{
    for (int index = 0; index < s_dimensionCount; ++index) {
        const auto dimension = static_cast<Dimension>(index);
        m_units[dimension] = configurationValue(dimensionKey(dimension));
    }
    m_currency = configurationValue(QLatin1String(s_currencyKey));
    m_exchangeRates = configurationValue(QLatin1String(s_exchangeRatesKey));
}

void UnitsConfiguration::refuseUnsupportedUnits(const Brimvale::ConfigReader &reader,
                                                const UnitsConfiguration &earlier)
{
    for (const auto &[dimension, value] : m_units) {
        const QString unit = value->value();
        if (!reader.contains(name(), value->name()) || value->isAllowed(unit))
            continue;
        // In Latin-1, which the message handlers take as UTF-8.
        qWarning("Could not load unit preference,unsupported unit %s",
                 qUtf8Printable(QString::fromLatin1(unit.toLatin1())));
        value->setValue(earlier.currentUnit(dimension));
    }
}

bool UnitsConfiguration::hasEqualValues(const UnitsConfiguration &other) const
{
    const auto values = configurationValues();
    const auto otherValues = other.configurationValues();
    return std::equal(values.begin(), values.end(), otherValues.begin(), otherValues.end(),
                      [](const auto *a, const auto *b) { return a->value() == b->value(); });
}

void UnitsConfiguration::announce()
{
    m_changed();
    QWidget *window = Brimvale::mainWindow();
    if (!window)
        return;
    UnitsChangedEvent event;
    QCoreApplication::sendEvent(window, &event);
}
