// SPDX-License-Identifier: MIT
#include "foundation/BVStatusColor.h"
#include "itemviews/BVCustomHeaderView.h"
#include "itemviews/BVDelegateManager.h"
#include "itemviews/BVItemDelegate.h"
#include "itemviews/BVTreeView.h"
#include "itemviews/BVTreeViewDataListener.h"
#include "itemviews/BVTreeViewModel.h"
#include "itemviews/BVViewAwareModel.h"
#include "units/BVFormatter.h"
#include "units/BVValueEdit.h"

#include "TestSupport.h"

#include <QApplication>
#include <QIdentityProxyModel>
#include <QScrollBar>
#include <QSignalSpy>
#include <QSortFilterProxyModel>
#include <QTest>
#include <QTimer>

namespace {

constexpr int s_columns = 3;

/// "a(b,c),d" -> rows a and d, a with children b and c. Column 0 holds the name, 1 a number and 2 a
/// check box. Marks behind a name: "+" checked, "!" disabled, "=" skipped by editor navigation, "#"
/// its number locked by the standard.
void build(BVTreeViewItem *parent, const QString &tree)
{
    QVector<BVTreeViewItem *> path{parent};
    BVTreeViewItem *last = nullptr;
    for (const QChar c : tree) {
        if (c == '(') {
            path.append(last);
        } else if (c == ')') {
            path.removeLast();
        } else if (c == '+') {
            last->setData(2, Qt::CheckStateRole, Qt::Checked);
        } else if (c == '!') {
            last->setDisabled(true);
        } else if (c == '=') {
            last->setData(0, BVTreeViewModel::NonEditableRowRole, true);
        } else if (c == '#') {
            last->setData(1, BVWidgetStatus::s_itemRole, int(BVWidgetStatus::StandardLocked));
        } else if (c.isLetter()) {
            last = new BVTreeViewItem({{{Qt::DisplayRole, QString(c)}}, {{Qt::DisplayRole, 1.23456}}, {{Qt::CheckStateRole, 0}}}, path.constLast());
            last->setFlags(last->flags() | Qt::ItemIsEditable);
        }
    }
}

/// A model that keeps count of its views.
class AwareModel : public BVTreeViewModel, public BVViewAwareModel
{
public:
    void attachView(BVTreeView *view) override { m_views.append(view); }
    void detachView(BVTreeView *view) override { m_views.removeOne(view); }

    QVector<BVTreeView *> m_views;
};

struct Listener : BVTreeViewDataListener
{
    void onDataChanged(const QModelIndex &cell, const QModelIndex &, int role) override
    {
        m_calls += QStringLiteral(" %1:%2").arg(cell.data().toString()).arg(role);
    }

    QString m_calls;
};

/// "a1", for the row's name and the column; "-" if the cell is invalid.
QString nameOf(const QModelIndex &cell)
{
    return cell.isValid() ? cell.sibling(cell.row(), 0).data().toString() + QString::number(cell.column()) : "-";
}

struct Tree
{
    explicit Tree(const QString &tree = "a(b,c),d")
    {
        m_model.setColumnCount(s_columns);
        m_model.setHeaderData(2, Qt::Horizontal, "Use");
        build(m_model.invisibleRootItem(), tree);
        m_view.setModel(&m_model);
        m_view.setSelectionMode(QAbstractItemView::ExtendedSelection);
        m_view.resize(400, 300);
        m_formatter.setValueUnit("mm");
        m_formatter.setDecimals(2);
        delegate()->setFormatter(1, &m_formatter);
    }

    bool show()
    {
        m_view.show();
        m_view.setFocus();
        return QTest::qWaitForWindowActive(&m_view);
    }

    /// The cell of a name such as nameOf() gives.
    QModelIndex cell(const QString &name)
    {
        for (BVTreeViewItem *item : m_model.getAllItems()) {
            if (item->text(0) == name.left(1))
                return m_model.index(item, name.mid(1).toInt());
        }
        return QModelIndex();
    }

    /// The names of the rows that are selected, or else checked.
    QString rows(bool selected)
    {
        QString names;
        for (BVTreeViewItem *item : m_model.getAllItems()) {
            if (selected ? isItemSelected(item, &m_view) : item->data(2, Qt::CheckStateRole).toInt() == Qt::Checked)
                names += item->text(0);
        }
        return names;
    }

    BVItemDelegate *delegate() { return qobject_cast<BVItemDelegate *>(m_view.itemDelegate()); }
    BVCustomHeaderView *header() { return qobject_cast<BVCustomHeaderView *>(m_view.header()); }
    QWidget *editor() { return m_view.indexWidget(m_view.currentIndex()); }
    void step(const QString &step);

    AwareModel m_model;
    BVFormatter m_formatter;
    BVTreeView m_view;
};

/// One step of a user or the program: a letter and a cell, or rows, keys and the like.
void Tree::step(const QString &step)
{
    static const QHash<QString, Qt::Key> keys{
        {"Tab", Qt::Key_Tab}, {"Backtab", Qt::Key_Backtab}, {"Escape", Qt::Key_Escape}, {"Return", Qt::Key_Return}};
    const QModelIndex index = cell(step.mid(1));
    const QPoint position = index.isValid() ? m_view.visualRect(index).center() : QPoint(50, 200);
    const char action = step[0].toLatin1();
    const Qt::KeyboardModifiers modifiers = step[0].isUpper() ? Qt::ControlModifier : Qt::NoModifier;
    if (keys.contains(step)) {
        QTest::keyClick(editor(), keys[step]);
    } else if (action == '\'') {
        QTest::keyClicks(editor(), step.mid(1));
    } else if (action == 's') {
        for (const QChar name : step.mid(1))
            m_view.selectionModel()->select(cell(name), QItemSelectionModel::Select | QItemSelectionModel::Rows);
    } else if (action == 'o') {
        m_view.selectionModel()->setCurrentIndex(index, QItemSelectionModel::NoUpdate);
        static_cast<QAbstractItemView &>(m_view).edit(index);
    } else if (action == 'p' || action == 'P') {
        QTest::mousePress(m_view.viewport(), Qt::LeftButton, modifiers, position);
    } else if (action == 'r' || action == 'R') {
        QTest::mouseRelease(m_view.viewport(), Qt::LeftButton, modifiers, position);
    } else if (step == "keep") {
        m_view.enableDeselection(false);
    } else if (step == "never") {
        m_view.setEditTriggers(QAbstractItemView::NoEditTriggers);
    } else if (step == "focus") {
        m_view.setFocus();
    } else if (step == "wait") {
        QTest::qWait(2 * QApplication::doubleClickInterval());
    }
    QCoreApplication::processEvents();
}

using Set = std::function<void(Tree &)>;

} // namespace

Q_DECLARE_METATYPE(Set)

class tst_BVTreeView : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { muteOffscreenWarnings(); }
    void height_data();
    void height();
    void headerBoxes_data();
    void headerBoxes();
    void headerInput();
    void hover();
    void steps_data();
    void steps();
    void looks();
    void delegates();
    void dataOutOfSight();
    void listenersAndWalks();
};

void tst_BVTreeView::height_data()
{
    QTest::addColumn<Set>("set");
    QTest::addColumn<int>("rows");  // that count
    QTest::addColumn<int>("space"); // between them and the size hint

    QTest::newRow("frame") << Set([](Tree &) {}) << 4 << 2;
    QTest::newRow("three rows of space") << Set([](Tree &t) { t.m_view.setSpaceToAdd(3); }) << 4 << 60;
    QTest::newRow("negative space") << Set([](Tree &t) { t.m_view.setSpaceToAdd(-1); }) << 4 << 0;
    QTest::newRow("expanded") << Set([](Tree &t) { t.m_view.expandAll(); }) << 4 << 2;
    QTest::newRow("uniform") << Set([](Tree &t) { t.m_view.setUniformRowHeights(true); }) << 4 << 2;
    QTest::newRow("hidden branch") << Set([](Tree &t) { t.m_view.setRowHidden(0, {}, true); }) << 1 << 2;
    QTest::newRow("first column hidden") << Set([](Tree &t) { t.m_view.hideColumn(0); }) << 4 << 2;
    QTest::newRow("all columns hidden") << Set([](Tree &t) { t.m_model.setColumnCount(1), t.m_view.hideColumn(0); }) << 0 << 2;
    QTest::newRow("top level only") << Set([](Tree &t) { t.m_view.setOnlyAdjustOnTopLevelItems(true); }) << 2 << 2;
    QTest::newRow("open branches") << Set([](Tree &t) { t.m_view.setAdjustOnChildItems(true), t.m_view.sizeHint(), t.m_view.expandAll(); }) << 4 << 2;
    QTest::newRow("closed branches") << Set([](Tree &t) { t.m_view.setAdjustOnChildItems(true); }) << 2 << 2;
    QTest::newRow("row below a closed one") << Set([](Tree &t) { build(t.m_model.item(t.cell("b")), "e"); }) << 5 << 2;
    QTest::newRow("removed") << Set([](Tree &t) { t.m_model.removeRows(0, 1, t.cell("a")); }) << 3 << 2;
    QTest::newRow("cleared") << Set([](Tree &t) { t.m_model.clear(); }) << 0 << 2;
}

void tst_BVTreeView::height()
{
    QFETCH(Set, set);
    QFETCH(int, rows);
    QFETCH(int, space);
    Tree tree;
    BVTreeView &view = tree.m_view;
    QCOMPARE(view.sizeHint().height(), 192 + 2);
    view.setResizable(true);
    QVERIFY(tree.show());
    const int row = view.visualRect(tree.cell("a")).height();
    QCOMPARE(view.calculateHeight(), view.header()->height() + 4 * row); // kept from here on
    set(tree);
    const int header = qMax(0, view.header()->sizeHint().height());
    QCOMPARE(view.sizeHint().height(), header + rows * row + space);
    view.setHeaderHidden(true);
    QCOMPARE(view.sizeHint().height(), rows * row + space);
    view.setMinimumResizableHeight(1000);
    QCOMPARE(view.sizeHint().height(), 1000 + space);
    view.setCustomFixedHeight(0);
    QCOMPARE(view.sizeHint().height(), space);
    view.showColumn(0);
    view.setColumnWidth(0, 2000);
    view.setMinimumResizableHeight(0);
    if (rows > 0)
        QTRY_COMPARE(view.calculateHeight(), rows * row + view.horizontalScrollBar()->sizeHint().height());
    view.setFont(QFont(view.font().family(), 60));
    QVERIFY(rows == 0 || view.calculateHeight() > 2 * rows * row);
}

void tst_BVTreeView::headerBoxes_data()
{
    QTest::addColumn<QString>("tree");
    QTest::addColumn<int>("before");
    QTest::addColumn<bool>("checked");
    QTest::addColumn<QString>("rows"); // that are checked then

    QTest::newRow("none checked") << "a(b,c),d" << 0 << true << "abcd";
    QTest::newRow("collapsed row") << "a(b+,c),d" << 1 << true << "abcd";
    QTest::newRow("not what the user cannot check") << "a+(b!,c+),d+" << 2 << false << "";
    QTest::newRow("disabled rows keep their boxes") << "a(b!+,c),d" << 0 << true << "abcd";
    QTest::newRow("no rows") << "" << 0 << true << "";
}

void tst_BVTreeView::headerBoxes()
{
    QFETCH(QString, tree);
    QFETCH(int, before);
    QFETCH(bool, checked);
    QFETCH(QString, rows);
    for (const bool proxies : {false, true}) {
        Tree fixture(tree);
        QSortFilterProxyModel sorting;
        QIdentityProxyModel outer;
        sorting.setSourceModel(&fixture.m_model);
        outer.setSourceModel(&sorting);
        if (proxies)
            fixture.m_view.setModel(&outer);
        QCOMPARE(fixture.m_model.m_views, QVector<BVTreeView *>{&fixture.m_view});
        QVERIFY(!fixture.m_view.setCheckBoxChecked(true, 2));
        fixture.m_view.useCheckStateHeader(2, Qt::AlignCenter);
        QTRY_COMPARE(int(fixture.header()->checkState(2)), before);
        QSignalSpy spy(&fixture.m_view, &BVTreeView::sigCheckStateToggled);
        QVERIFY(fixture.m_view.setCheckBoxChecked(checked, 2) && !fixture.m_view.setCheckBoxChecked(checked, 1));
        QCOMPARE(fixture.rows(false), rows);
        QCOMPARE(spy, QList<QVariantList>{QVariantList({checked, 2})});
        build(fixture.m_model.invisibleRootItem(), "x,y+");
        QTRY_COMPARE(fixture.header()->checkState(2), Qt::PartiallyChecked);
        fixture.m_view.setModel(nullptr);
        QVERIFY(fixture.m_model.m_views.isEmpty());
    }
}

void tst_BVTreeView::headerInput()
{
    Tree tree;
    tree.m_view.useCheckStateHeader(2, Qt::AlignLeft);
    tree.m_view.useCheckStateHeader(0, Qt::AlignLeft);
    QVERIFY(tree.show());
    const QPoint box(tree.header()->sectionViewportPosition(2) + 10, tree.header()->height() / 2);
    QTest::mouseClick(tree.header()->viewport(), Qt::LeftButton, {}, box);
    QTest::mouseClick(tree.header()->viewport(), Qt::LeftButton, {}, box + QPoint(50, 0)); // beside it
    QCOMPARE(tree.rows(false), "abcd");
    QTest::keyClick(&tree.m_view, Qt::Key_Tab);
    QVERIFY(tree.header()->hasFocus());
    QTest::keyClick(tree.header(), Qt::Key_Right);
    QCOMPARE(tree.header()->accessibleDescription(), "Use: checked");
    QTest::keyClick(tree.header(), Qt::Key_Space);
    QCOMPARE(tree.rows(false), "");
    tree.m_view.setCheckBoxVisible(false, 0);
    tree.m_view.setCheckBoxVisible(false, 2);
    QCOMPARE(tree.header()->focusPolicy(), Qt::NoFocus);
}

void tst_BVTreeView::hover()
{
    Tree tree;
    QVERIFY(tree.show());
    QString log;
    const auto hover = [&](QEvent::Type type, const QPoint &position) {
        QHoverEvent event(type, position, QPoint());
        QApplication::sendEvent(tree.m_view.viewport(), &event);
    };
    connect(&tree.m_view, &BVTreeView::sigItemHoverEnter, [&](const QModelIndex &index) { log += " +" + nameOf(index); });
    connect(&tree.m_view, &BVTreeView::sigItemHoverLeave, [&](const QModelIndex &index) { log += " -" + nameOf(index); });
    const QPoint first = tree.m_view.visualRect(tree.cell("a")).center();
    hover(QEvent::HoverMove, first);
    hover(QEvent::HoverMove, first + QPoint(1, 1));
    hover(QEvent::HoverMove, tree.m_view.visualRect(tree.cell("d1")).center());
    hover(QEvent::HoverLeave, QPoint(-1, -1));
    hover(QEvent::HoverLeave, QPoint(-1, -1));
    QCOMPARE(log, " +a0 -a0 +d1 -d1");
    hover(QEvent::HoverMove, first);
    QTimer::singleShot(0, [] { QApplication::activePopupWidget()->close(); });
    QContextMenuEvent menu(QContextMenuEvent::Mouse, first);
    QApplication::sendEvent(tree.m_view.viewport(), &menu);
    QVERIFY(!tree.m_view.getHoverItem().isValid());
    hover(QEvent::HoverMove, first);
    log.clear();
    tree.m_model.clear(); // no cell is left to be told of
    hover(QEvent::HoverLeave, QPoint(-1, -1));
    QCOMPARE(log, "");
}

void tst_BVTreeView::steps_data()
{
    QTest::addColumn<QString>("tree");
    QTest::addColumn<QString>("steps"); // upper case with Control
    QTest::addColumn<QString>("after"); // the selected rows, the edited cell and how often editing has finished

    QTest::newRow("Control selects at the press") << "a,d"
                                                  << "sa Pd"
                                                  << "ad - 0";
    QTest::newRow("Control keeps a selected row at the press") << "a,d"
                                                               << "sad Pd"
                                                               << "ad - 0";
    QTest::newRow("Control deselects at the release") << "a,d"
                                                      << "sad Pd Rd"
                                                      << "a - 0";
    QTest::newRow("not at another row") << "a,d,e"
                                        << "sad Pd Re"
                                        << "ad - 0";
    QTest::newRow("a click selects the row alone") << "a,d"
                                                   << "sad pd rd"
                                                   << "d - 0";
    QTest::newRow("empty space deselects") << "a,d"
                                           << "sad p- r-"
                                           << " - 0";
    QTest::newRow("empty space, deselection off") << "a,d"
                                                  << "keep sad p- r-"
                                                  << "ad - 0";
    QTest::newRow("release while editing") << "a,d"
                                           << "sad oa rd"
                                           << "ad a0 0";
    QTest::newRow("click that ends editing") << "a,d"
                                             << "sad oa pd rd"
                                             << "ad - 1";
    QTest::newRow("click after editing") << "a,d"
                                         << "sad oa Escape pd rd"
                                         << "d - 1";
    QTest::newRow("Control after editing") << "a,d"
                                           << "sad oa Escape Pd Rd"
                                           << "a - 1";
    QTest::newRow("number opens") << "a,d"
                                  << "sad pd1 rd1"
                                  << "ad d1 0";
    QTest::newRow("number, Control") << "a,d"
                                     << "sad Pd1 Rd1 wait"
                                     << "a - 0";
    QTest::newRow("number, no triggers") << "a,d"
                                         << "never sad pd1 rd1"
                                         << "d - 0";
    QTest::newRow("number, locked") << "a,d#"
                                    << "sad pd1 rd1"
                                    << "d - 0";
    QTest::newRow("text among several rows") << "a,d"
                                             << "sad pd rd wait"
                                             << "d - 0";
    QTest::newRow("text, alone") << "a,d"
                                 << "sd pd rd wait"
                                 << "d d0 0";
    QTest::newRow("next") << "a,b,c"
                          << "oa1 Tab"
                          << "b b1 1";
    QTest::newRow("previous") << "a,b,c"
                              << "oc1 Backtab"
                              << "b b1 1";
    QTest::newRow("skipped, disabled and locked rows") << "a,b=,c!,d#,e"
                                                       << "oa1 Tab"
                                                       << "e e1 1";
    QTest::newRow("none left") << "a,b=,c!"
                               << "sa oa1 Tab"
                               << "a - 1";
}

void tst_BVTreeView::steps()
{
    QFETCH(QString, tree);
    QFETCH(QString, steps);
    QFETCH(QString, after);
    Tree fixture(tree);
    QApplication::setDoubleClickInterval(50); // after which texts open
    fixture.m_view.setEditTriggers(QAbstractItemView::SelectedClicked);
    QVERIFY(fixture.show());
    QSignalSpy finished(&fixture.m_view, &BVTreeView::sigEditingFinished);
    QSignalSpy moved(fixture.m_view.selectionModel(), &QItemSelectionModel::currentChanged);
    for (const QString &step : steps.split(' '))
        fixture.step(step);
    QApplication::setDoubleClickInterval(400);
    const QString edited = nameOf(fixture.m_view.isEditingState() ? fixture.m_view.currentIndex() : QModelIndex());
    QCOMPARE(QString("%1 %2 %3").arg(fixture.rows(true), edited).arg(finished.count()), after);
    QVERIFY(moved.count() <= 2); // rows passed over are not visited
}

void tst_BVTreeView::looks()
{
    const int needInput = BVWidgetStatus::NeedInput;
    for (const int role : {int(BVItemDelegate::BoldRole), int(BVItemDelegate::ItalicRole), int(BVItemDelegate::MarkedRole),
                           int(BVItemDelegate::GroupHeaderRole), BVWidgetStatus::s_itemRole}) {
        Tree tree("W");
        tree.m_view.setStyleSheet("QTreeView { font-size: 40px } QTreeView::item:selected { background: #ddd; color: black }");
        QVERIFY(tree.show());
        const QRect rect = tree.m_view.visualRect(tree.cell("W"));
        const QImage plain = tree.m_view.viewport()->grab(rect).toImage();
        tree.m_model.setData(tree.cell("W"), needInput, role);
        QVERIFY2(tree.m_view.viewport()->grab(rect).toImage() != plain, QByteArray::number(role));
        tree.step("sW"); // the colour of a status goes over the sheet's own
        const QImage selected = tree.m_view.viewport()->grab(rect).toImage();
        const QRgb color = BVStatusColor::colors().forLightBackground(BVWidgetStatus::NeedInput).rgb();
        bool isFound = false;
        for (int i = 0; i < selected.width() * selected.height() && !isFound; ++i)
            isFound = selected.pixel(i % selected.width(), i / selected.width()) == color;
        QCOMPARE(isFound, role == BVWidgetStatus::s_itemRole);
    }
}

void tst_BVTreeView::delegates()
{
    Tree tree("a,d");
    BVDelegateManager manager;
    BVItemDelegate byIndex, byRow, byColumn, byDefault;
    manager.setDefaultDelegate(&byDefault);
    manager.setDelegateForColumn(1, &byColumn);
    manager.setDelegateForRow(1, &byRow);
    manager.setDelegate(tree.cell("d1"), &byIndex);
    tree.m_view.setItemDelegate(&manager);
    const std::pair<const char *, BVItemDelegate *> serving[] = {{"d1", &byIndex}, {"d0", &byRow}, {"a1", &byColumn}, {"a0", &byDefault}};
    for (const auto &[name, delegate] : serving)
        QCOMPARE(BVDelegateManager::itemDelegateOf(&tree.m_view, tree.cell(name)), delegate);
    byIndex.setFormatter(1, &tree.m_formatter);
    QCOMPARE(byIndex.getDisplayedText(tree.cell("d1")), "1.23 mm");
    QVERIFY(tree.show());
    const std::pair<const char *, double> typed[] = {
        {"od1 focus", 1.23456}, {"od1 'abc focus", 1.23456}, {"od1 '2.5 Return", 2.5}, {"od1 '3cm focus", 30.0}, {"od1 '4 Escape", 30.0}};
    for (const auto &[steps, value] : typed) {
        for (const QString &step : QString(steps).split(' '))
            tree.step(step);
        QVERIFY2(!tree.m_view.isEditingState(), steps);
        QCOMPARE(tree.cell("d1").data().toDouble(), value);
    }
    byDefault.setCheckIndicatorAlignment(Qt::AlignRight);
    const QRect cell = tree.m_view.visualRect(tree.cell("a2"));
    QTest::mouseClick(tree.m_view.viewport(), Qt::LeftButton, {}, QPoint(cell.left() + 8, cell.center().y()));
    QCOMPARE(tree.rows(false), "");
    QTest::mouseClick(tree.m_view.viewport(), Qt::LeftButton, {}, QPoint(cell.right() - 8, cell.center().y()));
    QCOMPARE(tree.rows(false), "a");
    tree.m_view.setItemDelegate(nullptr);
}

void tst_BVTreeView::dataOutOfSight()
{
    Tree tree(QString("x,").repeated(100) + "y");
    QVERIFY(tree.show());
    tree.m_view.viewport()->grab();
    const QModelIndex last = tree.cell("y");
    const int height = tree.m_view.visualRect(last).height();
    tree.m_model.setData(last, QFont(tree.m_view.font().family(), 60), Qt::FontRole);
    tree.m_view.scrollToBottom();
    tree.m_view.viewport()->grab(); // it has come into sight
    QVERIFY(tree.m_view.visualRect(last).height() > 2 * height);
}

void tst_BVTreeView::listenersAndWalks()
{
    Tree tree("a(b(c),d),e");
    Listener listener;
    tree.m_view.addDataListener(&listener);
    tree.m_view.addDataListener(&listener);
    tree.m_model.setData(tree.cell("e"), "f");
    Q_EMIT tree.m_model.dataChanged(tree.cell("a"), tree.cell("a"));
    tree.m_view.removeDataListener(&listener);
    tree.m_model.setData(tree.cell("f"), "e");
    QCOMPARE(listener.m_calls, " f:0 f:2 a:-1");
    for (int position = 0; position < 5; ++position) {
        const QModelIndex row = tree.cell(QString("abcde").mid(position, 1));
        QCOMPARE(tree.m_view.getDFSIndex(row.sibling(row.row(), 2)), position);
        QCOMPARE(tree.m_view.indexFromDFSIndex(position), row);
    }
    QCOMPARE(tree.m_view.getDFSIndex(QModelIndex()), -1);
    QVERIFY(!tree.m_view.indexFromDFSIndex(5).isValid() && !tree.m_view.indexFromDFSIndex(-1).isValid());
}

QTEST_MAIN(tst_BVTreeView)
#include "tst_bvtreeview.moc"
