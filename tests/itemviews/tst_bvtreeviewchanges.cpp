// SPDX-License-Identifier: MIT
// What a tree view makes of changes: of rows out of sight, of models, headers and columns.
#include "foundation/BVStatusColor.h"
#include "itemviews/BVCustomHeaderView.h"
#include "itemviews/BVTreeView.h"
#include "itemviews/BVTreeViewDataListener.h"
#include "itemviews/BVTreeViewModel.h"
#include "itemviews/BVViewAwareModel.h"

#include "TestSupport.h"

#include <QApplication>
#include <QHeaderView>
#include <QScrollBar>
#include <QSignalSpy>
#include <QSortFilterProxyModel>
#include <QStandardItemModel>
#include <QTest>

namespace {

/// Rows "0", "1", ... with an unchecked box in column 2, and in column 1 if it is asked for.
struct Table
{
    explicit Table(int rows = 4)
    {
        m_model.setColumnCount(3);
        QVector<BVTreeViewItem *> items;
        for (int row = 0; row < rows; ++row) {
            items.append(new BVTreeViewItem({{{Qt::DisplayRole, QString::number(row)}}, {}, {{Qt::CheckStateRole, 0}}}, nullptr));
            items.last()->setFlags(items.last()->flags() | Qt::ItemIsEditable);
        }
        m_model.appendTopLevelItems(items);
        m_view.setModel(&m_model);
        m_view.setSelectionMode(QAbstractItemView::ExtendedSelection);
        m_view.resize(400, 300);
    }

    bool show()
    {
        m_view.show();
        const bool isActive = QTest::qWaitForWindowActive(&m_view);
        m_view.viewport()->grab();
        return isActive;
    }

    void grow(int row) { m_model.setData(m_model.index(row, 0), QFont(m_view.font().family(), 40), Qt::FontRole); }
    void select(int row) { m_view.selectionModel()->select(m_model.index(row, 0), QItemSelectionModel::Select | QItemSelectionModel::Rows); }
    BVCustomHeaderView *header() { return qobject_cast<BVCustomHeaderView *>(m_view.header()); }

    /// The check states of a column, such as "0200"; "-" for none.
    QString states(int column = 2)
    {
        QString states;
        for (int row = 0; row < m_model.rowCount(); ++row) {
            const QVariant state = m_model.index(row, column).data(Qt::CheckStateRole);
            states += state.isValid() ? state.toString() : "-";
        }
        return states;
    }

    BVTreeViewModel m_model;
    BVTreeView m_view;
};

class AwareModel : public BVTreeViewModel, public BVViewAwareModel
{
public:
    void attachView(BVTreeView *) override { ++m_views; }
    void detachView(BVTreeView *) override { --m_views; }

    int m_views = 0;
};

struct Killer : BVTreeViewDataListener
{
    void onDataChanged(const QModelIndex &, const QModelIndex &, int) override { delete m_view; }

    QPointer<BVTreeView> m_view;
};

struct Unchecked : QSortFilterProxyModel
{
    bool filterAcceptsRow(int row, const QModelIndex &parent) const override
    {
        return sourceModel()->index(row, 2, parent).data(Qt::CheckStateRole).toInt() == 0;
    }
};

using Act = std::function<void(Table &)>;

} // namespace

Q_DECLARE_METATYPE(Act)

class tst_BVTreeViewChanges : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { muteOffscreenWarnings(); }
    void grownRows_data();
    void grownRows();
    void contentHeight();
    void editorGone();
    void headerSwap();
    void boxes();
    void boxesOverProxies();
    void hiddenBoxes();
    void models();
    void grid();
    void linesWithStatus();
};

void tst_BVTreeViewChanges::grownRows_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<Act>("act");

    QTest::newRow("scrolled to") << 150 << Act([](Table &t) { t.m_view.scrollTo(t.m_model.index(150, 0)); });
    QTest::newRow("vertically only") << 150
                                     << Act([](Table &t) { t.m_view.setVerticalScrollingOnly(true), t.m_view.scrollTo(t.m_model.index(150, 0)); });
    QTest::newRow("made current") << 150 << Act([](Table &t) { t.m_view.setCurrentIndex(t.m_model.index(150, 0)); });
    QTest::newRow("bottom") << 299 << Act([](Table &t) { t.m_view.scrollToBottom(); });
    QTest::newRow("end of the bar") << 299 << Act([](Table &t) { t.m_view.verticalScrollBar()->triggerAction(QScrollBar::SliderToMaximum); });
    QTest::newRow("by key") << 299 << Act([](Table &t) { QTest::keyClick(&t.m_view, Qt::Key_End); });
}

void tst_BVTreeViewChanges::grownRows()
{
    QFETCH(int, row);
    QFETCH(Act, act);
    for (const int grown : {5, 300}) { // rows, told one by one and at once
        Table table(300);
        QVERIFY(table.show());
        table.m_view.scrollToBottom(); // all heights are known to the view
        table.m_view.scrollTo(table.m_model.index(150, 0));
        table.m_view.scrollToTop();
        table.m_view.viewport()->grab();
        table.m_model.useDelayedUpdate(grown == 300, 0);
        for (int i = 0; i < grown; ++i)
            table.grow(row - i + (row < grown ? grown - row - 1 : 0));
        table.m_model.useDelayedUpdate(false, 0);
        act(table);
        const QRect rect = table.m_view.visualRect(table.m_model.index(row, 0));
        QVERIFY(rect.height() > 40);
        QVERIFY(table.m_view.viewport()->rect().contains(rect.center()) && rect.bottom() <= table.m_view.viewport()->height());
    }
}

void tst_BVTreeViewChanges::contentHeight()
{
    for (const bool isUniform : {false, true}) {
        Table table(20);
        table.m_view.setUniformRowHeights(isUniform);
        int height = table.m_view.calculateHeight();
        const auto grows = [&] { return table.m_view.calculateHeight() > std::exchange(height, table.m_view.calculateHeight()); };
        table.m_model.setData(table.m_model.index(7, 0), "other");
        QVERIFY(!grows());
        table.m_model.setData(table.m_model.index(0, 0), QFont(table.m_view.font().family(), 60), Qt::FontRole);
        QVERIFY(grows());
    }
    Table plain(1);
    plain.m_view.setFont(QFont(plain.m_view.font().family(), 4));
    const int height = plain.m_view.calculateHeight();
    plain.m_model.setData(plain.m_model.index(0, 2), QVariant(), Qt::CheckStateRole);
    QVERIFY(plain.m_view.calculateHeight() < height); // a box is higher than the text
}

void tst_BVTreeViewChanges::editorGone()
{
    for (const bool clears : {false, true}) {
        Table table;
        QVERIFY(table.show());
        QSignalSpy finished(&table.m_view, &BVTreeView::sigEditingFinished);
        table.select(0);
        table.select(1);
        table.m_view.edit(table.m_model.index(0, 0));
        QVERIFY(table.m_view.isEditingState());
        if (clears)
            table.m_view.setModel(nullptr), table.m_view.setModel(&table.m_model);
        else
            table.m_model.removeRows(0, 1);
        QTRY_COMPARE(finished.count(), 1);
        QCoreApplication::processEvents();
        table.select(0);
        table.select(1);
        QTest::mouseClick(table.m_view.viewport(), Qt::LeftButton, {}, table.m_view.visualRect(table.m_model.index(1, 0)).center());
        QCOMPARE(table.m_view.selectionModel()->selectedRows().size(), 1);
        table.m_view.setSelectionMode(QAbstractItemView::MultiSelection);
        table.m_view.updateIndexSelection(table.m_model.index(2, 0)); // alone
        QCOMPARE(table.m_view.selectionModel()->selectedRows(), QModelIndexList{table.m_model.index(2, 0)});
    }
}

void tst_BVTreeViewChanges::headerSwap()
{
    Table table;
    table.m_view.setSortingEnabled(true);
    table.m_view.sortByColumn(0, Qt::AscendingOrder);
    table.m_view.hideColumn(1);
    table.m_view.header()->moveSection(2, 0);
    table.m_model.setData(table.m_model.index(0, 0), "9"); // stays where it is until the user sorts
    int sorted = 0;
    connect(&table.m_model, &QAbstractItemModel::layoutChanged, [&] { ++sorted; });
    table.m_view.useCheckStateHeader(2, Qt::AlignLeft);
    QVERIFY(table.header() && table.m_view.isColumnHidden(1) && table.m_view.isSortingEnabled());
    QCOMPARE(table.header()->visualIndex(2), 0);
    QCOMPARE(table.header()->sortIndicatorSection(), 0);
    QCOMPARE(table.header()->sortIndicatorOrder(), Qt::AscendingOrder);
    QCOMPARE(sorted, 0);
    table.header()->setSortIndicator(0, Qt::DescendingOrder);
    QCOMPARE(sorted, 1);
}

void tst_BVTreeViewChanges::boxes()
{
    Table table;
    for (int row = 0; row < 4; ++row)
        table.m_model.setData(table.m_model.index(row, 1), 0, Qt::CheckStateRole);
    table.m_view.useCheckStateHeader(1, Qt::AlignLeft);
    table.m_view.useCheckStateHeader(2, Qt::AlignLeft);
    QString toggled;
    connect(&table.m_view, &BVTreeView::sigCheckStateToggled, [&](bool, int column) { toggled += QString::number(column); });
    const auto once = connect(&table.m_model, &BVTreeViewModel::itemsChanged, &table.m_view, [&](auto, int column) {
        if (column == 2 && table.states(1) == "0000")
            table.m_view.setCheckBoxChecked(true, 1); // within the writing of the other column
    });
    table.m_view.setCheckBoxChecked(true, 2);
    disconnect(once);
    QCOMPARE(table.states(1) + table.states(2) + toggled, "2222222212");
    QTRY_COMPARE(table.header()->checkState(2), Qt::Checked);
    table.m_model.setData(table.m_model.index(1, 2), 0, Qt::CheckStateRole);
    QVERIFY(table.m_view.setCheckBoxChecked(true, 2)); // the box does not know yet
    QCOMPARE(table.states(2), "2222");
}

void tst_BVTreeViewChanges::boxesOverProxies()
{
    Table table;
    Unchecked unchecked;
    unchecked.setSourceModel(&table.m_model);
    table.m_view.setModel(&unchecked);
    table.m_view.setCheckStateBulk({table.m_model.index(1, 0), unchecked.index(3, 1)}, 2, true);
    QCOMPARE(table.states(), "0202");
    table.m_view.useCheckStateHeader(2, Qt::AlignLeft);
    table.m_view.setCheckBoxChecked(true, 2);
    QCOMPARE(table.states(), "2222");
    QCOMPARE(unchecked.rowCount(), 0);
}

void tst_BVTreeViewChanges::hiddenBoxes()
{
    Table table;
    table.m_view.useCheckStateHeader(2, Qt::AlignLeft);
    QVERIFY(table.show());
    table.m_view.hideColumn(2);
    QTest::keyClick(table.header(), Qt::Key_Space);
    QCOMPARE(table.states(), "0000");
    QTRY_COMPARE(table.header()->focusPolicy(), Qt::NoFocus);
    table.m_view.showColumn(2);
    QTRY_COMPARE(table.header()->focusPolicy(), Qt::TabFocus);
    table.m_view.useCheckStateHeader(0, Qt::AlignLeft);
    table.header()->setSectionResizeMode(QHeaderView::Interactive);
    table.header()->resizeSection(0, 2000);
    QTRY_VERIFY(table.m_view.horizontalScrollBar()->maximum() > 0);
    table.header()->setFocus();
    QTest::keyClick(table.header(), Qt::Key_End);
    QVERIFY(table.header()->sectionViewportPosition(2) < table.header()->viewport()->width());
    QTest::keyClick(table.header(), Qt::Key_Home);
    QCOMPARE(table.header()->sectionViewportPosition(0), 0);
}

void tst_BVTreeViewChanges::models()
{
    Table table;
    QString left;
    connect(&table.m_view, &BVTreeView::sigItemHoverLeave, [&](const QModelIndex &index) { left += index.data().toString(); });
    table.m_view.setHoverItem(table.m_model.index(2, 0));
    AwareModel first, second;
    QSortFilterProxyModel proxy;
    proxy.setSourceModel(&first);
    table.m_view.setModel(&proxy);
    QCOMPARE(left, "2");
    QVERIFY(!table.m_view.getHoverItem().isValid());
    proxy.setSourceModel(&second);
    QCOMPARE(first.m_views * 10 + second.m_views, 1);
    table.m_view.setModel(nullptr);
    QCOMPARE(second.m_views, 0);

    Killer killer;
    killer.m_view = new BVTreeView;
    killer.m_view->setModel(&table.m_model);
    killer.m_view->addDataListener(&killer);
    table.m_model.setData(table.m_model.index(0, 0), "other");
    QVERIFY(!killer.m_view);
}

void tst_BVTreeViewChanges::grid()
{
    QStandardItemModel ragged;
    for (int row = 0; row < 4; ++row)
        ragged.setItem(row, row == 1 ? 1 : 2, new QStandardItem("x"));
    ragged.setItem(0, 0, new QStandardItem("x"));
    ragged.item(0, 0)->appendRow(new QStandardItem("child")); // with one cell
    const Act acts[] = {[](Table &) {}, [](Table &t) { t.m_view.setLayoutDirection(Qt::RightToLeft); },
                        [](Table &t) { t.m_view.header()->moveSection(2, 0); }, [](Table &t) { t.m_view.hideColumn(0); }};
    for (const Act &act : acts) {
        Table table;
        table.m_view.setModel(&ragged);
        table.m_view.header()->setStretchLastSection(false);
        act(table);
        const bool isOpen = !table.m_view.isColumnHidden(0);
        table.m_view.setExpanded(ragged.index(0, 0), isOpen);
        QVERIFY(table.show());
        const QImage plain = table.m_view.viewport()->grab().toImage();
        QVERIFY(table.m_view.setProperty("showGrid", true));
        const QImage lined = table.m_view.viewport()->grab().toImage();
        const int x = table.m_view.isRightToLeft() ? 5 : plain.width() - 5; // beside the columns
        int lines = 0;
        for (int y = 0; y < plain.height(); ++y)
            lines += plain.pixel(x, y) != lined.pixel(x, y);
        QCOMPARE(lines, isOpen ? 5 : 4);
    }
}

void tst_BVTreeViewChanges::linesWithStatus()
{
    Table table(1);
    const QModelIndex cell = table.m_model.index(0, 0);
    table.m_model.setData(cell, "WWW\nWWW");
    table.m_model.setData(cell, int(BVWidgetStatus::NeedInput), BVWidgetStatus::s_itemRole);
    table.m_view.setStyleSheet("QTreeView { font-size: 40px }");
    table.m_view.setColumnWidth(0, 300);
    QVERIFY(table.show());
    const QRect rect = table.m_view.visualRect(cell);
    const QImage image = table.m_view.viewport()->grab(rect).toImage();
    const QRgb color = BVStatusColor::colors().forLightBackground(BVWidgetStatus::NeedInput).rgb();
    int found[2] = {};
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            found[2 * y / image.height()] += image.pixel(x, y) == color;
    }
    QVERIFY(found[0] > 0 && found[1] > found[0] / 2);
}

QTEST_MAIN(tst_BVTreeViewChanges)
#include "tst_bvtreeviewchanges.moc"
