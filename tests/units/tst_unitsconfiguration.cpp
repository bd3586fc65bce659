// SPDX-License-Identifier: MIT
#include "TestRows.h"
#include "TestSupport.h"
#include "platform/ConfigReader.h"
#include "platform/ConfigWriter.h"
#include "platform/ConfigurationManager.h"
#include "platform/ConfigurationValue.h"
#include "units/UnitConverter.h"
#include "units/UnitsChangedEvent.h"
#include "units/UnitsConfiguration.h"

#include <QApplication>
#include <QPointer>
#include <QTemporaryDir>
#include <QTest>
#include <QWidget>

using Dimension = UnitsConfiguration::Dimension;

namespace {

/// Writes "U" when the unit event arrives, and asks for the registered configuration as a window
/// does that shows its values anew.
class EventLog : public QWidget
{
public:
    explicit EventLog(QString &log)
        : m_log(log)
    {
        qApp->setProperty("MainWindow", QVariant::fromValue<QWidget *>(this));
    }
    ~EventLog() override { qApp->setProperty("MainWindow", QVariant()); }

    bool event(QEvent *event) override
    {
        if (event->type() == UnitsChangedEvent::s_eventType) {
            m_log += 'U';
            m_lengthUnit = UnitsConfiguration::instance().currentUnit(Dimension::Length);
        }
        return QWidget::event(event);
    }

    const QString &lengthUnit() const { return m_lengthUnit; }

private:
    QString &m_log;
    QString m_lengthUnit; // when the event came last
};

} // namespace

class tst_UnitsConfiguration : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void registersItself(); // first, before anything else asks for the instance
    void dimensions_data();
    void dimensions();
    void unitsOfDimensions_data();
    void unitsOfDimensions();
    void announces();
    void announcesToMainWindow();
    void loads_data();
    void loads();
    void announcesLoadedChanges();
    void savesAndLoads();
    void copiesAreIndependent();
    void unknownDimension();

private:
    QString settingsFile(const QString &key, const QString &text);

    QTemporaryDir m_directory;
};

QString tst_UnitsConfiguration::settingsFile(const QString &key, const QString &text)
{
    const QString fileName = m_directory.filePath(key + ".ini");
    Brimvale::ConfigWriter writer(fileName);
    writer.setValue("UnitsConfiguration", key, text);
    return writer.commit() ? fileName : QString();
}

void tst_UnitsConfiguration::registersItself()
{
    const QString fileName = settingsFile("Length", "inch");
    auto &manager = Brimvale::ConfigurationManager::instance();
    QVERIFY(manager.load(fileName));
    QString log;
    const EventLog window(log);
    UnitsConfiguration &configuration = UnitsConfiguration::instance();
    QCOMPARE(manager.object("UnitsConfiguration"), &configuration);
    QCOMPARE(configuration.currentUnit("mm"), QString("inch"));
    QCOMPARE(window.lengthUnit(), QString("inch"));
    QVERIFY(manager.save(fileName));
    QCOMPARE(Brimvale::ConfigReader(fileName).value("UnitsConfiguration", "Length"), QString("inch"));

    configuration.setCurrentUnit(Dimension::Length, "m");
    QVERIFY(manager.load(fileName));
    QCOMPARE(UnitsConfiguration::instance().currentUnit("mm"), QString("inch"));
    QCOMPARE(log, QString("UUU"));
    manager.setDefaultValues();
    QCOMPARE(configuration.currentUnit("inch"), QString("mm"));
}

void tst_UnitsConfiguration::dimensions_data()
{
    const Table<QString, QString> row("units", "decimals");
    row("Length", "mm,m,inch", "2,5,3");
    row("Tiny-Length", "um", "3");
    row("Nano-Length", "nm", "3");
    row("Mass", "kg,t,lb,lbt", "3,6,3,3");
    row("Temperature", "degC,degF,K", "2,2,2");
    row("Pressure", "MPa,N/mm^2,psi,bar", "1,1,2,1");
    row("Force", "kN,N,tf,tonf", "1,0,1,1");
    row("Angle", "deg,rad", "2,2");
    row("Area", "dm^2,mm^2,inch^2", "2,2,2");
    row("Volume", "dm^3,mm^3,inch^3", "2,2,2");
    row("Percentage", "%,perc", "1,1");
    row("Rate", "1/min", "1");
    row("Stiffness", "MPa/mm,N/mm^3,lbf/inch^3", "2,2,2");
    row("Torque", "N*m,lbf*inch", "2,2");
    row("Angular Velocity", "deg/s,rad/s", "2,2");
    row("Moment", "kNm,Nm", "3,3");
    row("Curvature", "1/mm,1/m,1/inch", "3,3,3");
    row("GaussianCurvature", "1/mm^2,1/m^2,1/inch^2", "3,3,3");
}

void tst_UnitsConfiguration::dimensions()
{
    QFETCH(QString, units);
    const QString key = QTest::currentDataTag();
    const UnitsConfiguration configuration;
    const auto dimension = configuration.isSupportedUnitOfAny(units.section(',', 0, 0)); // each first unit is unique
    QCOMPARE(UnitsConfiguration::dimensionKey(dimension), key);
    QCOMPARE(UnitsConfiguration::allowedUnits(dimension).join(','), units);

    const Brimvale::ConfigurationValue *value = configuration.configurationValue(key);
    QVERIFY(value);
    QCOMPARE(value->description(), "allowed values " + units);
    QCOMPARE(configuration.currentUnit(dimension), units.section(',', 0, 0));
    QStringList decimals;
    for (const QString &unit : units.split(',')) {
        decimals << QString::number(configuration.precisionOfUnit(unit));
        QVERIFY(UnitConverter::isConvertable(value->defaultValue(), unit));
    }
    QTEST(decimals.join(','), "decimals");
}

void tst_UnitsConfiguration::unitsOfDimensions_data()
{
    const Table<QString, int, QString, int> row("unit", "dimension", "current", "decimals");
    row("length", "m", int(Dimension::Length), "inch", 5);
    row("one unit, own dimension", "um", 1, "um", 3);
    row("torque is no moment", "N*m", int(Dimension::Torque), "N*m", 2);
    row("moment is no torque", "Nm", int(Dimension::Moment), "kNm", 3);
    row("equal unit, other text", "in", -1, "in", 3);
    row("convertible, not allowed", "ft", -1, "ft", 3);
    row("empty", "", -1, "", 3);
}

void tst_UnitsConfiguration::unitsOfDimensions()
{
    QFETCH(QString, unit);
    UnitsConfiguration configuration;
    configuration.setCurrentUnit(Dimension::Length, "inch");
    QTEST(int(configuration.isSupportedUnitOfAny(unit)), "dimension");
    QTEST(configuration.currentUnit(unit), "current");
    QTEST(configuration.precisionOfUnit(unit), "decimals");
}

void tst_UnitsConfiguration::announces()
{
    QString log;
    UnitsConfiguration configuration;
    Signals::Connection connection = configuration.connectChanged([&] { log += 'c'; });
    configuration.setCurrentUnit(Dimension::Length, "m");
    QCOMPARE(log, QString("c"));

    const EventLog window(log);
    configuration.setCurrentUnit(Dimension::Length, "m");
    QCOMPARE(log, QString("ccU")); // also for an unchanged unit
    configuration.setCurrentUnit(Dimension::Length, "furlong");
    QCOMPARE(configuration.currentUnit(Dimension::Length), QString("furlong"));
    configuration.setCurrencySettings("USD", "rates.xml");
    QCOMPARE(log, QString("ccUcU"));

    QString seen;
    connection = configuration.connectChanged(
        [&] { seen = configuration.currentUnit(Dimension::Length) + QString::fromStdString(configuration.getActiveCurrency()); });
    configuration.setDefaultValues();
    QCOMPARE(seen, QString("mmEUR"));
    QCOMPARE(log, QString("ccUcUU"));
    QVERIFY(configuration.getExchangeRatePath().empty());
}

void tst_UnitsConfiguration::announcesToMainWindow()
{
    QWidget window;
    QObject object;
    auto *const deleted = new QWidget;
    const std::pair<QVariant, int> cases[] = {{QVariant::fromValue(&window), 1},
                                              {QVariant::fromValue<QObject *>(&window), 1},
                                              {QVariant::fromValue(QPointer<QWidget>(&window)), 1},
                                              {QVariant::fromValue(QPointer<QWidget>(deleted)), 0},
                                              {QVariant::fromValue(&object), 0},
                                              {QVariant("window"), 0}};
    delete deleted;
    for (const auto &[property, events] : cases) {
        const EventCounter counter(&window, UnitsChangedEvent::s_eventType);
        qApp->setProperty("MainWindow", property);
        UnitsConfiguration().setCurrentUnit(Dimension::Mass, "t");
        qApp->setProperty("MainWindow", QVariant());
        QVERIFY2(counter.count() == events, property.typeName());
    }
}

void tst_UnitsConfiguration::loads_data()
{
    const Table<bool, QString, QString, QString, QString> row("enabled", "stored", "warning", "mass", "log");
    const QString warning = "Could not load unit preference,unsupported unit ";
    row("allowed unit", true, "lb", "", "lb", "cU");
    row("what was chosen before", true, "stone", warning + "stone", "stone", "");
    row("no unit", true, "x y", warning + "x y", "stone", "");
    row("beyond ASCII", true, QString::fromUtf8("°C"), warning + "°C", "stone", "");
    row("beyond Latin-1", true, QString::fromUtf8("μg"), warning + "?g", "stone", "");
    row("empty", true, "", warning, "stone", "");
    row("disabled", false, "lb", "", "stone", "");
}

void tst_UnitsConfiguration::loads()
{
    auto [enabled, stored, warning] = fetched<bool, QString, QString>("enabled", "stored", "warning");
    Brimvale::ConfigReader reader(settingsFile("Mass", stored));

    UnitsConfiguration configuration;
    configuration.setCurrentUnit(Dimension::Mass, "stone"); // stays where nothing better is loaded
    configuration.setCurrentUnit(Dimension::Length, "rod"); // the file does not name it
    configuration.setLoadingEnabled(enabled);
    QString log;
    const EventLog window(log);
    const Signals::Connection connection = configuration.connectChanged([&] { log += 'c'; });
    if (!warning.isEmpty())
        QTest::ignoreMessage(QtWarningMsg, qPrintable(warning));
    configuration.loadContent(reader);
    QTEST(configuration.currentUnit(Dimension::Mass), "mass");
    QCOMPARE(configuration.currentUnit(Dimension::Length), QString("rod"));
    QTEST(log, "log");
}

void tst_UnitsConfiguration::announcesLoadedChanges()
{
    QString log;
    UnitsConfiguration configuration;
    configuration.setLoadingEnabled(true);
    const Signals::Connection connection = configuration.connectChanged([&] { log += 'c'; });
    for (int round = 0; round < 2; ++round) {
        Brimvale::ConfigReader reader(settingsFile("ExchangeRates", "rates.csv"));
        configuration.loadContent(reader);
        QCOMPARE(log, QString("c")); // the same values again are no change
    }
}

void tst_UnitsConfiguration::savesAndLoads()
{
    UnitsConfiguration configuration;
    configuration.setCurrentUnit(Dimension::AngularVelocity, "rad/s");
    configuration.setCurrentUnit(Dimension::Percentage, "perc");
    configuration.setCurrencySettings("JPY", "/tmp/rates, \xc3\xbc.xml");
    const QString fileName = m_directory.filePath("all.ini");
    Brimvale::ConfigWriter writer(fileName);
    configuration.saveContent(writer);
    QVERIFY(writer.commit());

    UnitsConfiguration loaded;
    loaded.setLoadingEnabled(true);
    Brimvale::ConfigReader reader(fileName);
    loaded.loadContent(reader);
    for (int dimension = 0; dimension < UnitsConfiguration::s_dimensionCount; ++dimension)
        QCOMPARE(loaded.currentUnit(Dimension(dimension)), configuration.currentUnit(Dimension(dimension)));
    QCOMPARE(loaded.getActiveCurrency(), configuration.getActiveCurrency());
    QCOMPARE(loaded.getExchangeRatePath(), configuration.getExchangeRatePath());
}

void tst_UnitsConfiguration::copiesAreIndependent()
{
    QString log;
    auto original = std::make_unique<UnitsConfiguration>();
    original->setLoadingEnabled(true);
    original->setCurrentUnit(Dimension::Force, "tf");
    original->setCurrencySettings("\xe2\x82\xac", "rates");
    const Signals::Connection connection = original->connectChanged([&] { log += 'o'; });

    const auto object = original->createConfigurationObject();
    auto *const created = dynamic_cast<UnitsConfiguration *>(object.get());
    QVERIFY(created);
    UnitsConfiguration assigned;
    assigned = *original;
    UnitsConfiguration &same = assigned;
    assigned = same;
    original.reset();

    for (UnitsConfiguration *copy : {created, &assigned}) {
        QCOMPARE(copy->currentUnit(Dimension::Force), QString("tf"));
        QCOMPARE(copy->getActiveCurrency(), std::string("\xe2\x82\xac"));
        QVERIFY(!copy->isLoadingEnabled());
        copy->setCurrentUnit(Dimension::Force, "N");
        QCOMPARE(copy->configurationValue("Force")->value(), QString("N"));
    }
    QCOMPARE(log, QString()); // copies have slots of their own
}

void tst_UnitsConfiguration::unknownDimension()
{
    QString log;
    UnitsConfiguration configuration;
    const Signals::Connection connection = configuration.connectChanged([&] { log += 'c'; });
    for (const int number : {-1, 18, 1000}) {
        const auto dimension = Dimension(number);
        configuration.setCurrentUnit(dimension, "mm");
        QVERIFY(configuration.currentUnit(dimension).isEmpty());
        QVERIFY(UnitsConfiguration::allowedUnits(dimension).isEmpty());
        QVERIFY(UnitsConfiguration::dimensionKey(dimension).isEmpty());
    }
    QVERIFY(log.isEmpty());
}

QTEST_MAIN(tst_UnitsConfiguration)
#include "tst_unitsconfiguration.moc"
