// SPDX-License-Identifier: MIT
#include "style/StyleSheetHandler.h"

#include <QApplication>
#include <QStyle>
#include <QTemporaryDir>
#include <QtTest>

#include <array>

using Brimvale::StyleSheetDiagnostic;
using Brimvale::StyleSheetHandler;

namespace {

// Serves sheets from memory and counts how often each is read.
class MemoryHandler : public StyleSheetHandler
{
public:
    explicit MemoryHandler(const QHash<QString, QString> &files)
        : StyleSheetHandler(false)
        , m_files(files)
    {
        load("top");
    }

    QHash<QString, QString> m_files;
    QStringList m_reads;

protected:
    QString readFromFile(const QString &path) override
    {
        m_reads << path;
        return m_files.value(path);
    }
};

MemoryHandler fontHandler()
{
    return MemoryHandler({{"top", "#include \"defines\"\n#include \"use\""},
                          {"defines", "#define bvFontSize 11\n#define bvFontSizeBig 12\n"
                                      "#define textColorError #ff4d4d\n#define palette(link) #123456"},
                          {"use", "big bvFontSizeBig; normal bvFontSize; color textColorError;"}});
}

QString used(StyleSheetHandler &handler)
{
    return handler.getStyleSheet().split('\n').value(3);
}

void writeFile(const QString &fileName, const QByteArray &text)
{
    QVERIFY(QDir().mkpath(QFileInfo(fileName).absolutePath()));
    QFile file(fileName);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(text);
}

QByteArray fileText(const QString &fileName)
{
    QFile file(fileName);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(none)");
}

} // namespace

class tst_StyleSheetHandler : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void constructorTellsPathsFromModes();
    void readsFiles();
    void topSheetIsAPartLikeAnyOther();
    void readsResources();
    void expandsOnceAndReadsOnce();
    void setsParts();
    void missingParts();
    void paletteIsTheBaseStyles();
    void userDefinesWin();
    void fontSizes();
    void lightVersion();
    void copiesAreIndependent();
    void savesFiles();
    void replacesPaths();
    void replacesDefines();
    void baseStyleSurvivesTheApplicationsChoice();

private:
    QTemporaryDir m_dir;
};

void tst_StyleSheetHandler::constructorTellsPathsFromModes()
{
    QVERIFY(StyleSheetHandler(true).getPath().contains("/../Resources"));
    QVERIFY(StyleSheetHandler(false).getPartNames().isEmpty());
    StyleSheetHandler literal("/no such folder/top.css");
    QCOMPARE(literal.getPath(), "/no such folder");
    QCOMPARE(literal.getPartNames(), QStringList("top.css"));
    QCOMPARE(literal.getStyleSheet(), "");
    QCOMPARE(literal.diagnostics().value(0).kind, StyleSheetDiagnostic::Kind::MissingFile);
    StyleSheetHandler directory(m_dir.path());
    QVERIFY(directory.getPath() == m_dir.path() && directory.getPartNames().isEmpty());
    char array[] = "/folder/array.css";
    QByteArray bytes = array;
    for (StyleSheetHandler handler : {StyleSheetHandler(array), StyleSheetHandler(bytes), StyleSheetHandler(QLatin1String(array))})
        QCOMPARE(handler.getPartNames(), QStringList("array.css"));
    QCOMPARE(StyleSheetHandler("/no such folder/").getPath(), "/no such folder");
    static_assert(!std::is_constructible_v<StyleSheetHandler, const char16_t *>);
    static_assert(!std::is_constructible_v<StyleSheetHandler, QObject *>);
}

void tst_StyleSheetHandler::readsFiles()
{
    writeFile(m_dir.filePath("top.css"), "\xEF\xBB\xBF#include \"sub/a.css\"\n#include \":/Style/b.css\"\n"
                                         "#include \"empty.css\"\n#include \"sub\"");
    writeFile(m_dir.filePath("sub/a.css"), "\xC3\xA4");
    writeFile(m_dir.filePath("Style/b.css"), "b");
    writeFile(m_dir.filePath("empty.css"), "");
    StyleSheetHandler handler(m_dir.filePath("top.css"));
    QCOMPARE(handler.getPart("sub/a.css"), QString(QChar(0xE4)));
    QCOMPARE(handler.getPart(":/Style/b.css"), "b");
    QCOMPARE(handler.diagnostics().size(), 1); // only the folder is no sheet
    QCOMPARE(handler.diagnostics().value(0).text, "sub");

    writeFile(m_dir.filePath("sub/a.css"), "changed");
    QVERIFY(!handler.getStyleSheet().contains("changed"));
    handler.reload();
    QVERIFY(handler.getStyleSheet().contains("changed"));
    handler.load(QString());
    QVERIFY(handler.getStyleSheet().isEmpty() && handler.getPartNames().isEmpty());
}

void tst_StyleSheetHandler::topSheetIsAPartLikeAnyOther()
{
    writeFile(m_dir.filePath("loop.css"), "#include \"loop.css\"\na");
    StyleSheetHandler handler(m_dir.filePath("loop.css"));
    QCOMPARE(handler.getPartNames(), QStringList("loop.css"));
    QCOMPARE(handler.getStyleSheet().count("a\n"), 1);
    QCOMPARE(handler.diagnostics().value(0), (StyleSheetDiagnostic{StyleSheetDiagnostic::Kind::CircularInclude, "loop.css", 1, "loop.css"}));
    handler.setPart("loop.css", "b");
    QCOMPARE(handler.getStyleSheet(), "b\n");

    writeFile(m_dir.filePath("other/loop.css"), "#include \"c.css\"");
    writeFile(m_dir.filePath("other/c.css"), "c");
    handler.load("loop.css");
    handler.setPath(m_dir.filePath("other")); // before anything has been asked for
    QVERIFY(handler.getStyleSheet().contains("\nc\n"));
}

void tst_StyleSheetHandler::readsResources()
{
    const QString expanded = "QLabel { font-size: 11pt }\n";
    StyleSheetHandler handler(true);
    for (const char *path : {"tst_stylesheethandler/sheet.css", ":/tst_stylesheethandler/sheet.css"}) {
        handler.load(path);
        QCOMPARE(handler.getStyleSheet(), expanded);
    }
    handler.load(m_dir.filePath("top.css")); // a file, not a resource
    QCOMPARE(handler.diagnostics().size(), 1);
    StyleSheetHandler files(":/tst_stylesheethandler/sheet.css");
    QCOMPARE(files.getStyleSheet(), expanded);
    files.load("sheet.css");
    QCOMPARE(files.getStyleSheet(), expanded);
}

void tst_StyleSheetHandler::expandsOnceAndReadsOnce()
{
    MemoryHandler handler = fontHandler();
    const QStringList names{"top", "defines", "use"};
    for (int i = 0; i < 3; ++i) {
        handler.setUserDefine("bvFontSize", QString::number(i));
        QCOMPARE(handler.getReduced(), handler.getStyleSheet());
        QCOMPARE(handler.getPartNames(), names);
    }
    QCOMPARE(handler.m_reads, names);
    QCOMPARE(handler.getPalette().color(QPalette::Disabled, QPalette::Link), QColor("#123456"));
}

void tst_StyleSheetHandler::setsParts()
{
    MemoryHandler handler = fontHandler();
    handler.setPart("use", "bvFontSize"); // before anything has been asked for
    QVERIFY(handler.getStyleSheet().contains("\n11\n"));
    handler.setPart("never included", "x");
    QCOMPARE(handler.getPart("never included"), "");
    handler.setPart("top", "#include \"use\"");
    QCOMPARE(handler.getPartNames(), QStringList({"top", "use"}));
    QVERIFY(handler.getStyleSheet().contains("\nbvFontSize\n"));
    handler.setPart("use", QString());
    QVERIFY(handler.diagnostics().isEmpty());
    handler.reload();
    QCOMPARE(used(handler), "big 12; normal 11; color #ff4d4d;");
}

void tst_StyleSheetHandler::missingParts()
{
    MemoryHandler handler({{"top", "#include \"gone\""}});
    handler.setPath(m_dir.path());
    QCOMPARE(handler.diagnostics().size(), 1);
    QVERIFY(!handler.savePartToFile("gone"));
    QVERIFY(!QFile::exists(m_dir.filePath("gone")));
    handler.setPart("gone", ""); // an empty part is no missing one
    QVERIFY(handler.diagnostics().isEmpty());
    QVERIFY(handler.savePartToFile("gone"));
    QCOMPARE(fileText(m_dir.filePath("gone")), QByteArray());
}

void tst_StyleSheetHandler::paletteIsTheBaseStyles()
{
    const QPalette before = QApplication::palette();
    QApplication::setPalette(QPalette(Qt::red));
    MemoryHandler handler = fontHandler();
    QPalette expected = handler.getBaseStyle()->standardPalette();
    QCOMPARE(StyleSheetHandler(false).getPalette(), expected);
    expected.setColor(QPalette::Link, QColor("#123456"));
    QCOMPARE(handler.getPalette(), expected);
    QApplication::setPalette(before);
}

void tst_StyleSheetHandler::userDefinesWin()
{
    MemoryHandler handler = fontHandler();
    handler.setUserDefine("textColorError", "red");
    handler.setUserDefine("normal", "abnormal"); // no sheet defines it
    QCOMPARE(used(handler), "big 12; normal 11; color red;");
    QCOMPARE(handler.getDefined("textColorError"), "red");
    QCOMPARE(handler.getDefined("bvFontSize"), "11");
    QCOMPARE(handler.getDefined("normal"), "abnormal");
    QCOMPARE(handler.getDefined("unknown"), "");
    handler.load("top");
    QCOMPARE(used(handler), "big 12; normal 11; color red;");
}

void tst_StyleSheetHandler::fontSizes()
{
    const std::pair<int, QString> rows[] = {
        {14, "11 12 13 14 15"},
        {3, "1 1 2 3 4"},
        {1, "1 1 1 1 2"},
        {0, "   11 12"},
        {2147483647, "2147483644 2147483645 2147483646 2147483647 2147483648"},
    };
    for (const auto &[size, defined] : rows) {
        MemoryHandler handler = fontHandler();
        handler.setDefinedFontSize(size);
        QStringList sizes;
        for (const char *name : {"VerySmall", "Smaller", "Small", "", "Big"})
            sizes << handler.getDefined(QString("bvFontSize") + name);
        QCOMPARE(sizes.join(' '), defined);
    }
}

void tst_StyleSheetHandler::lightVersion()
{
    MemoryHandler handler = fontHandler();
    const auto colors = [&handler] { return handler.getDefined("textColorError") + handler.getDefined("textColorError2"); };
    QVERIFY(!handler.setUseLightVersion(false));
    QCOMPARE(colors(), "#ff4d4d");
    QVERIFY(handler.setUseLightVersion(true));
    QVERIFY(!handler.setUseLightVersion(true));
    QCOMPARE(colors(), "#ffaaaa#b30000");
    QCOMPARE(used(handler), "big 12; normal 11; color #ffaaaa;");
    QVERIFY(handler.setUseLightVersion(false));
    QCOMPARE(colors(), "#ff4d4d#990000");
}

void tst_StyleSheetHandler::copiesAreIndependent()
{
    MemoryHandler original = fontHandler();
    MemoryHandler copy = original;
    copy.setDefinedFontSize(20);
    QCOMPARE(used(copy), "big 21; normal 20; color #ff4d4d;");
    QCOMPARE(used(original), "big 12; normal 11; color #ff4d4d;");
    MemoryHandler moved = std::move(copy);
    QCOMPARE(used(moved), "big 21; normal 20; color #ff4d4d;");
}

void tst_StyleSheetHandler::savesFiles()
{
    MemoryHandler handler(
        {{"top", "#include \":/Style/x.css\"\n#include \"new/y.css\""}, {":/Style/x.css", QString("x") + QChar(0xE4)}, {"new/y.css", "// y"}});
    handler.setPath(m_dir.filePath("saved"));
    QVERIFY(handler.savePartToFile(":/Style/x.css"));
    QVERIFY(handler.savePartToFile("new/y.css"));
    QCOMPARE(fileText(m_dir.filePath("saved/Style/x.css")), QByteArray("x\xC3\xA4"));
    QCOMPARE(fileText(m_dir.filePath("saved/new/y.css")), QByteArray("// y"));
    QVERIFY(handler.save(m_dir.filePath("saved/all.css")));
    QCOMPARE(fileText(m_dir.filePath("saved/all.css")), handler.getStyleSheet().toUtf8());

    QVERIFY(!handler.savePartToFile("unknown"));
    QVERIFY(!handler.save(QString()));
    QVERIFY(!handler.save(m_dir.filePath("saved"))); // a folder
    QVERIFY(!handler.save(m_dir.filePath("saved/all.css/below a file")));
}

void tst_StyleSheetHandler::replacesPaths()
{
    const std::array<QString, 4> rows[] = {
        {"/base", ":/a/b", ":/a/b", "/base/a/b"},
        {"/base", ":a", ":a", "/base/a"},
        {"/base", "/base/a/b", ":/a/b", "/base/a/b"},
        {"/x/../base/", "/base/a", ":/a", "/base/a"},
        {"/base", "/base2/a", "/base2/a", "/base2/a"},
        {"/base", "/base/../a", "/base/../a", "/base/../a"},
        {"/base", "a", "a", "a"},
        {"/", "/a", ":/a", "/a"},
    };
    for (const auto &[base, path, resource, absolute] : rows) {
        StyleSheetHandler handler(false);
        handler.setPath(base);
        QCOMPARE(handler.replacePath(path, StyleSheetHandler::ResourcePath), resource);
        QCOMPARE(handler.replacePath(path, StyleSheetHandler::AbsolutePath), absolute);
    }
}

void tst_StyleSheetHandler::replacesDefines()
{
    const std::array<QString, 4> rows[] = {
        {"keeps the rest", "x\n #define  a(b)  1 // one\ny", "2", "x\n #define  a(b)  2 // one\ny"},
        {"every one", "#define a(b) 1\n#define a(b) 1", "\\1", "#define a(b) \\1\n#define a(b) \\1"},
        {"other names", "#define a(bc 1\n#define a(b)c 1", "2", "#define a(bc 1\n#define a(b)c 1"},
        {"value on the next line", "#define a(b)\n1", "2", "#define a(b)\n1"},
        {"comment before the value", "/* x */ #define a(b) /* y */ 1", "2", "/* x */ #define a(b) /* y */ 2"},
        {"comment right after the value", "#define a(b) 1//x\n#define a(b) 1/*\n*/ 3", "2", "#define a(b) 2//x\n#define a(b) 2/*\n*/ 3"},
        {"comment within", "#define a/*x*/(b) 1/*y*/1/*z*/", "2", "#define a/*x*/(b) 2/*y*//*z*/"},
        {"comment for the value", "#define a(b) // none\n3", "2", "#define a(b) // none\n3"},
        {"commented out", "/*\n#define a(b) 1\n*/\n//\n#define a(b) 1", "2", "/*\n#define a(b) 1\n*/\n//\n#define a(b) 2"},
        {"value and comment stay apart", "#define a(b) 1//x", "2/", "#define a(b) 2/ //x"},
        {"value with a comment mark", "#define a(b) 1", "2//3", "#define a(b) 1"},
        {"two words", "#define a(b) 1", "2 3", "#define a(b) 1"},
        {"no word", "#define a(b) 1", "", "#define a(b) 1"},
    };
    for (const auto &[name, text, value, replaced] : rows)
        QCOMPARE(name + StyleSheetHandler::replaceDefine(text, "a(b)", value), name + replaced);
}

void tst_StyleSheetHandler::baseStyleSurvivesTheApplicationsChoice()
{
    const StyleSheetHandler handler(false);
    QVERIFY(handler.getBaseStyle());
    QCOMPARE(handler.getBaseStyle(), StyleSheetHandler(true).getBaseStyle());
    QApplication::setStyle(handler.getBaseStyle());
    QApplication::setStyle("Windows"); // deletes the former style
    QVERIFY(handler.getBaseStyle()->parent() == qApp);
}

QTEST_MAIN(tst_StyleSheetHandler)
#include "tst_stylesheethandler.moc"
