// SPDX-License-Identifier: MIT
#include "style/StyleSheetPreprocessor_p.h"
#include "style/StyleSheetSuffix_p.h"

#include <QRandomGenerator>
#include <QRegularExpression>
#include <QtTest>

using namespace Brimvale;
using Kind = StyleSheetDiagnostic::Kind;
using Parts = QHash<QString, QString>;

namespace {

const char *const s_strayMessage = "StyleSheet comment-block closed without open";

ExpandedStyleSheet expand(const Parts &parts, const Parts &userDefines = {})
{
    StyleSheetPreprocessor preprocessor(userDefines, QPalette(), [&parts](const QString &path) { return parts.value(path); });
    return preprocessor.expand("top");
}

// "file:line kind text", one line for each finding.
QString findings(const ExpandedStyleSheet &sheet)
{
    static const char *const kinds[] = {"missing", "circular", "stray", "limit"};
    QStringList lines;
    for (const StyleSheetDiagnostic &finding : sheet.diagnostics) {
        lines << QString("%1:%2 %3 %4").arg(finding.file).arg(finding.line).arg(kinds[int(finding.kind)], finding.text);
    }
    return lines.join('\n');
}

// The rules of the language taken word by word, without regard to speed.
QString plainlyUncommented(QString text)
{
    const QRegularExpression token("(/\\*)|(\\*/)|(//)|(<!--)|(-->)");
    int from = 0;
    for (auto match = token.match(text); match.hasMatch(); match = token.match(text, from)) {
        const int begin = match.capturedStart();
        const QString mark = match.captured();
        int end = -1;
        from = match.capturedEnd();
        if (mark == "//") {
            end = text.indexOf(QRegularExpression("[\n\r]"), from);
        } else if (mark == "/*" || mark == "<!--") {
            const QString closing = mark == "/*" ? "*/" : "-->";
            end = text.indexOf(closing, from);
            end = end < 0 ? -1 : end + closing.size();
        } else {
            continue;
        }
        text.remove(begin, end < 0 ? text.size() : end - begin);
        from = begin;
    }
    return text;
}

QString plainlySubstituted(QString text, const QMap<QString, QString> &defines)
{
    for (auto it = defines.end(); it != defines.begin();) {
        --it;
        text.replace(it.key(), it.value());
    }
    return text;
}

// Without regard to quotes and brackets.
QString plainlySuffixed(const QString &line, const QString &suffix, int &depth)
{
    const QRegularExpression pieces("(.*?)([\\{\\},\n\r])|(.+$)");
    QString result;
    for (auto it = pieces.globalMatch(line); it.hasNext();) {
        const QRegularExpressionMatch match = it.next();
        const QString piece = match.captured(1) + match.captured(3);
        const QString delimiter = match.captured(2);
        const bool isSelector = depth == 0 && delimiter != "}" && !piece.trimmed().isEmpty();
        result += isSelector && !suffix.isEmpty() ? piece.trimmed() + suffix : piece;
        result += delimiter;
        depth = qMax(0, depth + (delimiter == "{" ? 1 : delimiter == "}" ? -1 : 0));
    }
    return result;
}

// Expands sheets that do not include themselves.
struct PlainExpansion
{
    Parts parts;
    Parts userDefines;
    QMap<QString, QString> defines;

    QString expanded(const QString &part)
    {
        const QRegularExpression include("^\\#include\\s*\\\"([^\"]*)\\\"");
        const QRegularExpression define("^\\s*#define\\s+(\\S+)\\s+(\\S+)");
        QString result, suffix;
        int depth = 0;
        const QString text = plainlyUncommented(parts.value(part));
        for (const QString &line : text.split('\n', Qt::SkipEmptyParts)) {
            QRegularExpressionMatch match;
            if ((match = include.match(line)).hasMatch())
                result += "/* " + match.captured() + " */\n" + expanded(match.captured(1)) + "/* End of " + match.captured() + " */\n";
            else if ((match = define.match(line)).hasMatch())
                defines[match.captured(1)] = userDefines.value(match.captured(1), match.captured(2));
            else if (line.startsWith("<@"))
                suffix = line.mid(2).trimmed();
            else if (line.startsWith("@>"))
                suffix.clear();
            else
                result += plainlySuffixed(plainlySubstituted(line, defines), suffix, depth) + "\n";
        }
        return result;
    }
};

QString randomSheet(QRandomGenerator &random, const QStringList &includes)
{
    static const QStringList s_pieces = QString("A|Bb|b| |,|{|}|:|\n|\n|\r|<|/*/ */|/*\n\n*/|// b\n|<!--b-->|"
                                                "\n<@:on\n|\n<@ :b \n|\n<@|\n@>|@>\n|"
                                                "\n#define b c // d\n|\n#define Bb A,b\n|\n #define ,b { 2\n|#define A")
                                            .split('|');
    QString sheet;
    for (int count = random.bounded(40); count > 0; --count) {
        const int choice = random.bounded(s_pieces.size() + includes.size());
        sheet += choice < s_pieces.size() ? s_pieces.at(choice) : "\n#include \"" + includes.at(choice - s_pieces.size()) + "\" x\n";
    }
    return sheet;
}

QString randomText(QRandomGenerator &random, const QString &alphabet, int maximumSize)
{
    QString text;
    for (int size = random.bounded(maximumSize + 1); size > 0; --size)
        text += alphabet.at(random.bounded(alphabet.size()));
    return text;
}

} // namespace

class tst_StyleSheetPreprocessor : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void language_data();
    void language();
    void suffix_data();
    void suffix();
    void definesThatBreakLines();
    void includes();
    void definesReachAcrossIncludes();
    void palette_data();
    void palette();
    void findings_data();
    void findings();
    void multiplyingSheetEnds_data();
    void multiplyingSheetEnds();
    void removesCommentsByTheRules();
    void substitutesByTheRules();
    void expandsByTheRules();
};

void tst_StyleSheetPreprocessor::language_data()
{
    QTest::addColumn<QString>("sheet");
    QTest::addColumn<QString>("expanded");

    QTest::newRow("longer name first") << "#define bvFontSize 11\n#define bvFontSizeBig 12\n"
                                          "font-size: bvFontSizeBigpt bvFontSizept"
                                       << "font-size: 12pt 11pt\n";
    QTest::newRow("value is one word") << "#define textColorError #ff4d4d // light red\ntextColorError"
                                       << "#ff4d4d\n";
    QTest::newRow("word ends the value") << "\t#define  a \t one two\na"
                                         << "one\n";
    QTest::newRow("define without value is a line") << "#define a"
                                                    << "#define a\n";
    QTest::newRow("name must stand apart") << "#definea b\n"
                                           << "#definea b\n";
    QTest::newRow("case matters") << "#define aB c\nAB ab aB"
                                  << "AB ab c\n";
    QTest::newRow("name within a word") << "#define a b\nbanana"
                                        << "bbnbnb\n";
    QTest::newRow("value meets a lesser name") << "#define b a\n#define a c\nb"
                                               << "c\n";
    QTest::newRow("value meets a greater name") << "#define a b\n#define b c\na"
                                                << "b\n";
    QTest::newRow("value holds its own name") << "#define a aa\na"
                                              << "aa\n";
    QTest::newRow("later value counts") << "#define a 1\na\n#define a 2\na"
                                        << "1\n2\n";
    QTest::newRow("line before the define") << "a\n#define a b\na"
                                            << "a\nb\n";
    QTest::newRow("empty lines go, blank ones stay") << "a\n\n \n\nb\n"
                                                     << "a\n \nb\n";
    QTest::newRow("carriage returns stay") << "#define a b\r\na\r\n"
                                           << "b\r\n";
    QTest::newRow("address is commented out") << "url(http://x);\nb"
                                              << "url(http:\nb\n";
    QTest::newRow("line comment ends at a return") << "a//b\rc"
                                                   << "a\rc\n";
    QTest::newRow("marks inside comments") << "a/*//<!--*/b<!--/*-->c//*/"
                                           << "abc\n";
    QTest::newRow("comment marks overlap") << "a/*/b*/c<!-->-->d"
                                           << "acd\n";
    QTest::newRow("open comment reaches to the end") << "a /* b\nc"
                                                     << "a \n";
    QTest::newRow("open mark-up comment, too") << "a<!--b\nc--"
                                               << "a\n";
    QTest::newRow("closing mark-up alone stays") << "a --> b"
                                                 << "a --> b\n";
    QTest::newRow("comment joins lines") << "a/*\n*/b"
                                         << "ab\n";
    QTest::newRow("commented define") << "/*#define a b*/\n//#define a c\na"
                                      << "a\n";
    QTest::newRow("indented include is a line") << " #include \"x\""
                                                << " #include \"x\"\n";
    QTest::newRow("unclosed include is a line") << "#include \"x"
                                                << "#include \"x\n";
    QTest::newRow("long line") << "#define a bc\n" + QString(2'000'000, ' ') + "a" << QString(2'000'000, ' ') + "bc\n";
    QTest::newRow("percent signs survive") << "#define a %1\na %2"
                                           << "%1 %2\n";
}

void tst_StyleSheetPreprocessor::language()
{
    QFETCH(QString, sheet);
    QTEST(expand({{"top", sheet}}).text, "expanded");
}

void tst_StyleSheetPreprocessor::suffix_data()
{
    QTest::addColumn<QString>("block");
    QTest::addColumn<QString>("expanded");

    QTest::newRow("two selectors") << "QWidget[a=\"true\"], QLabel {"
                                   << "QWidget[a=\"true\"]:on,QLabel:on{\n";
    QTest::newRow("over lines") << "QWidget,\nQLabel\n{\n}"
                                << "QWidget:on,\nQLabel:on\n{\n}\n";
    QTest::newRow("declarations") << "A { b: c, d; e: rgb(1, 2, 3) }"
                                  << "A:on{ b: c, d; e: rgb(1, 2, 3) }\n";
    QTest::newRow("declarations over lines") << "A {\n b: c,\n d;\n}\nB{}"
                                             << "A:on{\n b: c,\n d;\n}\nB:on{}\n";
    QTest::newRow("two rules on a line") << "A{b:c} D{e:f}"
                                         << "A:on{b:c}D:on{e:f}\n";
    QTest::newRow("sub-control") << "QComboBox::drop-down{"
                                 << "QComboBox::drop-down:on{\n";
    QTest::newRow("brackets and quotes") << "A[b=\"c,{\"] { d: \"}\"; e: ','; }"
                                         << "A[b=\"c,{\"]:on{ d: \"}\"; e: ','; }\n";
    QTest::newRow("lone braces") << "A\n  {\n  }\n}\nB{"
                                 << "A:on\n  {\n  }\n}\nB:on{\n";
    QTest::newRow("carriage return") << "A\r\n{ }\r"
                                     << "A:on\r\n{ }\r\n";
    QTest::newRow("define in a selector") << "#define Any QWidget,QLabel\nAny {"
                                          << "QWidget:on,QLabel:on{\n";
    QTest::newRow("changed suffix") << "A{\n<@:off\nb:c}\nD{"
                                    << "A:on{\nb:c}\nD:off{\n";
    QTest::newRow("closed in a rule") << "A{\n@>\nb, c}\n<@:off\nD,\n"
                                      << "A:on{\nb, c}\nD:off,\n";
    QTest::newRow("begun in a rule") << "@>\nA {\n<@:off\n  b: c;\n}\nD{"
                                     << "A {\n  b: c;\n}\nD:off{\n";
    QTest::newRow("begun again in a rule") << "A{\n@>\nb: c;\n<@:off\nd: e, f\n}\nG{"
                                           << "A:on{\nb: c;\nd: e, f\n}\nG:off{\n";
    QTest::newRow("apostrophe") << "A { x: it's } B[c='d'], E {}"
                                << "A:on{ x: it's }B[c='d']:on,E:on{}\n";
    QTest::newRow("bracket in quotes in brackets") << "A[b=\"],{\"], C {"
                                                   << "A[b=\"],{\"]:on,C:on{\n";
    QTest::newRow("quotes cross in brackets") << "A[b=\"']\"], C[d=']\"'], E {"
                                              << "A[b=\"']\"]:on,C[d=']\"']:on,E:on{\n";
    QTest::newRow("nothing closes") << "A[b, C's, \"D {"
                                    << "A[b:on,C's:on,\"D:on{\n";
    QTest::newRow("empty suffix closes") << "A,\n<@\nB,"
                                         << "A:on,\nB,\n";
}

void tst_StyleSheetPreprocessor::suffix()
{
    QFETCH(QString, block);
    QFETCH(QString, expanded);
    const QString sheet = "A, B { }\n<@ :on \n" + block + "\n@>\nC, D {";
    QCOMPARE(expand({{"top", sheet}}).text, "A, B { }\n" + expanded + "C, D {\n");
}

void tst_StyleSheetPreprocessor::definesThatBreakLines()
{
    const Parts parts{{"top", "#define Any A\n<@:on\nAny, B {"}};
    QCOMPARE(expand(parts, {{"Any", "C,\nD\nE"}}).text, "C:on,\nD:on\nE:on,B:on{\n");
}

void tst_StyleSheetPreprocessor::includes()
{
    const Parts parts{{"top", "#include \"a\" rest\n<@:on\n#include   \"b\"\nX{\n@>\n#include \"a\""}, {"a", "1"}, {"b", "Y{\n<@:off"}};
    const ExpandedStyleSheet sheet = expand(parts);
    QCOMPARE(sheet.text, "/* #include \"a\" */\n1\n/* End of #include \"a\" */\n"
                         "/* #include   \"b\" */\nY{\n/* End of #include   \"b\" */\n"
                         "X:on{\n"
                         "/* #include \"a\" */\n1\n/* End of #include \"a\" */\n");
    QCOMPARE(sheet.partNames, QStringList({"top", "a", "b"}));
    QVERIFY(sheet.diagnostics.isEmpty());
}

void tst_StyleSheetPreprocessor::definesReachAcrossIncludes()
{
    const Parts parts{{"top", "#define a 1\n#include \"sub\"\na b"}, {"sub", "a\n#define b 2"}};
    const QString before = "/* #include \"sub\" */\n", after = "/* End of #include \"sub\" */\n";
    QCOMPARE(expand(parts).text, before + "1\n" + after + "1 2\n");
    // A user define counts where the sheets define its name, and only there.
    QCOMPARE(expand(parts, {{"b", "3"}, {"c", "4"}, {"o", "5"}}).text, before + "1\n" + after + "1 3\n");
}

void tst_StyleSheetPreprocessor::palette_data()
{
    QTest::addColumn<QString>("define");
    QTest::addColumn<int>("role"); // NoRole: the palette stays as it is

    QTest::newRow("link") << "palette(link) #123456" << int(QPalette::Link);
    QTest::newRow("case") << "PALETTE(Window-Text) #123456 // ink" << int(QPalette::WindowText);
    QTest::newRow("tool tip") << "palette(tooltip-base) #123456" << int(QPalette::ToolTipBase);
    QTest::newRow("no colour") << "palette(link) colourful" << int(QPalette::NoRole);
    QTest::newRow("no role") << "palette(ink) #123456" << int(QPalette::NoRole);
    QTest::newRow("not closed") << "palette(link #123456" << int(QPalette::NoRole);
    QTest::newRow("no bracket") << "palettelink) #123456" << int(QPalette::NoRole);
}

void tst_StyleSheetPreprocessor::palette()
{
    QFETCH(QString, define);
    QFETCH(int, role);
    QPalette expected;
    if (role != QPalette::NoRole)
        expected.setColor(QPalette::ColorRole(role), QColor("#123456"));
    const ExpandedStyleSheet sheet = expand({{"top", "#define " + define + "\npalette(link)"}});
    QCOMPARE(sheet.palette, expected);
    QCOMPARE(sheet.text, "palette(link)\n"); // left to the toolkit
    QVERIFY(sheet.defines.isEmpty());
}

void tst_StyleSheetPreprocessor::findings_data()
{
    QTest::addColumn<QString>("top");
    QTest::addColumn<QString>("sub");
    QTest::addColumn<int>("strays");
    QTest::addColumn<QString>("expected");

    QTest::newRow("missing") << "a\n\n#include \"gone\"\n#include \"gone\""
                             << "" << 0 << "top:3 missing gone\ntop:4 missing gone";
    QTest::newRow("missing top") << QString() << "" << 0 << "top:0 missing top";
    QTest::newRow("after comments over lines") << "/*\n*/a/*\n\n*/\n/*\n*/#include \"gone\""
                                               << "" << 0 << "top:6 missing gone";
    QTest::newRow("includes itself") << "#include \"top\""
                                     << "" << 0 << "top:1 circular top";
    QTest::newRow("circle of two") << "#include \"sub\""
                                   << "\n#include \"top\"" << 0 << "sub:2 circular top";
    QTest::newRow("finding listed once") << "#include \"sub\"\n#include \"sub\""
                                         << "#include \"gone\"\n*/" << 1 << "sub:2 stray */\nsub:1 missing gone";
    QTest::newRow("stray ends") << "*/\n/*\n*/*/\n\n**/"
                                << "" << 3 << "top:1 stray */\ntop:3 stray */\ntop:5 stray */";
}

void tst_StyleSheetPreprocessor::findings()
{
    QFETCH(QString, top);
    QFETCH(QString, sub);
    QFETCH(int, strays);
    for (int i = 0; i < strays; ++i)
        QTest::ignoreMessage(QtDebugMsg, s_strayMessage);
    QTEST(::findings(expand({{"top", top}, {"sub", sub}})), "expected");
}

void tst_StyleSheetPreprocessor::multiplyingSheetEnds_data()
{
    QTest::addColumn<Parts>("parts");

    Parts twice{{"top", "first\n#include \"0\"\n#include \"0\"\nlast"}};
    Parts deep = twice;
    for (int i = 0; i < 1000; ++i) {
        const QString next = "#include \"" + QString::number(i + 1) + "\"\n";
        deep.insert(QString::number(i), next);
        if (i < 40)
            twice.insert(QString::number(i), next + "x\n" + next);
    }
    QString defines = "#define a00 x\n";
    for (int i = 1; i < 60; ++i)
        defines += QString("#define a%1 a%2a%2\n").arg(i, 2, 10, QChar('0')).arg(i - 1, 2, 10, QChar('0'));
    QTest::newRow("suffix on many selectors") << Parts{
        {"top", "first\n<@:" + QString(60000, 'x') + '\n' + QString("a,").repeated(60000) + "\n@>\nlast"}};
    QTest::newRow("twice at each level") << twice;
    QTest::newRow("deep") << deep;
    QTest::newRow("defines that double") << Parts{{"top", defines + "first\na59\nlast"}};
}

void tst_StyleSheetPreprocessor::multiplyingSheetEnds()
{
    QFETCH(Parts, parts);
    const ExpandedStyleSheet sheet = expand(parts);
    QVERIFY(sheet.text.startsWith("first\n") && sheet.text.endsWith("last\n"));
    const auto isLimit = [](const auto &finding) { return finding.kind == Kind::LimitReached; };
    QCOMPARE(std::count_if(sheet.diagnostics.begin(), sheet.diagnostics.end(), isLimit), 1);
}

void tst_StyleSheetPreprocessor::removesCommentsByTheRules()
{
    QRandomGenerator random(1);
    for (int i = 0; i < 20000; ++i) {
        const QString text = randomText(random, "/*//*<!-->a\n\r", 16);
        QCOMPARE(removeComments(text).text, plainlyUncommented(text));
    }
}

void tst_StyleSheetPreprocessor::substitutesByTheRules()
{
    QRandomGenerator random(2);
    for (int i = 0; i < 20000; ++i) {
        StyleSheetDefines defines;
        for (int count = random.bounded(6); count > 0; --count)
            defines.define("a" + randomText(random, "ab", 2), randomText(random, "abc", 3));
        for (int count = random.bounded(4); count > 0; --count)
            defines.define(randomText(random, u8"bcä", 2) + "c", randomText(random, "abc", 2));
        const QString text = randomText(random, u8"aabbcä ", 16);
        const QString expected = plainlySubstituted(text, defines.values());
        QString refused;
        const QString result = defines.substituted(text, 1 << 20, &refused);
        QVERIFY(refused.isEmpty());
        QCOMPARE(result.isNull() ? text : result, expected);
    }
}

void tst_StyleSheetPreprocessor::expandsByTheRules()
{
    QRandomGenerator random(3);
    for (int i = 0; i < 3000; ++i) {
        PlainExpansion plain;
        plain.parts = {{"top", randomSheet(random, {"one", "two", "gone"})}, {"one", randomSheet(random, {"two"})}, {"two", randomSheet(random, {})}};
        if (random.bounded(2))
            plain.userDefines = {{"b", randomText(random, "b,{}\nA", 4)}};
        const QString expected = plain.expanded("top");
        const ExpandedStyleSheet sheet = expand(plain.parts, plain.userDefines);
        QCOMPARE(sheet.text, expected);
        QCOMPARE(sheet.defines, plain.defines);
    }
}

QTEST_GUILESS_MAIN(tst_StyleSheetPreprocessor)
#include "tst_stylesheetpreprocessor.moc"
