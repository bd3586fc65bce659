// SPDX-License-Identifier: MIT
#include "itemviews/BVContainerListControl.h"
#include "itemviews/BVDragAndDropManager.h"
#include "itemviews/BVDragTreeWidget.h"

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

/// What another process drags over a row, and drops there. Whether it was taken.
bool dropForeign(const List &list, const QMimeData &mime, QChar row)
{
    QWidget *viewport = list.tree()->viewport();
    const QPoint pos = list.tree()->visualItemRect(TreeText::item(*list.tree(), row)).center();
    QDragEnterEvent enter(pos, Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
    QDragMoveEvent move(pos, Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
    QDropEvent drop(pos, Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(viewport, &enter);
    if (enter.isAccepted())
        QCoreApplication::sendEvent(viewport, &move);
    QDragLeaveEvent leave; // the toolkit keeps what it has entered until a leave or drop
    QEvent &end = move.isAccepted() ? static_cast<QEvent &>(drop) : leave;
    QCoreApplication::sendEvent(viewport, &end);
    return move.isAccepted() && drop.isAccepted();
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
    void keysMoveRowsToAnotherList();
    void ownerRefusesTargets();
    void foreignData_data();
    void foreignData();
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

void tst_BVContainerListControl::keysMoveRowsToAnotherList()
{
    QWidget window;
    auto *left = new List;
    auto *right = new List("x,y");
    left->setParent(&window);
    right->setParent(&window);
    right->move(400, 0);
    left->tree()->getDragAndDropManager()->setSecondTreeView(right->tree());
    window.show();
    right->select("x");
    left->select("ad");
    QSignalSpy gone(left, &BVContainerListControl::sigItemsTakenOver);
    QTest::keyClick(left->tree(), Qt::Key_Right, Qt::AltModifier);
    QCOMPARE(left->rows(), QStringLiteral("e"));
    QCOMPARE(right->rows(), QStringLiteral("x,a(b,c),d,y"));
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
    QVERIFY(!dropForeign(list, mime, 'a'));
    TreeText::item(*list.tree(), 'a')->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
    list.select("b");
    QTest::keyClick(list.tree(), Qt::Key_Down, Qt::AltModifier); // below a, which takes no drops
    QCOMPARE(list.rows(), before);
}

void tst_BVContainerListControl::foreignData_data()
{
    QTest::addColumn<QString>("format");
    QTest::addColumn<QByteArray>("data");
    QTest::addColumn<bool>("taken");
    const QString format = QStringLiteral("application/bvplannel");
    QTest::newRow("two values") << format << streamed(2, {7, QStringLiteral("seven")}) << true;
    QTest::newRow("two thousand million") << format << streamed(2000000000, {7}) << false;
    QTest::newRow("other format") << "text/plain" << QByteArray("seven") << false;
}

void tst_BVContainerListControl::foreignData()
{
    QFETCH(QString, format);
    QFETCH(QByteArray, data);
    QFETCH(bool, taken);
    List list;
    QMimeData mime;
    mime.setData(format, data);
    QSignalSpy values(&list, &BVContainerListControl::sigValuesDropped);
    QCOMPARE(dropForeign(list, mime, 'd'), taken);
    QCOMPARE(list.rows(), QStringLiteral("a(b,c),d,e"));
    QCOMPARE(values.size(), taken ? 1 : 0);
    if (!taken)
        return;
    QCOMPARE(values[0][0].toList(), QVariantList({7, QStringLiteral("seven")}));
    QCOMPARE(values[0][1].value<QTreeWidgetItem *>(), TreeText::item(*list.tree(), 'd'));
    QCOMPARE(values[0][2].toInt(), -1);
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
