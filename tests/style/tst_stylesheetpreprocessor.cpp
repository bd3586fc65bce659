// SPDX-License-Identifier: MIT
#include "style/StyleSheetPreprocessor_p.h"
#include "style/StyleSheetSuffix_p.h"

#include <QRandomGenerator>
#include <QRegularExpression>
#include <QtTest>

#include <array>
#include <tuple>

using namespace Brimvale;
using Kind = StyleSheetDiagnostic::Kind;
using Parts = QHash<QString, QString>;

namespace {

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
    void language();
    void suffix();
    void includes();
    void definesReachAcrossIncludes();
    void palette();
    void findings();
    void multiplyingSheetEnds();
    void removesCommentsByTheRules();
    void substitutesByTheRules();
    void expandsByTheRules();
};

void tst_StyleSheetPreprocessor::language()
{
    const std::array<QString, 3> rows[] = {
        {"longer name first",
         "#define bvFontSize 11\n#define bvFontSizeBig 12\n"
         "font-size: bvFontSizeBigpt bvFontSizept",
         "font-size: 12pt 11pt\n"},
        {"value is one word", "#define textColorError #ff4d4d // light red\ntextColorError", "#ff4d4d\n"},
        {"word ends the value", "\t#define  a \t one two\na", "one\n"},
        {"define without value is a line", "#define a", "#define a\n"},
        {"name must stand apart", "#definea b\n", "#definea b\n"},
        {"case matters", "#define aB c\nAB ab aB", "AB ab c\n"},
        {"value meets a lesser name", "#define b a\n#define a c\nb", "c\n"},
        {"value meets a greater name", "#define a b\n#define b c\na", "b\n"},
        {"later value counts", "#define a 1\na\n#define a 2\na", "1\n2\n"},
        {"empty lines go, blank ones stay", "a\n\n \n\nb\n", "a\n \nb\n"},
        {"address is commented out", "url(http://x);\nb", "url(http:\nb\n"},
        {"line comment ends at a return", "a//b\rc", "a\rc\n"},
        {"comment marks overlap", "a/*/b*/c<!-->-->d", "acd\n"},
        {"open comment reaches to the end", "a /* b\nc", "a \n"},
        {"closing mark-up alone stays", "a --> b", "a --> b\n"},
        {"indented include is a line", " #include \"x\"", " #include \"x\"\n"},
        {"unclosed include is a line", "#include \"x", "#include \"x\n"},
        {"long line", "#define a bc\n" + QString(2'000'000, ' ') + "a", QString(2'000'000, ' ') + "bc\n"},
        {"percent signs survive", "#define a %1\na %2", "%1 %2\n"},
    };
    for (const auto &[name, sheet, expanded] : rows)
        QCOMPARE(name + expand({{"top", sheet}}).text, name + expanded);
}

void tst_StyleSheetPreprocessor::suffix()
{
    const std::array<QString, 3> rows[] = {
        {"two selectors", "QWidget[a=\"true\"], QLabel {", "QWidget[a=\"true\"]:on,QLabel:on{\n"},
        {"declarations", "A { b: c, d; e: rgb(1, 2, 3) }", "A:on{ b: c, d; e: rgb(1, 2, 3) }\n"},
        {"brackets and quotes", "A[b=\"c,{\"] { d: \"}\"; e: ','; }", "A[b=\"c,{\"]:on{ d: \"}\"; e: ','; }\n"},
        {"lone braces", "A\n  {\n  }\n}\nB{", "A:on\n  {\n  }\n}\nB:on{\n"},
        {"define in a selector", "#define Any QWidget,QLabel\nAny {", "QWidget:on,QLabel:on{\n"},
        {"changed suffix", "A{\n<@:off\nb:c}\nD{", "A:on{\nb:c}\nD:off{\n"},
        {"closed in a rule", "A{\n@>\nb, c}\n<@:off\nD,\n", "A:on{\nb, c}\nD:off,\n"},
        {"begun in a rule", "@>\nA {\n<@:off\n  b: c;\n}\nD{", "A {\n  b: c;\n}\nD:off{\n"},
        {"begun again in a rule", "A{\n@>\nb: c;\n<@:off\nd: e, f\n}\nG{", "A:on{\nb: c;\nd: e, f\n}\nG:off{\n"},
        {"apostrophe", "A { x: it's } B[c='d'], E {}", "A:on{ x: it's }B[c='d']:on,E:on{}\n"},
        {"bracket in quotes in brackets", "A[b=\"],{\"], C {", "A[b=\"],{\"]:on,C:on{\n"},
        {"quotes cross in brackets", "A[b=\"']\"], C[d=']\"'], E {", "A[b=\"']\"]:on,C[d=']\"']:on,E:on{\n"},
        {"nothing closes", "A[b, C's, \"D {", "A[b:on,C's:on,\"D:on{\n"},
        {"empty suffix closes", "A,\n<@\nB,", "A:on,\nB,\n"},
    };
    for (const auto &[name, block, expanded] : rows)
        QCOMPARE(name + expand({{"top", "A, B { }\n<@ :on \n" + block + "\n@>\nC, D {"}}).text, name + "A, B { }\n" + expanded + "C, D {\n");
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

void tst_StyleSheetPreprocessor::palette()
{
    const std::tuple<const char *, QString, QPalette::ColorRole> rows[] = {
        {"link", "palette(link) #123456", QPalette::Link},
        {"case", "PALETTE(Window-Text) #123456 // ink", QPalette::WindowText},
        {"tool tip", "palette(tooltip-base) #123456", QPalette::ToolTipBase},
        {"no colour", "palette(link) colourful", QPalette::NoRole},
        {"no role", "palette(ink) #123456", QPalette::NoRole},
        {"not closed", "palette(link #123456", QPalette::NoRole},
        {"no bracket", "palettelink) #123456", QPalette::NoRole},
    };
    for (const auto &[name, define, role] : rows) {
        QPalette expected;
        if (role != QPalette::NoRole)
            expected.setColor(role, QColor("#123456"));
        const ExpandedStyleSheet sheet = expand({{"top", "#define " + define + "\npalette(link)"}});
        QVERIFY2(sheet.palette == expected, name);
        QCOMPARE(sheet.text, "palette(link)\n"); // left to the toolkit
        QVERIFY2(sheet.defines.isEmpty(), name);
    }
}

void tst_StyleSheetPreprocessor::findings()
{
    const std::tuple<QString, QString, QString, int, QString> rows[] = {
        {"missing", "a\n\n#include \"gone\"\n#include \"gone\"", "", 0, "top:3 missing gone\ntop:4 missing gone"},
        {"missing top", QString(), "", 0, "top:0 missing top"},
        {"after comments over lines", "/*\n*/a/*\n\n*/\n/*\n*/#include \"gone\"", "", 0, "top:6 missing gone"},
        {"includes itself", "#include \"top\"", "", 0, "top:1 circular top"},
        {"circle of two", "#include \"sub\"", "\n#include \"top\"", 0, "sub:2 circular top"},
        {"finding listed once", "#include \"sub\"\n#include \"sub\"", "#include \"gone\"\n*/", 1, "sub:2 stray */\nsub:1 missing gone"},
        {"stray ends", "*/\n/*\n*/*/\n\n**/", "", 3, "top:1 stray */\ntop:3 stray */\ntop:5 stray */"},
    };
    for (const auto &[name, top, sub, strays, expected] : rows) {
        for (int i = 0; i < strays; ++i)
            QTest::ignoreMessage(QtDebugMsg, "StyleSheet comment-block closed without open");
        QCOMPARE(name + ::findings(expand({{"top", top}, {"sub", sub}})), name + expected);
    }
}

void tst_StyleSheetPreprocessor::multiplyingSheetEnds()
{
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
    const std::pair<const char *, Parts> rows[] = {
        {"suffix on many selectors", Parts{{"top", "first\n<@:" + QString(60000, 'x') + '\n' + QString("a,").repeated(60000) + "\n@>\nlast"}}},
        {"twice at each level", twice},
        {"deep", deep},
        {"defines that double", Parts{{"top", defines + "first\na59\nlast"}}},
    };
    for (const auto &[name, parts] : rows) {
        const ExpandedStyleSheet sheet = expand(parts);
        QVERIFY2(sheet.text.startsWith("first\n") && sheet.text.endsWith("last\n"), name);
        const auto isLimit = [](const auto &finding) { return finding.kind == Kind::LimitReached; };
        QVERIFY2(std::count_if(sheet.diagnostics.begin(), sheet.diagnostics.end(), isLimit) == 1, name);
    }
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
