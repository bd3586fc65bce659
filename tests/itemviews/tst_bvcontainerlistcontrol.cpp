// SPDX-License-Identifier: MIT
#include "itemviews/BVContainerListControl.h"
#include "itemviews/BVDragAndDropManager.h"
#include "itemviews/BVDragTreeWidget.h"

#include "foundation/BVWidgetStatus.h"

#include "TestSupport.h"
#include "TreeText.h"

#include <QAction>
#include <QApplication>
#include <QDataStream>
#include <QDragEnterEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QSignalSpy>
#include <QTest>
#include <QToolButton>

#include <memory>
#include <utility>

namespace {

/// A shown control with a tool bar, dragging and the rows "a(b,c),d,e".
class List : public BVContainerListControl
{
public:
    explicit List(const char *rows = "a(b,c),d,e")
        : BVContainerListControl(nullptr, nullptr, true)
    {
        TreeText::build(*tree(), QString::fromLatin1(rows));
        tree()->expandAll();
        setDragAndDropEnabled(true);
        enableMultiSelection(true);
        show();
    }

    void select(const char *names)
    {
        tree()->clearSelection();
        for (QTreeWidgetItem *item : TreeText::items(*tree(), QString::fromLatin1(names))) {
            tree()->setCurrentItem(item, 0, QItemSelectionModel::NoUpdate);
            item->setSelected(true);
        }
    }

    QString rows() const { return TreeText::text(*tree()); }

    QToolButton *button(const char *text) const
    {
        for (QToolButton *button : findChildren<QToolButton *>())
            if (button->defaultAction()->text() == QLatin1String(text))
                return button;
        return nullptr;
    }
};

/// What another process drags to a height of a row (0 is its top), and drops there. Gives the action agreed on.
Qt::DropAction dropForeign(const List &list, const QMimeData &mime, QChar row, double height = 0.5, Qt::DropActions actions = Qt::CopyAction)
{
    QWidget *viewport = list.tree()->viewport();
    const QRect rect = list.tree()->visualItemRect(TreeText::item(*list.tree(), row));
    const QPoint pos(rect.center().x(), rect.top() + qRound(height * rect.height()));
    QDragEnterEvent enter(pos, actions, &mime, Qt::LeftButton, Qt::NoModifier);
    QDragMoveEvent move(pos, actions, &mime, Qt::LeftButton, Qt::NoModifier);
    QDropEvent drop(pos, actions, &mime, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(viewport, &enter);
    if (enter.isAccepted())
        QCoreApplication::sendEvent(viewport, &move);
    QDragLeaveEvent leave; // the toolkit keeps what it has entered until a leave or drop
    QEvent &end = move.isAccepted() ? static_cast<QEvent &>(drop) : leave;
    QCoreApplication::sendEvent(viewport, &end);
    return move.isAccepted() && drop.isAccepted() ? drop.dropAction() : Qt::IgnoreAction;
}

QByteArray streamed(int count, const QVariantList &values)
{
    QByteArray data;
    QDataStream stream(&data, QIODevice::WriteOnly);
    stream << count;
    for (const QVariant &value : values)
        stream << value;
    return data;
}

} // namespace

class tst_BVContainerListControl : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        muteOffscreenWarnings();
        TreeText::registerTypes();
    }

    void keysMoveRows_data();
    void keysMoveRows();
    void keysMoveRowsToAnotherList_data();
    void keysMoveRowsToAnotherList();
    void ownerRefusesTargets();
    void foreignData_data();
    void foreignData();
    void disabledTakesNothing();
    void asksAboutTheShownPlace();
    void slotsDeleteRows_data();
    void slotsDeleteRows();
    void toolBar_data();
    void toolBar();
    void applicationActions();
    void readOnly();
    void ownerKeepsRows();
    void outlivesTheTree();
};

void tst_BVContainerListControl::keysMoveRows_data()
{
    QTest::addColumn<QByteArray>("selected");
    QTest::addColumn<int>("key");
    QTest::addColumn<QString>("rows");
    QTest::addColumn<QByteArray>("data"); // empty if nothing is moved
    QTest::newRow("up") << QByteArray("de") << int(Qt::Key_Up) << "d,e,a(b,c)" << streamed(2, {3, 4});
    QTest::newRow("down with the branch") << QByteArray("a") << int(Qt::Key_Down) << "d,a(b,c),e" << streamed(1, {0});
    QTest::newRow("a row with its child") << QByteArray("ac") << int(Qt::Key_Down) << "d,a(b,c),e" << streamed(2, {0, 2});
    QTest::newRow("inwards") << QByteArray("d") << int(Qt::Key_Right) << "a(b,c,d),e" << streamed(1, {3});
    QTest::newRow("past the end") << QByteArray("e") << int(Qt::Key_Down) << "a(b,c),d,e" << QByteArray();
}

void tst_BVContainerListControl::keysMoveRows()
{
    QFETCH(QByteArray, selected);
    QFETCH(int, key);
    QFETCH(QByteArray, data);
    List list;
    list.select(selected);
    const QString selection = TreeText::selection(*list.tree());
    QByteArray carried;
    connect(list.tree()->getDragAndDropManager(), &BVDragAndDropManager::sigPrepareDrag, this,
            [&carried](const QModelIndexList &, QMimeData &mime) { carried = mime.data(QStringLiteral("application/bvplannel")); });
    QSignalSpy dropped(&list, &BVContainerListControl::sigItemsDropped);
    QTest::keyClick(list.tree(), Qt::Key(key), Qt::AltModifier);
    QTEST(list.rows(), "rows");
    QCOMPARE(carried, data);
    QCOMPARE(TreeText::selection(*list.tree()), selection);
    QCOMPARE(dropped.size(), data.isEmpty() ? 0 : 1);
}

void tst_BVContainerListControl::keysMoveRowsToAnotherList_data()
{
    QTest::addColumn<QByteArray>("rows");
    QTest::addColumn<QByteArray>("current");
    QTest::addColumn<QString>("expected");
    QTest::newRow("behind the current row") << QByteArray("x,y") << QByteArray("x") << "x,a(b,c),d,y";
    QTest::newRow("full second list whose rows take no children")
        << QByteArray("x(f,g,h,i,j,k,l,m,n,o,p,q,r,s,t,u)") << QByteArray() << "x(f,g,h,i,j,k,l,m,n,o,p,q,r,s,t,u),a(b,c),d";
}

void tst_BVContainerListControl::keysMoveRowsToAnotherList()
{
    QFETCH(const QByteArray, rows);
    QFETCH(const QByteArray, current);
    QWidget window;
    auto *left = new List;
    auto *right = new List(rows);
    for (QTreeWidgetItemIterator row(right->tree()); *row; ++row)
        (*row)->setFlags((*row)->flags() & ~Qt::ItemIsDropEnabled);
    left->setParent(&window);
    right->setParent(&window);
    right->move(400, 0);
    left->tree()->getDragAndDropManager()->setSecondTreeView(right->tree());
    window.show();
    right->select(current);
    left->select("ad");
    QSignalSpy gone(left, &BVContainerListControl::sigItemsTakenOver);
    QTest::keyClick(left->tree(), Qt::Key_Right, Qt::AltModifier);
    QCOMPARE(left->rows(), QStringLiteral("e"));
    QTEST(right->rows(), "expected");
    QCOMPARE(TreeText::selection(*right->tree()), QStringLiteral("ad|a"));
    QCOMPARE(TreeText::selection(*left->tree()), QStringLiteral("e|e"));
    QCOMPARE(gone.size(), 1);
}

void tst_BVContainerListControl::ownerRefusesTargets()
{
    List list;
    connect(&list, &BVContainerListControl::sigItemDragEnter, this, [](QTreeWidgetItem *target, bool *mayDrop) { *mayDrop = !target; });
    const QString before = list.rows();
    list.select("d");
    QTest::keyClick(list.tree(), Qt::Key_Right, Qt::AltModifier);
    QCOMPARE(list.rows(), before);
    QMimeData mime;
    mime.setData(QStringLiteral("application/bvplannel"), streamed(1, {7}));
    QSignalSpy values(&list, &BVContainerListControl::sigValuesDropped);
    QCOMPARE(dropForeign(list, mime, 'a'), Qt::IgnoreAction);
    TreeText::item(*list.tree(), 'a')->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
    list.select("b");
    QTest::keyClick(list.tree(), Qt::Key_Down, Qt::AltModifier); // below a, which takes no drops
    QCOMPARE(list.rows(), before);
}

void tst_BVContainerListControl::foreignData_data()
{
    QTest::addColumn<QString>("format");
    QTest::addColumn<QByteArray>("data");
    QTest::addColumn<int>("actions");
    QTest::addColumn<bool>("taken");
    const QString format = QStringLiteral("application/bvplannel");
    const QByteArray two = streamed(2, {7, QStringLiteral("seven")});
    const int copy = Qt::CopyAction;
    QTest::newRow("two values") << format << two << copy << true;
    QTest::newRow("to be copied or moved") << format << two << int(Qt::MoveAction | Qt::CopyAction) << true;
    QTest::newRow("to be moved") << format << two << int(Qt::MoveAction) << false;
    QTest::newRow("other format") << "text/plain" << QByteArray("seven") << copy << false;
}

void tst_BVContainerListControl::foreignData()
{
    QFETCH(QString, format);
    QFETCH(QByteArray, data);
    QFETCH(int, actions);
    QFETCH(bool, taken);
    List list;
    QMimeData mime;
    mime.setData(format, data);
    QCOMPARE(dropForeign(list, mime, 'd'), Qt::IgnoreAction); // nobody listens
    QSignalSpy values(&list, &BVContainerListControl::sigValuesDropped);
    QCOMPARE(dropForeign(list, mime, 'd', 0.5, Qt::DropActions(actions)), taken ? Qt::CopyAction : Qt::IgnoreAction);
    QCOMPARE(list.rows(), QStringLiteral("a(b,c),d,e"));
    QCOMPARE(values.size(), taken ? 1 : 0);
    if (taken)
        QCOMPARE(values[0], QVariantList({QVariantList{7, QStringLiteral("seven")}, QVariant::fromValue(TreeText::item(*list.tree(), 'd')), -1}));
}

/// Neither the list nor its tree alone, which the toolkit would fill with rows of any other tree.
void tst_BVContainerListControl::disabledTakesNothing()
{
    List list;
    list.setDragAndDropEnabled(false);
    QVERIFY(!list.tree()->acceptDrops());
    list.tree()->setAcceptDrops(true);
    const List other("x");
    const std::unique_ptr<QMimeData> mime(other.tree()->model()->mimeData({other.tree()->model()->index(0, 0)}));
    QCOMPARE(dropForeign(list, *mime, 'd'), Qt::IgnoreAction);
    QCOMPARE(list.rows(), QStringLiteral("a(b,c),d,e"));
}

/// The owner is asked about the place that is shown, in narrow bands as in wide ones.
void tst_BVContainerListControl::asksAboutTheShownPlace()
{
    List list;
    QMimeData mime;
    mime.setData(QStringLiteral("application/bvplannel"), streamed(1, {7}));
    QList<QTreeWidgetItem *> parents;
    connect(&list, &BVContainerListControl::sigItemDragEnter, this, [&parents](QTreeWidgetItem *target) { parents << target; });
    connect(&list, &BVContainerListControl::sigValuesDropped, this, [&parents](const QVariantList &, QTreeWidgetItem *parent) { parents << parent; });
    QTreeWidgetItem *d = TreeText::item(*list.tree(), 'd');
    for (const bool line : {true, false}) {
        list.tree()->getDragAndDropManager()->setUseMoveVisualizationLine(line);
        dropForeign(list, mime, 'd', 0.15);
    }
    QCOMPARE(parents, QList<QTreeWidgetItem *>({nullptr, nullptr, nullptr, d, d, d}));
}

void tst_BVContainerListControl::slotsDeleteRows_data()
{
    QTest::addColumn<QString>("signal");
    QTest::addColumn<QString>("deleted");
    QTest::addColumn<QString>("rows"); // of both lists
    const auto add = [](const char *signal, const char *deleted, const char *rows) {
        QTest::addRow("%s %s", signal, deleted) << signal << deleted << rows;
    };
    add("enter", "ad", "e|x");
    add("enter", "x", "e|a(b,c),d");
    add("select", "a", "e|x,d");
    add("drop", "a", "e|x,d");
}

void tst_BVContainerListControl::slotsDeleteRows()
{
    QFETCH(QString, signal);
    QFETCH(QString, deleted);
    List left;
    List right("x");
    const auto strike = [&](const char *name) {
        for (const QChar row : signal == QLatin1String(name) ? std::exchange(deleted, QString()) : QString())
            qDeleteAll(TreeText::items(*left.tree(), row) + TreeText::items(*right.tree(), row));
    };
    connect(&right, &BVContainerListControl::sigItemDragEnter, this, [&] { strike("enter"); });
    connect(right.tree(), &QTreeWidget::itemSelectionChanged, this, [&] { strike("select"); });
    connect(&right, &BVContainerListControl::sigItemsDropped, this, [&] { strike("drop"); });
    right.move(400, 0);
    left.select("ad");
    left.tree()->getDragAndDropManager()->setSecondTreeView(right.tree());
    QTest::keyClick(left.tree(), Qt::Key_Right, Qt::AltModifier);
    QTEST(left.rows() + '|' + right.rows(), "rows");
}

void tst_BVContainerListControl::toolBar_data()
{
    QTest::addColumn<QByteArray>("selected");
    QTest::addColumn<QByteArray>("button");
    QTest::addColumn<QString>("rows"); // empty if the button is disabled
    QTest::addColumn<QString>("selection");
    const auto add = [](const char *name, const char *selected, const char *button, const char *rows, const char *selection) {
        QTest::newRow(name) << QByteArray(selected) << QByteArray(button) << rows << selection;
    };
    add("up", "e", "Move Up", "a(b,c),e,d", "e|e");
    add("down, two", "ad", "Move Down", "e,a(b,c),d", "ad|d");
    add("first child up", "b", "Move Up", "", "");
    add("of several parents", "cd", "Move Up", "", "");
    add("remove", "ab", "Remove", "d,e", "d|d");
}

void tst_BVContainerListControl::toolBar()
{
    QFETCH(QByteArray, selected);
    QFETCH(QByteArray, button);
    QFETCH(QString, rows);
    List list;
    list.select(selected);
    QToolButton *clicked = list.button(button);
    QVERIFY(!clicked->toolTip().isEmpty() && !clicked->icon().isNull());
    QTRY_COMPARE(clicked->isEnabled(), !rows.isEmpty());
    if (rows.isEmpty())
        return;
    clicked->click();
    QCOMPARE(list.rows(), rows);
    QTEST(TreeText::selection(*list.tree()), "selection");
}

void tst_BVContainerListControl::applicationActions()
{
    List list;
    QAction add(QStringLiteral("Add"));
    QAction copy(QStringLiteral("Duplicate"));
    list.addAction(&add);
    list.insertAction(&add, &copy);
    QSignalSpy triggered(&add, &QAction::triggered);
    list.button("Add")->click();
    QCOMPARE(triggered.size(), 1);
    list.resize(400, 300);
    QTRY_VERIFY(list.button("Duplicate")->x() < list.button("Add")->x());
    list.removeAction(&add);
    QVERIFY(!list.button("Add"));
}

void tst_BVContainerListControl::readOnly()
{
    List list;
    QTreeWidgetItem *d = TreeText::item(*list.tree(), 'd');
    d->setFlags(d->flags() | Qt::ItemIsEditable);
    list.select("d");
    const auto triggers = list.tree()->editTriggers();
    const auto isEditing = [&list] { return list.tree()->findChild<QLineEdit *>() != nullptr; };
    list.setEditable(false);
    list.setTreeEditTriggersEnabled(false);
    list.setToolBarEnabled(false);
    list.setDragAndDropEnabled(false);
    for (const Qt::Key key : {Qt::Key_F2, Qt::Key_Delete})
        QTest::keyClick(list.tree(), key);
    QTest::keyClick(list.tree(), Qt::Key_Up, Qt::AltModifier);
    list.rename();
    QVERIFY(!isEditing());
    QCOMPARE(list.rows(), QStringLiteral("a(b,c),d,e"));

    list.select("d"); // the arrow key has moved on
    list.setEditable(true);
    list.setToolBarEnabled(true);
    QCOMPARE(list.tree()->editTriggers(), QAbstractItemView::NoEditTriggers);
    QTRY_VERIFY(list.button("Rename")->isEnabled());
    list.setTreeEditTriggersEnabled(true);
    QCOMPARE(list.tree()->editTriggers(), triggers);
    list.button("Rename")->click();
    QVERIFY(isEditing());

    list.tree()->currentItem()->setData(0, BVWidgetStatus::s_itemRole, int(BVWidgetStatus::StandardLocked));
    QTRY_VERIFY(!list.button("Rename")->isEnabled());
}

void tst_BVContainerListControl::ownerKeepsRows()
{
    List list;
    bool deletes = false;
    connect(&list, &BVContainerListControl::sigItemsAboutToBeRemoved, this, [&deletes](const QList<QTreeWidgetItem *> &items, bool *remove) {
        *remove = false;
        if (deletes)
            qDeleteAll(items);
    });
    list.select("d");
    list.removeSelected();
    QCOMPARE(list.rows(), QStringLiteral("a(b,c),d,e"));
    deletes = true;
    list.removeSelected();
    QCOMPARE(list.rows(), QStringLiteral("a(b,c),e"));
}

void tst_BVContainerListControl::outlivesTheTree()
{
    List list;
    delete list.tree();
    QCOMPARE(list.currentItem(), nullptr);
    list.removeSelected();
    list.setDragAndDropEnabled(true);
}

QTEST_MAIN(tst_BVContainerListControl)
#include "tst_bvcontainerlistcontrol.moc"
