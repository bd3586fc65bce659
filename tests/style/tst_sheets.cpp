// SPDX-License-Identifier: MIT
#include "SheetReader.h"
#include "foundation/BVWidgetStatus.h"
#include "style/StyleSheetHandler.h"

#include <QtTest>
#include <QtWidgets>

#include <cmath>
#include <memory>

using Brimvale::StyleSheetHandler;

namespace {

const QStringList s_sheets = {
    QStringLiteral(":/Style/General/BVMarlo.css"),
    QStringLiteral(":/Style/General/BVQuenby.css"),
    QStringLiteral(":/Style/General/BVTessit.css"),
    QStringLiteral(":/Style/General/BVWorkSpace.css"),
    QStringLiteral(":/Style/General/BVSimpleApplication.css"),
    // These stand alone, too, for windows outside the front end.
    QStringLiteral(":/Style/General/minStyle.css"),
    QStringLiteral(":/Style/General/tolvaneStyle.css"),
    QStringLiteral(":/Style/General/tolvaneUsersStyle.css"),
};
constexpr int s_frontEnds = 5; // the sheets that colour by status, first in the list

// What the toolkit's style sheets know; a misspelt property would be dropped without a word.
const QStringList s_properties =
    QStringLiteral("alternate-background-color background-color border border-bottom border-bottom-color border-bottom-left-radius "
                   "border-bottom-right-radius border-color border-left border-left-color border-left-width border-radius border-right "
                   "border-right-color border-top border-top-color border-top-left-radius border-top-right-radius bottom color "
                   "dialogbuttonbox-buttons-have-icons font-family font-size font-weight gridline-color height image left margin max-height "
                   "max-width messagebox-critical-icon messagebox-information-icon messagebox-warning-icon min-height min-width outline padding "
                   "padding-bottom padding-left padding-right padding-top qproperty-icon right selection-background-color selection-color "
                   "show-decoration-selected spacing subcontrol-origin subcontrol-position text-align titlebar-close-icon top width")
        .split(QLatin1Char(' '));

struct StatusColor
{
    BVWidgetStatus::Status status;
    const char *define; // of its text on light surfaces
};

constexpr StatusColor s_statusColors[] = {
    {BVWidgetStatus::Normal, "textColorDark"},
    {BVWidgetStatus::UserEdit, "textColorUser2"},
    {BVWidgetStatus::RuvixActive, "textColorRuvix2"},
    {BVWidgetStatus::Different, "textColorDiff2"},
    {BVWidgetStatus::StandardChanged, "textColorStandard2"},
    {BVWidgetStatus::RuvixInvalid, "textColorError2"},
    {BVWidgetStatus::CompareDifferent, "textColorCompare2"},
    {BVWidgetStatus::NeedInput, "textColorError2"},
};

// Each base with the classes that derive from it.
constexpr std::pair<const char *, const char *> s_bases[] = {
    {"QToolButton", "BVButton"},
    {"QCheckBox", "BVCheckBox"},
    {"QComboBox", "BVComboBox"},
    {"QLabel", "BVLabel"},
    {"QLineEdit", "BVLineEdit"},
    {"QWidget", "BVProgressiveDisclosure"},
    {"QPushButton", "BVPushButton QCommandLinkButton"},
    {"QTabBar", "BVTabBar"},
    {"QTabWidget", "BVTabWidget"},
    {"QTextEdit", "BVTextEdit"},
    {"BVLineEdit", "BVValueEdit"},
    {"QFrame", "QAbstractScrollArea QLabel"},
    {"QAbstractScrollArea", "QAbstractItemView QPlainTextEdit QTextEdit"},
    {"QAbstractSpinBox", "QDoubleSpinBox"},
    {"QAbstractItemView", "QHeaderView QListView QTableView QTreeView"},
    {"QDialog", "QMessageBox"},
};

QString baseOf(const QString &name)
{
    const auto *found = std::find_if(std::begin(s_bases), std::end(s_bases),
                                     [&name](const auto &base) { return QString::fromLatin1(base.second).split(QLatin1Char(' ')).contains(name); });
    return found == std::end(s_bases) ? QString() : QString::fromLatin1(found->first);
}

/// A text in the front end: where it stands (classes from the window inwards, "#" before an object
/// name, "::" before a sub-control) and the states that it is looked at in, beside none, hover and
/// focus.
struct Place
{
    const char *path;
    const char *states;
};

constexpr Place s_places[] = {
    {"QMainWindow QLabel", ""},
    {"QMainWindow BVLabel", ""},
    {"QMainWindow QGroupBox::title", ""},
    {"QMainWindow QGroupBox QLabel", ""},
    {"QMainWindow QGroupBox QGroupBox::title", ""},
    {"QMainWindow BVProgressiveDisclosure::title", ""},
    {"QMainWindow BVProgressiveDisclosure QToolButton", "pressed checked"},
    {"QMainWindow QGroupBox BVValueEdit", "read-only"},
    {"QMainWindow QLineEdit", "read-only"},
    {"QMainWindow QDoubleSpinBox", ""},
    {"QMainWindow BVComboBox", "on editable !editable"},
    {"QMainWindow BVTextEdit", "read-only"},
    {"QMainWindow QPlainTextEdit", "read-only"},
    {"QMainWindow BVCheckBox", "checked"},
    {"QMainWindow QRadioButton", "checked"},
    {"QMainWindow BVPushButton", "pressed checked default default,pressed default,hover flat"},
    {"QMainWindow QCommandLinkButton", "pressed"},
    {"QMainWindow BVButton", "pressed checked open"},
    {"QMainWindow QToolButton", "pressed checked open"},
    {"QMainWindow BVTabWidget BVTabBar::tab", "selected"},
    {"QMainWindow QTabBar#bv_ribbon::tab", "selected"},
    {"QMainWindow QTreeView::item", "selected"},
    {"QMainWindow QListView", ""},
    {"QMainWindow QTableView QHeaderView::section", ""},
    {"QMainWindow QMenuBar::item", "selected pressed"},
    {"QMenu::item", "selected"},
    {"QMainWindow QToolBar QLabel", ""},
    {"QMainWindow QToolBar QToolButton", "pressed checked open"},
    {"QMainWindow QToolBar BVButton", "pressed checked"},
    {"QMainWindow QStatusBar QLabel", ""},
    {"QMainWindow QStatusBar", ""},
    {"QMainWindow QProgressBar", ""},
    {"QMainWindow QFrame#bv_plannel QLabel", ""},
    {"QMainWindow QFrame#bv_plannel QTreeView::item", "selected"},
    {"QMainWindow QFrame#bv_plannel QCheckBox", "checked"},
    {"QMainWindow QFrame#bv_titlebar QLabel", ""},
    {"QMainWindow QFrame#bv_titlebar QToolButton", "pressed checked"},
    {"QMainWindow QFrame#bv_inplacectrl QLabel", ""},
    {"QMainWindow QFrame#bv_inplacectrl QCheckBox", ""},
    {"QMainWindow QFrame#bv_inplacectrl QLineEdit", "read-only"},
    {"QMainWindow QFrame#bv_inplacectrl QComboBox", "on"},
    {"QDialog QGroupBox::title", ""},
    {"QDialog QLabel", ""},
    {"QMessageBox QLabel", ""},
    {"QToolTip", ""},
};

SheetElement element(const QString &word)
{
    SheetElement result;
    result.id = word.section(QLatin1Char('#'), 1);
    QString name = word.section(QLatin1Char('#'), 0, 0);
    for (; !name.isEmpty(); name = baseOf(name)) {
        result.classes.append(name);
        if (name != QLatin1String("QWidget") && baseOf(name).isEmpty())
            result.classes.append(QStringLiteral("QWidget"));
    }
    result.states.insert(QStringLiteral("enabled"));
    return result;
}

QVector<SheetElement> elements(const QString &path)
{
    QVector<SheetElement> result;
    const QStringList words = path.section(QLatin1String("::"), 0, 0).split(QLatin1Char(' '));
    for (const QString &word : words)
        result.append(element(word));
    return result;
}

double luminance(const QColor &color)
{
    const auto linear = [](double channel) { return channel <= 0.03928 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4); };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

double contrast(const QColor &text, const QColor &background)
{
    const double alpha = text.alphaF();
    const auto mixed = [alpha](double over, double under) { return alpha * over + (1 - alpha) * under; };
    const QColor seen =
        QColor::fromRgbF(mixed(text.redF(), background.redF()), mixed(text.greenF(), background.greenF()), mixed(text.blueF(), background.blueF()));
    const double first = luminance(seen) + 0.05;
    const double second = luminance(background) + 0.05;
    return qMax(first, second) / qMin(first, second);
}

/// What the text of the last element stands on: its own background or that of the nearest widget
/// around it that has one.
QColor surface(const SheetReader &reader, QVector<SheetElement> path, const QString &subControl)
{
    const QString property = QStringLiteral("background-color");
    QColor result = reader.color(path, subControl, property);
    for (; !result.isValid() && !path.isEmpty(); path.removeLast())
        result = reader.color(path, QString(), property);
    return result;
}

QColor textColor(const SheetReader &reader, const QVector<SheetElement> &path, const QString &subControl)
{
    const QColor own = reader.color(path, subControl, QStringLiteral("color"));
    return own.isValid() ? own : reader.color(path, QString(), QStringLiteral("color"));
}

/// No status, each status that the sheet knows, and each two together.
QVector<QSet<QString>> flagSets(const SheetReader &reader)
{
    QStringList names;
    for (quint32 bit = BVWidgetStatus::UserEdit; bit <= BVWidgetStatus::StandardLocked; bit <<= 1) {
        const QString name = statusPropertyName(BVWidgetStatus::Status(bit));
        if (reader.flags().contains(name))
            names.append(name);
    }
    QVector<QSet<QString>> result = {{}};
    for (const QString &first : qAsConst(names)) {
        for (const QString &second : qAsConst(names)) {
            if (first <= second)
                result.append({first, second});
        }
    }
    return result;
}

QVector<QSet<QString>> stateSets(const char *names)
{
    QVector<QSet<QString>> result = {{QStringLiteral("enabled")}};
    const QStringList sets = QStringLiteral("hover focus hover,focus ").append(QLatin1String(names)).split(QLatin1Char(' '), Qt::SkipEmptyParts);
    for (const QString &set : sets) {
        const QStringList states = set.split(QLatin1Char(','));
        result.append(QSet<QString>(states.begin(), states.end()) += QStringLiteral("enabled"));
    }
    return result;
}

using ColorPair = QPair<QRgb, QRgb>; // text and what it stands on

/// Every pair that the sheet puts together at a place, with one set of status and states that does.
/// A colour that the sheet leaves open counts as text on itself.
QHash<ColorPair, QString> colorPairs(const SheetReader &reader, const Place &place)
{
    const QVector<QSet<QString>> flagSet = flagSets(reader);
    const QString path = QString::fromLatin1(place.path);
    const QString subControl = path.section(QLatin1String("::"), 1);
    QVector<SheetElement> widgets = elements(path);
    SheetElement &subject = widgets.last();
    QHash<ColorPair, QString> result;
    const auto add = [&](const QColor &text, const QColor &background) {
        const bool known = text.isValid() && background.isValid();
        const ColorPair pair = known ? ColorPair(text.rgba(), background.rgba()) : ColorPair(0, 0);
        if (!result.contains(pair))
            result.insert(pair, QStringLiteral("%1 [%2] :%3")
                                    .arg(path, subject.flags.values().join(QLatin1Char(' ')), subject.states.values().join(QLatin1Char(':'))));
    };
    for (const QSet<QString> &states : stateSets(place.states)) {
        subject.states = states;
        for (const QSet<QString> &flags : flagSet) {
            subject.flags = flags;
            add(textColor(reader, widgets, subControl), surface(reader, widgets, subControl));
        }
    }
    const QColor chosen = reader.color(widgets, QString(), QStringLiteral("selection-background-color"));
    if (chosen.isValid())
        add(reader.color(widgets, QString(), QStringLiteral("selection-color")), chosen);
    return result;
}

QMutex s_messageLock;
QStringList s_messages;

void keepMessage(QtMsgType, const QMessageLogContext &, const QString &message)
{
    const QMutexLocker lock(&s_messageLock);
    s_messages.append(message);
}

QAbstractItemModel *sampleModel(QObject *parent)
{
    auto *model = new QStandardItemModel(2, 2, parent);
    model->setHorizontalHeaderLabels({QStringLiteral("Name"), QStringLiteral("Value")});
    auto *press = new QStandardItem(QStringLiteral("Press"));
    press->appendRow(new QStandardItem(QStringLiteral("Force")));
    model->setItem(0, press);
    return model;
}

template <typename... Widgets>
void addEach(QLayout *layout)
{
    (layout->addWidget(new Widgets), ...);
}

/// One of each toolkit class that the sheets dress.
std::unique_ptr<QMainWindow> sampleWindow()
{
    auto window = std::make_unique<QMainWindow>();
    window->menuBar()->addMenu(QStringLiteral("File"))->addAction(QStringLiteral("Open"));
    window->addToolBar(QStringLiteral("Main"))->addAction(QStringLiteral("Open"));
    window->statusBar()->addWidget(new QLabel(QStringLiteral("Ready")));
    auto *box = new QGroupBox(QStringLiteral("Blank"));
    auto *column = new QVBoxLayout(box);
    addEach<QLabel, QLineEdit, QTextEdit, QPlainTextEdit, QCheckBox, QRadioButton, QComboBox, QPushButton, QToolButton, QSpinBox, QDoubleSpinBox,
            QProgressBar, QSlider, QFrame, QCommandLinkButton, QDialogButtonBox, QScrollBar, QSplitter, QScrollArea>(column);
    auto *tabs = new QTabWidget;
    tabs->addTab(box, QStringLiteral("Form"));
    for (QAbstractItemView *view : std::initializer_list<QAbstractItemView *>{new QTreeView, new QTableView, new QListView}) {
        view->setModel(sampleModel(view));
        tabs->addTab(view, QString::fromLatin1(view->metaObject()->className()));
    }
    window->setCentralWidget(tabs);
    return window;
}

} // namespace

class tst_Sheets : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();

    void expandsToPlainSheet_data();
    void expandsToPlainSheet();
    void isUnderstoodByToolkit_data() { expandsToPlainSheet_data(); }
    void isUnderstoodByToolkit();
    void everySheetIsUsedAndIconsRender();
    void textIsLegible();
    void strongestStatusShows();
    void statusMovesNothing();
};

void tst_Sheets::cleanup()
{
    qApp->setStyleSheet(QString());
}

void tst_Sheets::expandsToPlainSheet_data()
{
    QTest::addColumn<QString>("path");
    for (const QString &path : s_sheets)
        QTest::newRow(qPrintable(path.section(QLatin1Char('/'), -1))) << path;
}

void tst_Sheets::expandsToPlainSheet()
{
    QFETCH(QString, path);
    StyleSheetHandler handler(true);
    handler.load(path);
    const QString sheet = handler.getStyleSheet();
    for (const auto &finding : handler.diagnostics())
        QFAIL(qPrintable(QStringLiteral("%1:%2: %3").arg(finding.file).arg(finding.line).arg(finding.text)));

    const QString text = QString(sheet).remove(QRegularExpression(QStringLiteral("/\\*.*?\\*/"), QRegularExpression::DotMatchesEverythingOption));
    QVERIFY(!text.contains(QRegularExpression(QStringLiteral("^\\s*(#include|#define|<@|@>)"), QRegularExpression::MultilineOption)));
    QCOMPARE(text.count(QLatin1Char('{')), text.count(QLatin1Char('}')));

    const QRegularExpression define(QStringLiteral("^#define\\s+(\\w+)\\s"), QRegularExpression::MultilineOption);
    for (const QString &part : handler.getPartNames()) {
        for (auto it = define.globalMatch(handler.getPart(part)); it.hasNext();) {
            const QString name = it.next().captured(1);
            QVERIFY2(!text.contains(name), qPrintable(name + QLatin1String(" is left")));
        }
    }

    const SheetReader reader(sheet);
    QVERIFY(reader.ruleCount() < 300); // every rule makes each status change dearer
    for (const QString &property : reader.properties())
        QVERIFY2(s_properties.contains(property), qPrintable(property));
}

void tst_Sheets::isUnderstoodByToolkit()
{
    QFETCH(QString, path);
    StyleSheetHandler handler(true);
    handler.load(path);
    s_messages.clear();
    const QtMessageHandler previous = qInstallMessageHandler(keepMessage);
    qApp->setStyleSheet(handler.getStyleSheet());
    sampleWindow()->grab();
    QMessageBox(QMessageBox::Warning, QString(), QStringLiteral("Not read.")).grab();
    qInstallMessageHandler(previous);
    QCOMPARE(s_messages, QStringList());
}

void tst_Sheets::everySheetIsUsedAndIconsRender()
{
    StyleSheetHandler handler(true);
    QStringList used;
    QSet<QString> icons;
    const QRegularExpression url(QStringLiteral("url\\(([^)]*)\\)"));
    for (const QString &path : s_sheets) {
        handler.load(path);
        used += handler.getPartNames();
        for (auto it = url.globalMatch(handler.getStyleSheet()); it.hasNext();)
            icons.insert(it.next().captured(1));
    }
    for (QDirIterator it(QStringLiteral(":/Style"), QDir::Files, QDirIterator::Subdirectories); it.hasNext();) {
        const QString path = it.next();
        if (path.endsWith(QLatin1String(".svg"))) { // drawn by code
            icons.insert(path);
            continue;
        }
        QVERIFY2(used.contains(path), qPrintable(path));
    }
    for (QDirIterator it(QStringLiteral(":/Icons"), QDir::Files); it.hasNext();)
        icons.insert(it.next());
    QVERIFY(!icons.isEmpty());
    for (const QString &path : qAsConst(icons)) {
        const QImage image = QIcon(path).pixmap(32, 32).toImage();
        QVERIFY2(!image.isNull(), qPrintable(path));
        QVERIFY2(image != QImage(image.size(), image.format()) && image.width() == 32, qPrintable(path));
    }
}

void tst_Sheets::textIsLegible()
{
    QStringList poor;
    for (int i = 0; i < 2 * s_frontEnds; ++i) {
        const QString &path = s_sheets.at(i / 2);
        StyleSheetHandler handler(true); // a new one: the colours of a version stay set when another sheet is loaded
        handler.load(path);
        handler.setUseLightVersion(i % 2);
        const SheetReader reader(handler.getStyleSheet());
        for (const Place &place : s_places) {
            const QHash<ColorPair, QString> pairs = colorPairs(reader, place);
            for (auto it = pairs.cbegin(); it != pairs.cend(); ++it) {
                const QColor text = QColor::fromRgba(it.key().first);
                const QColor background = QColor::fromRgba(it.key().second);
                const double seen = contrast(text, background);
                if (seen < 4.5)
                    poor.append(QStringLiteral("%1, %2: %3 on %4 has %5").arg(path, it.value(), text.name(), background.name()).arg(seen, 0, 'f', 2));
            }
        }
    }
    QVERIFY2(poor.isEmpty(), qPrintable(poor.join(QLatin1Char('\n'))));
}

// All sets of the flags that can dominate, with and without the weaker marks, against the status
// that code would paint.
void tst_Sheets::strongestStatusShows()
{
    StyleSheetHandler handler(true);
    handler.load(StyleSheetHandler::s_defaultCSS);
    qApp->setStyleSheet(handler.getStyleSheet());
    QWidget window;
    for (QWidget *widget :
         std::initializer_list<QWidget *>{new QLineEdit(&window), new QDoubleSpinBox(&window), new QComboBox(&window), new QTextEdit(&window),
                                          new QLabel(&window), new QCheckBox(&window), new QPushButton(&window)}) {
        for (int set = 0; set < 256; ++set) {
            BVWidgetStatus::Stati stati = set & 128 ? BVWidgetStatus::StandardLocked | BVWidgetStatus::DefaultChanged : BVWidgetStatus::Stati();
            for (int bit = 0; bit < 7; ++bit)
                stati.setFlag(s_statusColors[bit + 1].status, set & (1 << bit));
            BVWidgetStatus::setStatusProperty(widget, stati);
            widget->ensurePolished();
            const auto *shown = std::find_if(std::begin(s_statusColors), std::end(s_statusColors),
                                             [&](const auto &entry) { return entry.status == BVWidgetStatus::getDominantStatusFromFlag(stati); });
            const QColor color = widget->palette().color(widget->foregroundRole());
            const QColor expected(handler.getDefined(QString::fromLatin1(shown->define)));
            QVERIFY2(color == expected,
                     qPrintable(QString::fromLatin1(widget->metaObject()->className()) + BVWidgetStatus::debugStatusFlag(stati) + color.name()));
        }
        widget->setEnabled(false);
        QVERIFY(widget->palette().color(widget->foregroundRole()) != QColor(handler.getDefined(QStringLiteral("textColorError2"))));
    }
}

// The broad mark at the left takes its room from the padding.
void tst_Sheets::statusMovesNothing()
{
    qApp->setStyleSheet(StyleSheetHandler::load());
    QLineEdit edit;
    QDoubleSpinBox spin;
    QComboBox combo;
    combo.addItem(QStringLiteral("Mild steel"));
    QPushButton button(QStringLiteral("Calculate"));
    QToolButton tool;
    for (QWidget *widget : std::initializer_list<QWidget *>{&edit, &spin, &combo, &button, &tool}) {
        widget->ensurePolished();
        const QSize before = widget->sizeHint();
        for (const StatusColor &entry : s_statusColors) {
            BVWidgetStatus::setStatusProperty(widget, entry.status, true);
            QVERIFY2(widget->sizeHint() == before, qPrintable(BVWidgetStatus::debugStatusToString(widget)));
        }
    }
}

QTEST_MAIN(tst_Sheets)

#include "tst_sheets.moc"
