// SPDX-License-Identifier: MIT
// The application registers a units configuration of its own before anyone asks for the instance.
#include "platform/ConfigReader.h"
#include "platform/ConfigWriter.h"
#include "platform/ConfigurationManager.h"
#include "units/UnitsConfiguration.h"

#include <QTemporaryDir>
#include <QTest>

class tst_UnitsRegistration : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void storedChoiceSurvives();
};

void tst_UnitsRegistration::storedChoiceSurvives()
{
    const QTemporaryDir folder;
    const QString fileName = folder.filePath("units.ini");
    Brimvale::ConfigWriter writer(fileName);
    writer.setValue("UnitsConfiguration", "Length", "inch");
    QVERIFY(writer.commit());

    auto &manager = Brimvale::ConfigurationManager::instance();
    auto *const registered = manager.registerObject(std::make_unique<UnitsConfiguration>());
    QVERIFY(manager.load(fileName));
    UnitsConfiguration &configuration = UnitsConfiguration::instance();
    QCOMPARE(&configuration, registered);
    QVERIFY(configuration.isLoadingEnabled());
    QCOMPARE(configuration.currentUnit(UnitsConfiguration::Length), QString("inch"));
    QVERIFY(manager.save(fileName));
    QCOMPARE(Brimvale::ConfigReader(fileName).value("UnitsConfiguration", "Length"), QString("inch"));

    configuration.setLoadingEnabled(false); // the application's to decide from now on
    QVERIFY(!UnitsConfiguration::instance().isLoadingEnabled());
}

QTEST_GUILESS_MAIN(tst_UnitsRegistration)
#include "tst_unitsregistration.moc"
