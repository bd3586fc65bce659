// SPDX-License-Identifier: MIT
#include "platform/ConfigReader.h"
#include "platform/ConfigWriter.h"
#include "platform/ConfigurationManager.h"
#include "platform/ConfigurationObject.h"
#include "platform/ConfigurationValue.h"

#include <QFile>
#include <QRegularExpression>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>

using Brimvale::ConfigReader;
using Brimvale::ConfigurationManager;
using Brimvale::ConfigurationObject;
using Brimvale::ConfigurationValue;
using Brimvale::ConfigWriter;

namespace {

const QRegularExpression s_notUsed("^Configuration file \".+\" is not used: .+");
const QRegularExpression s_notSaved("^Configuration file \".+\" cannot be saved: .+");

void writeFile(const QString &fileName, const QByteArray &bytes)
{
    QFile file(fileName);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(bytes);
}

QByteArray readFile(const QString &fileName)
{
    QFile file(fileName);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(no such file)");
}

QString fontSize(const ConfigurationObject *view)
{
    return view->configurationValue("Font Size")->value();
}

void writeFontSize(const QString &fileName, const QString &text)
{
    ConfigWriter writer(fileName);
    writer.setValue("View", "Font Size", text);
    QVERIFY(writer.commit());
}

std::unique_ptr<ConfigurationObject> makeView()
{
    auto object = std::make_unique<ConfigurationObject>("View");
    object->addConfigurationValue(std::make_unique<ConfigurationValue>("Font Size", "12"));
    object->addConfigurationValue(std::make_unique<ConfigurationValue>("Tiny-Length", "um"));
    return object;
}

/// Has the view registered while it is being loaded.
class ViewMaker : public ConfigurationObject
{
public:
    explicit ViewMaker(ConfigurationManager &manager)
        : ConfigurationObject("Maker")
        , m_manager(manager)
    {
    }

    void loadContent(ConfigReader &) override { m_manager.registerObject(makeView()); }

private:
    ConfigurationManager &m_manager;
};

} // namespace

class tst_Configuration : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void textsRoundTrip();
    void namesDoNotMix();
    void savesOfOneMomentAreTold();
    void unusableFile();
    void filesWithoutContent();
    void handWrittenFile();
    void unknownKeysSurvive();
    void unwritableTarget();
    void managerLoadsAndSavesAll();
    void lateObjectsAreLoaded();
    void loadingMayRegister();
    void assignmentKeepsPointers();

private:
    QString fileName(const char *name) const { return m_folder->filePath(name); }

    std::unique_ptr<QTemporaryDir> m_folder;
};

void tst_Configuration::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(m_folder->isValid());
}

void tst_Configuration::textsRoundTrip()
{
    const QString rows[] = {
        "",
        "a, b,c,",
        "say \"no\"",
        QString::fromUtf8("Größe µm²"),
        QString::fromUtf8("\xF0\x9F\x94\xA7 1"),
        QString(QChar(0xD83D)) + "ab",
        "100 %20 %",
        "one\ntwo\r\n\tthree",
        "  x ",
        "@Invalid()",
        "@Variant(\\0)",
        "[View]",
        "; x # y = z",
        "C:\\new\\x41",
        QString(QChar(0)) + "b",
    };
    for (const auto &text : rows) {
        ConfigWriter writer(fileName("a.ini"));
        writer.setValue("Angular Velocity", "Tiny-Length", text);
        QVERIFY(writer.commit());

        const ConfigReader reader(fileName("a.ini"));
        QVERIFY2(reader.contains("Angular Velocity", "Tiny-Length"), qPrintable(text));
        QCOMPARE(reader.value("Angular Velocity", "Tiny-Length", "default"), text);
        QCOMPARE(reader.value("Angular Velocity", "other", "default"), QString("default"));

        QVERIFY(ConfigWriter(fileName("a.ini")).commit()); // as a key that nobody knows
        QCOMPARE(ConfigReader(fileName("a.ini")).value("Angular Velocity", "Tiny-Length"), text);
    }
}

void tst_Configuration::namesDoNotMix()
{
    const std::vector<std::pair<const char *, const char *>> names = {{"General", "x"}, {"general", "x"},   {"a/b", "c"}, {"a", "b/c"},
                                                                      {"a%2Fb", "c"},   {"/", "//"},        {"[a]", "="}, {"Mäße", "größte Länge"},
                                                                      {"a b", "c-d"},   {"View", "version"}};
    ConfigWriter writer(fileName("a.ini"));
    for (const auto &[object, value] : names)
        writer.setValue(object, value, QString(object) + "|" + value);
    writer.setValue("", "x", "nameless");
    writer.setValue("x", "", "nameless");
    QVERIFY(writer.commit());

    const ConfigReader reader(fileName("a.ini"));
    for (const auto &[object, value] : names)
        QCOMPARE(reader.value(object, value), QString(object) + "|" + value);
    QVERIFY(!reader.contains("", "x"));
    QVERIFY(!reader.contains("x", ""));
}

void tst_Configuration::savesOfOneMomentAreTold()
{
    for (int i = 0; i < 20; ++i) { // equal in size and, often, in time
        ConfigWriter writer(fileName("a.ini"));
        writer.setValue("View", "unit", i % 2 ? "mm" : "um");
        QVERIFY(writer.commit());
        QCOMPARE(ConfigReader(fileName("a.ini")).value("View", "unit"), QString(i % 2 ? "mm" : "um"));
    }
}

void tst_Configuration::unusableFile()
{
    QByteArray binary;
    for (int i = 0; i < 4096; ++i)
        binary.append(char(1 + i * 7 % 255));
    const std::pair<const char *, QByteArray> rows[] = {
        {"binary", binary},
        {"zeros", QByteArray("[General]\nConfigurationFormat=1\n") + QByteArray(64, '\0')},
        {"xml", QByteArray("<?xml version=\"1.0\"?>\n<a b=\"c\">\n</a>\n")},
        {"another program's settings", QByteArray("[View]\nFont%20Size=8\n")},
        {"cut off", QByteArray("[General]\nConfigurationFormat=1\n\n[View]\nFont%20Size=8\nTiny")},
        {"cut off in a group", QByteArray("[General]\nConfigurationFormat=1\n\n[View]\nFont%20Size=8\n[Vie")},
        {"later format", QByteArray("[General]\nConfigurationFormat=2\n[View]\nFont%20Size=8\n")},
        {"no format", QByteArray("[General]\nConfigurationFormat=x\n[View]\nFont%20Size=8\n")},
    };
    for (const auto &[fault, bytes] : rows) {
        const QString name = fileName("a.ini");
        writeFile(name, bytes);
        writeFile(name + ".bak", "an earlier one");
        ConfigurationManager manager;
        ConfigurationObject *view = manager.registerObject(makeView());

        QTest::ignoreMessage(QtWarningMsg, s_notUsed);
        QVERIFY2(!manager.load(name), fault);
        QCOMPARE(fontSize(view), QString("12"));
        QVERIFY2(readFile(name) == bytes, fault);
        QCOMPARE(readFile(name + ".bak"), QByteArray("an earlier one"));

        QVERIFY2(manager.save(name), fault);
        QVERIFY2(readFile(name + ".bak") == bytes, fault);
        QVERIFY2(manager.load(name), fault);
        QCOMPARE(QDir(m_folder->path()).entryList(QDir::Files).size(), 2);
    }
}

void tst_Configuration::filesWithoutContent()
{
    QVERIFY(ConfigReader(fileName("missing.ini")).isValid());
    QVERIFY(ConfigReader(QString()).isValid());
    writeFile(fileName("empty.ini"), "\n");
    QVERIFY(ConfigReader(fileName("empty.ini")).isValid());

    QTest::ignoreMessage(QtWarningMsg, s_notUsed);
    const ConfigReader folder(m_folder->path());
    QVERIFY(!folder.isValid());
    QVERIFY(!folder.contains("View", "x"));
}

void tst_Configuration::handWrittenFile()
{
    writeFile(fileName("a.ini"), "; mine\n[General]\nConfigurationFormat=1\n[View]\n"
                                 "list=a,b\nunit=\xC2\xB5m\nplain = 25 mm \n");
    const ConfigReader reader(fileName("a.ini"));
    QCOMPARE(reader.value("View", "list"), QString("a,b"));
    QCOMPARE(reader.value("View", "unit"), QString::fromUtf8("µm"));
    QCOMPARE(reader.value("View", "plain"), QString("25 mm"));
}

void tst_Configuration::unknownKeysSurvive()
{
    const QString name = fileName("a.ini");
    ConfigurationManager manager;
    ConfigurationObject *view = manager.registerObject(makeView());
    QVERIFY(manager.save(name));
    {
        QSettings settings(name, QSettings::IniFormat);
        settings.setValue("topmost", 1);
        settings.setValue("View/later", QStringList{"a", "b,c"});
        settings.setValue("Other group/deep/key", QByteArray("\x01\xff", 2));
        settings.setValue("View/Font Size", "9");
    }
    QVERIFY(manager.load(name));
    QCOMPARE(fontSize(view), QString("9"));
    view->configurationValue("Font Size")->setValue("10");
    QVERIFY(manager.save(name));

    const QSettings settings(name, QSettings::IniFormat);
    QCOMPARE(settings.value("topmost").toInt(), 1);
    QCOMPARE(settings.value("View/later").toStringList(), (QStringList{"a", "b,c"}));
    QCOMPARE(settings.value("Other group/deep/key").toByteArray(), QByteArray("\x01\xff", 2));
    QCOMPARE(settings.value("View/Font Size").toString(), QString("10"));
    QVERIFY(!QFile::exists(name + ".bak"));
}

void tst_Configuration::unwritableTarget()
{
    QVERIFY(QDir(m_folder->path()).mkdir("folder"));
    QTest::ignoreMessage(QtWarningMsg, s_notSaved);
    QVERIFY(!ConfigWriter(fileName("folder")).commit());
    QVERIFY(QFileInfo(fileName("folder")).isDir());

    writeFile(fileName("plain"), "text");
    QTest::ignoreMessage(QtWarningMsg, s_notSaved);
    QVERIFY(!ConfigWriter(fileName("plain/a.ini")).commit());
    QCOMPARE(readFile(fileName("plain")), QByteArray("text"));

    // A folder in the place of the copy: the damaged file must not be lost.
    QVERIFY(QDir(m_folder->path()).mkpath("plain.bak/x"));
    QTest::ignoreMessage(QtWarningMsg, s_notSaved);
    QVERIFY(!ConfigWriter(fileName("plain")).commit());
    QCOMPARE(readFile(fileName("plain")), QByteArray("text"));

    QVERIFY(ConfigWriter(fileName("new/folders/a.ini")).commit());
}

void tst_Configuration::managerLoadsAndSavesAll()
{
    ConfigurationManager manager;
    QCOMPARE(manager.registerObject(nullptr), nullptr);
    ConfigurationObject *view = manager.registerObject(makeView());
    QCOMPARE(manager.registerObject(makeView()), view); // one object a name
    ConfigurationObject *tools = manager.registerObject(std::make_unique<ConfigurationObject>("Tools"));
    ConfigurationValue *radius = tools->addConfigurationValue(std::make_unique<ConfigurationValue>("radius", "5"));
    QCOMPARE(tools->addConfigurationValue(std::make_unique<ConfigurationValue>("radius")), nullptr);
    QCOMPARE(tools->addConfigurationValue(std::make_unique<ConfigurationValue>("")), nullptr);

    radius->setValue("8");
    view->configurationValue("Tiny-Length")->setValue("nm");
    QVERIFY(manager.save(fileName("a.ini")));
    manager.setDefaultValues();
    QCOMPARE(radius->value(), QString("5"));
    QVERIFY(manager.load(fileName("a.ini")));
    QCOMPARE(radius->value(), QString("8"));
    QCOMPARE(manager.object("View")->configurationValue("Tiny-Length")->value(), QString("nm"));
    QCOMPARE(manager.object("None"), nullptr);
}

void tst_Configuration::lateObjectsAreLoaded()
{
    const QString name = fileName("a.ini");
    writeFontSize(name, "9");
    ConfigurationManager manager;
    QVERIFY(manager.load(name));
    QVERIFY(manager.save(fileName("other.ini"))); // holds no view
    writeFile(fileName("damaged.ini"), "[View");
    QTest::ignoreMessage(QtWarningMsg, s_notUsed);
    QVERIFY(!manager.load(fileName("damaged.ini")));
    ConfigurationObject *view = manager.registerObject(makeView());
    QCOMPARE(fontSize(view), QString("9"));

    view->configurationValue("Font Size")->setValue("10");
    QCOMPARE(manager.registerObject(makeView()), view);
    QCOMPARE(fontSize(view), QString("10")); // only a new object is loaded
    QVERIFY(manager.save(name));
    view->configurationValue("Font Size")->setValue("11");
    manager.reload(*view);
    QCOMPARE(fontSize(view), QString("10"));

    ConfigurationManager reset;
    QVERIFY(reset.load(name));
    reset.setDefaultValues();
    QCOMPARE(fontSize(reset.registerObject(makeView())), QString("12"));
}

void tst_Configuration::loadingMayRegister()
{
    ConfigurationManager manager;
    manager.registerObject(std::make_unique<ViewMaker>(manager));
    writeFontSize(fileName("a.ini"), "9");
    QVERIFY(manager.load(fileName("a.ini")));
    QCOMPARE(fontSize(manager.object("View")), QString("9"));
}

void tst_Configuration::assignmentKeepsPointers()
{
    ConfigurationObject source("Source");
    source.addConfigurationValue(std::make_unique<ConfigurationValue>("new", "n"));
    source.addConfigurationValue(std::make_unique<ConfigurationValue>("both", "b"))->setValue("B");
    ConfigurationObject target("Target");
    ConfigurationValue *both = target.addConfigurationValue(std::make_unique<ConfigurationValue>("both", "x"));
    target.addConfigurationValue(std::make_unique<ConfigurationValue>("old", "o"));

    target = source;
    target = *&target;
    QCOMPARE(target.name(), QString("Source"));
    QCOMPARE(target.configurationValues().size(), size_t(2));
    QCOMPARE(target.configurationValues().at(1), both);
    QCOMPARE(both->value(), QString("B"));
    QCOMPARE(target.configurationValue("old"), nullptr);

    const std::unique_ptr<ConfigurationObject> copy = target.createConfigurationObject();
    both->reset();
    QCOMPARE(both->value(), QString("b"));
    QCOMPARE(copy->configurationValue("both")->value(), QString("B"));
}

QTEST_GUILESS_MAIN(tst_Configuration)

#include "tst_configuration.moc"
