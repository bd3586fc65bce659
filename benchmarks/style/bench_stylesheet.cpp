// SPDX-License-Identifier: MIT
// Expansion of a large sheet: 5,000 lines in 60 files with 40 defines, one file in a suffix block.
// The peer, libsass, does the same work on the same sheet with @import and variables; there the
// suffix is written out.
#include "style/StyleSheetHandler.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>
#include <sass/context.h>

namespace {

constexpr int s_files = 60;
constexpr int s_lines = 5000;
constexpr int s_defines = 40;
constexpr int s_linesPerRule = 10;
constexpr int s_suffixedFile = 30;

// The two languages of the same sheet.
struct Dialect
{
    const char *folder;
    const char *extension;
    const char *include; // %1 = the file without its extension
    const char *define;  // %1 = name, %2 = value
    const char *use;     // %1 = name
    const char *block;   // %1 = the rules that get the suffix; null if they have it
};

constexpr Dialect s_ours = {
    "ours", ".css", "#include \"%1.css\"\n", "#define %1 %2\n", "%1", "<@:enabled\n%1@>\n"};
constexpr Dialect s_peers = {"peer", ".scss", "@import \"%1\";\n", "$%1: %2;\n", "$%1", nullptr};

QString defineName(int i)
{
    static const char *const stems[] = {"textColor", "bvFontSize", "darkBackground",
                                        "selectionBorder"};
    return QString::fromLatin1(stems[i % 4]) + QChar('A' + i / 4);
}

QString defineValue(int i)
{
    return QStringLiteral("#%1").arg(0x102030 + i * 257, 6, 16);
}

QString defines(const Dialect &dialect)
{
    QString text;
    for (int i = 0; i < s_defines; ++i)
        text += QString::fromLatin1(dialect.define).arg(defineName(i), defineValue(i));
    return text;
}

// One rule of ten lines; three of them use a define, and one is a comment.
QString rule(const Dialect &dialect, int number)
{
    const auto use = [&](int i) {
        return QString::fromLatin1(dialect.use).arg(defineName((number + i) % s_defines));
    };
    return QStringLiteral("QWidget#panel%1 QLabel[status=\"true\"], QToolButton:hover {\n")
               .arg(number) +
           "    /* the frame and the text of the widget */\n" + "    color: " + use(0) + ";\n" +
           "    border: 1px solid " + use(7) + ";\n" + "    background-color: " + use(13) + ";\n" +
           "    border-radius: 3px;\n" + "    padding: 2px 4px 2px 4px;\n" +
           "    min-height: 18px;\n" + "    margin: 0px;\n" + "}\n";
}

QString withSuffix(QString rules)
{
    return rules.replace(QStringLiteral("], QToolButton:hover {"),
                         QStringLiteral("]:enabled,QToolButton:hover:enabled{"));
}

// The rules of one file of those behind the top-level one.
QString rulesOf(const Dialect &dialect, int file)
{
    const auto firstRule = [](int index) {
        return (s_lines * index / (s_files - 1) + s_linesPerRule - 1) / s_linesPerRule;
    };
    QString text;
    for (int number = firstRule(file); number < firstRule(file + 1); ++number)
        text += rule(dialect, number);
    if (file != s_suffixedFile)
        return text;
    return dialect.block ? QString::fromLatin1(dialect.block).arg(text) : withSuffix(text);
}

// What our sheet must become.
QString expectedSheet()
{
    QString result;
    for (int file = 0; file < s_files - 1; ++file) {
        const QString directive = QStringLiteral("#include \"part%1.css\" */\n").arg(file);
        QString rules = rulesOf(s_ours, file);
        if (file == s_suffixedFile)
            rules = withSuffix(
                rules.remove(QStringLiteral("<@:enabled\n")).remove(QStringLiteral("@>\n")));
        result += "/* " + directive + rules + "/* End of " + directive;
    }
    result.remove(QStringLiteral("/* the frame and the text of the widget */"));
    for (int i = 0; i < s_defines; ++i)
        result.replace(defineName(i), defineValue(i));
    return result;
}

void write(const QString &fileName, const QString &text)
{
    QFile file(fileName);
    if (!file.open(QIODevice::WriteOnly) || file.write(text.toUtf8()) < 0)
        qFatal("cannot write the benchmark's files");
}

void writeSheets(QDir dir, const Dialect &dialect)
{
    const QString folder = QString::fromLatin1(dialect.folder);
    if (!dir.mkdir(folder) || !dir.cd(folder))
        qFatal("cannot make the benchmark's folder");
    QString top;
    for (int file = 0; file < s_files - 1; ++file) {
        const QString name = QStringLiteral("part%1").arg(file);
        write(dir.filePath(name + dialect.extension),
              (file == 0 ? defines(dialect) : QString()) + rulesOf(dialect, file));
        top += QString::fromLatin1(dialect.include).arg(name);
    }
    write(dir.filePath(QStringLiteral("top") + dialect.extension), top);
}

void checkExpansion(const QDir &dir)
{
    Brimvale::StyleSheetHandler handler(dir.filePath(QStringLiteral("ours/top.css")));
    if (handler.getStyleSheet() != expectedSheet() || !handler.diagnostics().isEmpty())
        qFatal("the sheet is not expanded as it should be");
}

const QDir &sheets()
{
    static const QTemporaryDir s_dir;
    static const QDir s_sheets = [] {
        writeSheets(QDir(s_dir.path()), s_ours);
        writeSheets(QDir(s_dir.path()), s_peers);
        checkExpansion(QDir(s_dir.path()));
        return QDir(s_dir.path());
    }();
    return s_sheets;
}

// Files to plain sheet.
void loadAndExpand(benchmark::State &state)
{
    const QString path = sheets().filePath(QStringLiteral("ours/top.css"));
    for (auto _ : state) {
        Brimvale::StyleSheetHandler handler(path);
        benchmark::DoNotOptimize(handler.getStyleSheet().size());
    }
}
BENCHMARK(loadAndExpand)->Unit(benchmark::kMicrosecond);

// What a changed user define costs: the parts are in memory already.
void expandAgain(benchmark::State &state)
{
    Brimvale::StyleSheetHandler handler(sheets().filePath(QStringLiteral("ours/top.css")));
    int value = 0;
    for (auto _ : state) {
        handler.setUserDefine(defineName(0), QString::number(++value));
        benchmark::DoNotOptimize(handler.getStyleSheet().size());
    }
}
BENCHMARK(expandAgain)->Unit(benchmark::kMicrosecond);

void peerLoadAndExpand(benchmark::State &state)
{
    const QByteArray path = QFile::encodeName(sheets().filePath(QStringLiteral("peer/top.scss")));
    for (auto _ : state) {
        Sass_File_Context *file = sass_make_file_context(path.constData());
        Sass_Context *context = sass_file_context_get_context(file);
        if (sass_compile_file_context(file) != 0)
            state.SkipWithError(sass_context_get_error_message(context));
        benchmark::DoNotOptimize(sass_context_get_output_string(context));
        sass_delete_file_context(file);
    }
}
BENCHMARK(peerLoadAndExpand)->Unit(benchmark::kMicrosecond);

} // namespace

BENCHMARK_MAIN();
