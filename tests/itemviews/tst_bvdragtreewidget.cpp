// SPDX-License-Identifier: MIT
#include "itemviews/BVDragTreeWidget.h"

#include "TestSupport.h"
#include "TreeText.h"

#include <QHeaderView>
#include <QSignalSpy>
#include <QTest>

class tst_BVDragTreeWidget : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        muteOffscreenWarnings();
        TreeText::registerTypes();
    }

    void movesRows_data();
    void movesRows();
    void movedRowsKeepWhatTheyHave();
    void movedRowStaysTheOnlySelectedOne();
    void takesRowsOverFromAnotherTree();
    void leavesSortedRowsAlone();
    void slotsDeleteRows();
    void userLeavesNoCurrentItem_data();
    void userLeavesNoCurrentItem();
    void focusMakesNoCurrentItem();
    void currentItemGoesToNeighbours();
    void hover();
    void heightFollowsOpenBranches();
};

void tst_BVDragTreeWidget::movesRows_data()
{
    QTest::addColumn<QString>("rows");
    QTest::addColumn<QChar>("parent"); // "-" for the top level
    QTest::addColumn<int>("row");
    QTest::addColumn<QString>("result"); // empty if nothing may happen

    const auto add = [](const char *name, const char *rows, char parent, int row, const char *result) {
        QTest::newRow(name) << rows << QChar(QLatin1Char(parent)) << row << result;
    };
    add("up", "e", '-', 0, "e,a(b,c(d)),f");
    add("down past itself", "a", '-', 2, "e,a(b,c(d)),f");
    add("far past the end", "a", '-', 99, "e,f,a(b,c(d))");
    add("below another", "ef", 'a', 1, "a(b,e,f,c(d))");
    add("out of branches, in the order of the tree", "dfb", '-', 1, "a(c),b,d,f,e");
    add("a row with its child listed too", "cd", '-', -1, "a(b),e,f,c(d)");
    add("where it is", "e", '-', 1, "");
    add("right behind itself", "e", '-', 2, "");
    add("onto itself", "a", 'a', 0, "");
    add("into its own branch", "fa", 'c', 0, "");
    add("nothing", "", '-', 0, "");
}

void tst_BVDragTreeWidget::movesRows()
{
    QFETCH(QString, rows);
    QFETCH(QChar, parent);
    QFETCH(int, row);
    QFETCH(QString, result);
    const QString before = QStringLiteral("a(b,c(d)),e,f");
    BVDragTreeWidget tree;
    TreeText::build(tree, before);
    QCOMPARE(tree.moveItems(TreeText::items(tree, rows), TreeText::item(tree, parent), row), !result.isEmpty());
    QCOMPARE(TreeText::text(tree), result.isEmpty() ? before : result);
}

void tst_BVDragTreeWidget::movedRowsKeepWhatTheyHave()
{
    BVDragTreeWidget tree;
    tree.setSelectionMode(QAbstractItemView::ExtendedSelection);
    TreeText::build(tree, QStringLiteral("a(b,c(d),g),e,f"));
    QTreeWidgetItem *a = TreeText::item(tree, 'a');
    a->setExpanded(true);
    TreeText::item(tree, 'c')->setExpanded(true);
    TreeText::item(tree, 'g')->setHidden(true);
    TreeText::item(tree, 'b')->setFirstColumnSpanned(true);
    for (const char name : {'b', 'd'})
        TreeText::item(tree, name)->setCheckState(0, Qt::Checked);
    tree.setCurrentItem(TreeText::item(tree, 'd'));
    TreeText::item(tree, 'a')->setSelected(true);

    QSignalSpy changed(&tree, &QTreeWidget::itemChanged);
    QSignalSpy current(&tree, &QTreeWidget::currentItemChanged);
    QSignalSpy selected(&tree, &QTreeWidget::itemSelectionChanged);
    QSignalSpy expanded(&tree, &QTreeWidget::itemExpanded);
    QVERIFY(tree.moveItems({a}, TreeText::item(tree, 'f'), -1));
    QCOMPARE(TreeText::text(tree), QStringLiteral("e,f(a(b,c(d),g))"));
    QVERIFY(a->isExpanded() && TreeText::item(tree, 'c')->isExpanded());
    QVERIFY(TreeText::item(tree, 'g')->isHidden() && TreeText::item(tree, 'b')->isFirstColumnSpanned());
    QCOMPARE(TreeText::item(tree, 'd')->checkState(0), Qt::Checked);
    QCOMPARE(TreeText::selection(tree), QStringLiteral("ad|d"));
    QCOMPARE(changed.size() + current.size() + selected.size(), 0);
    QCOMPARE(expanded.size(), 1); // that of f, so that the rows are seen
}

/// The toolkit selects a neighbour of the row that is taken.
void tst_BVDragTreeWidget::movedRowStaysTheOnlySelectedOne()
{
    BVDragTreeWidget tree;
    tree.setSelectionMode(QAbstractItemView::SingleSelection);
    TreeText::build(tree, QStringLiteral("a,b,c"));
    tree.setCurrentItem(TreeText::item(tree, 'b'));
    QVERIFY(tree.moveItems({TreeText::item(tree, 'b')}, nullptr, 0));
    QCOMPARE(TreeText::text(tree), QStringLiteral("b,a,c"));
    QCOMPARE(TreeText::selection(tree), QStringLiteral("b|b"));
}

void tst_BVDragTreeWidget::takesRowsOverFromAnotherTree()
{
    QTreeWidget source;
    BVDragTreeWidget tree;
    TreeText::build(source, QStringLiteral("a(b(c)),d"));
    TreeText::build(tree, QStringLiteral("x,y"));
    source.expandAll();
    source.setCurrentItem(TreeText::item(source, 'a'));
    tree.setCurrentItem(TreeText::item(tree, 'x'));
    QVERIFY(tree.moveItems(TreeText::items(source, QStringLiteral("ad")), nullptr, 1));
    QCOMPARE(TreeText::text(source), QString());
    QCOMPARE(TreeText::text(tree), QStringLiteral("x,a(b(c)),d,y"));
    QVERIFY(TreeText::item(tree, 'b')->isExpanded());
    QCOMPARE(TreeText::selection(tree), QStringLiteral("a|a"));
    QVERIFY(!tree.moveItems({TreeText::item(tree, 'x')}, source.invisibleRootItem(), 0));
}

void tst_BVDragTreeWidget::leavesSortedRowsAlone()
{
    BVDragTreeWidget tree;
    TreeText::build(tree, QStringLiteral("c,b(x),a"));
    tree.setSortingEnabled(true);
    tree.sortItems(0, Qt::AscendingOrder);
    QVERIFY(!tree.moveItems({TreeText::item(tree, 'a')}, nullptr, 3));
    QVERIFY(tree.moveItems(TreeText::items(tree, QStringLiteral("bx")), TreeText::item(tree, 'a'), -1));
    QVERIFY(tree.moveItems({TreeText::item(tree, 'x')}, nullptr, 0));
    QCOMPARE(TreeText::text(tree), QStringLiteral("a(b),c,x"));
}

/// Both while rows are taken and while the trees tell of it.
void tst_BVDragTreeWidget::slotsDeleteRows()
{
    QTreeWidget source;
    BVDragTreeWidget tree;
    TreeText::build(source, QStringLiteral("a(b),c,d,e"));
    TreeText::build(tree, QStringLiteral("x"));
    source.setSelectionMode(QAbstractItemView::ExtendedSelection);
    source.selectAll();
    source.setCurrentItem(TreeText::item(source, 'a'), 0, QItemSelectionModel::NoUpdate);
    int told = 0;
    connect(source.model(), &QAbstractItemModel::rowsRemoved, this, [&source] { delete TreeText::item(source, 'c'); });
    connect(tree.model(), &QAbstractItemModel::rowsInserted, this, [&tree] { delete TreeText::item(tree, 'b'); });
    connect(source.selectionModel(), &QItemSelectionModel::selectionChanged, this, [&source] { delete TreeText::item(source, 'e'); });
    connect(&source, &QTreeWidget::itemSelectionChanged, this, [&tree, &told] {
        ++told;
        delete TreeText::item(tree, 'd');
    });
    connect(&tree, &QTreeWidget::itemSelectionChanged, this, [&tree] { delete TreeText::item(tree, 'x'); });
    QVERIFY(tree.moveItems(TreeText::items(source, QStringLiteral("acde")), nullptr, 0));
    QCOMPARE(TreeText::text(source) + TreeText::text(tree), QStringLiteral("a,e"));
    QCOMPARE(told, 1);
}

void tst_BVDragTreeWidget::userLeavesNoCurrentItem_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<QString>("action"); // a letter clicks on that row, "-" on the empty space
    QTest::addColumn<bool>("control");
    QTest::addColumn<QString>("enabled"); // selection and current item with deselection
    QTest::addColumn<QString>("disabled");

    const int single = QAbstractItemView::SingleSelection;
    const int extended = QAbstractItemView::ExtendedSelection;
    const auto add = [](const char *name, int mode, const char *action, bool control, const char *enabled, const char *disabled) {
        QTest::newRow(name) << mode << action << control << enabled << disabled;
    };
    add("empty space", single, "-", false, "|", "b|b");
    add("empty space, many", extended, "-", false, "|", "b|b");
    add("current with Control", single, "b", true, "|", "b|b");
    add("current with Control, many", extended, "b", true, "|", "|b");
    add("other with Control, many", extended, "a", true, "ab|a", "ab|a");
    add("current", single, "b", false, "b|b", "b|b");
    add("space bar with Control", single, " ", true, "|", "b|b");
}

void tst_BVDragTreeWidget::userLeavesNoCurrentItem()
{
    QFETCH(int, mode);
    QFETCH(QString, action);
    QFETCH(bool, control);
    for (const bool enabled : {true, false}) {
        BVDragTreeWidget tree;
        TreeText::build(tree, QStringLiteral("a,b"));
        tree.setSelectionMode(QAbstractItemView::SelectionMode(mode));
        tree.enableDeselection(enabled);
        tree.setCurrentItem(TreeText::item(tree, 'b'));
        tree.show();
        QVERIFY(QTest::qWaitForWindowExposed(&tree));
        const Qt::KeyboardModifiers modifiers = control ? Qt::ControlModifier : Qt::NoModifier;
        const QTreeWidgetItem *item = TreeText::item(tree, action[0]);
        const QPoint pos = item ? tree.visualItemRect(item).center() : tree.viewport()->rect().bottomRight() - QPoint(5, 5);
        if (action == QLatin1String(" "))
            QTest::keyClick(&tree, Qt::Key_Space, modifiers);
        else
            QTest::mouseClick(tree.viewport(), Qt::LeftButton, modifiers, pos);
        QTEST(TreeText::selection(tree), enabled ? "enabled" : "disabled");
    }
}

void tst_BVDragTreeWidget::focusMakesNoCurrentItem()
{
    BVDragTreeWidget tree;
    TreeText::build(tree, QStringLiteral("a,b"));
    tree.enableDeselection(true);
    QSignalSpy current(&tree, &QTreeWidget::currentItemChanged);
    QFocusEvent focus(QEvent::FocusIn, Qt::TabFocusReason);
    QCoreApplication::sendEvent(&tree, &focus);
    QVERIFY(!tree.currentItem() && current.isEmpty());
    QTest::keyClick(&tree, Qt::Key_Down); // and the keyboard finds in
    QVERIFY(tree.currentItem());
}

void tst_BVDragTreeWidget::currentItemGoesToNeighbours()
{
    BVDragTreeWidget tree;
    TreeText::build(tree, QStringLiteral("a(b,c(d)),e"));
    tree.setCurrentItem(TreeText::item(tree, 'd'));
    QString path;
    connect(&tree, &QTreeWidget::currentItemChanged, this, [&path](QTreeWidgetItem *item) { path += item ? item->text(0) : QStringLiteral("-"); });
    for (const char name : {'c', 'b', 'a', 'e'})
        delete TreeText::item(tree, name);
    QCOMPARE(path, QStringLiteral("bae-"));
}

void tst_BVDragTreeWidget::hover()
{
    BVDragTreeWidget tree;
    TreeText::build(tree, QStringLiteral("a,b,c,d"));
    tree.setColumnCount(2);
    QStringList log;
    connect(&tree, &BVDragTreeWidget::sigItemHoverEnter, this, [&log](QTreeWidgetItem *item) { log << QStringLiteral("+") + item->text(0); });
    connect(&tree, &BVDragTreeWidget::sigItemHoverLeave, this, [&log](QTreeWidgetItem *item) { log << QStringLiteral("-") + item->text(0); });
    tree.show();
    QVERIFY(QTest::qWaitForWindowExposed(&tree));
    QTreeWidgetItem *a = TreeText::item(tree, 'a');
    QTreeWidgetItem *b = TreeText::item(tree, 'b');
    const auto move = [&tree](const QPoint &pos) {
        QHoverEvent event(QEvent::HoverMove, pos, QPoint());
        QCoreApplication::sendEvent(tree.viewport(), &event);
    };
    const auto pixel = [&tree](QTreeWidgetItem *item) {
        return tree.viewport()->grab().toImage().pixelColor(1, tree.visualItemRect(item).center().y());
    };
    const QColor plain = pixel(a);
    move(tree.visualRect(tree.indexFromItem(a, 0)).center());
    move(tree.visualRect(tree.indexFromItem(a, 1)).center()); // the same row
    tree.setHoverItem(a, Qt::red);
    QCOMPARE(log.join(' '), QStringLiteral("+a"));
    QCOMPARE(pixel(a), QColor(Qt::red));
    tree.setHoverItem(b, Qt::blue);
    QCOMPARE(tree.getHoverItem(), b);
    QCOMPARE(pixel(a), plain);
    QCOMPARE(pixel(b), QColor(Qt::blue));
    move(tree.visualItemRect(a).center());
    move(tree.visualItemRect(b).center()); // the colour is gone with the item it was for
    QVERIFY(pixel(b) != QColor(Qt::blue));
    QTreeWidgetItem stranger;
    tree.setHoverItem(&stranger, Qt::red);
    delete b;
    QCOMPARE(tree.getHoverItem(), nullptr);
    tree.setHoverItem(nullptr);
    QCOMPARE(log.join(' '), QStringLiteral("+a -a +b -b +a -a +b"));

    QTreeWidgetItem *c = TreeText::item(tree, 'c');
    connect(&tree, &BVDragTreeWidget::sigItemHoverLeave, this, [&tree, c] { tree.setHoverItem(c); });
    tree.setHoverItem(a);
    tree.setHoverItem(TreeText::item(tree, 'd'));
    QCOMPARE(tree.getHoverItem(), c);
}

void tst_BVDragTreeWidget::heightFollowsOpenBranches()
{
    BVDragTreeWidget tree;
    tree.setHeaderHidden(true);
    tree.setResizable(true);
    TreeText::build(tree, QStringLiteral("a(b,c(d)),e"));
    const int row = tree.visualItemRect(TreeText::item(tree, 'a')).height();
    const auto rows = [&tree, row] { return (tree.sizeHint().height() - 2 * tree.frameWidth()) / double(row); };
    QCOMPARE(rows(), 2.0);
    TreeText::item(tree, 'a')->setExpanded(true);
    QCOMPARE(rows(), 4.0);
    QVERIFY(tree.moveItems({TreeText::item(tree, 'a')}, TreeText::item(tree, 'e'), 0));
    QCOMPARE(rows(), 4.0); // e is open to show it
    TreeText::item(tree, 'b')->setHidden(true);
    QCOMPARE(rows(), 3.0);
    tree.setHeaderHidden(false);
    QCOMPARE(tree.sizeHint().height(), 3 * row + tree.header()->sizeHint().height() + 2 * tree.frameWidth());
}

QTEST_MAIN(tst_BVDragTreeWidget)
#include "tst_bvdragtreewidget.moc"
