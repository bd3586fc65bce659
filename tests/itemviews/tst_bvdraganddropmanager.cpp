// SPDX-License-Identifier: MIT
#include "foundation/RegisterDragAndDropWidgetEvent.h"
#include "itemviews/DragAndDropBaseFilter.h"

#include "DragRows.h"
#include "TestSupport.h"

#include <QApplication>
#include <QDragEnterEvent>
#include <QHelpEvent>
#include <QLabel>
#include <QTest>

using Position = DropIndicatorPosition;

namespace {

struct Filter : Brimvale::DragAndDropBaseFilter
{
    explicit Filter(QString *log)
        : m_log(log)
    {
    }
    bool accepts(const QWidget *, const QMimeData &data, const DragDropInfo &info) const override
    {
        return data.hasFormat(DragTree::s_format) && info.source;
    }
    void drop(QWidget *, QDropEvent *event, const DragDropInfo &info) override
    {
        *m_log += " taken:" + event->mimeData()->data(DragTree::s_format) + DragTree::namesOf(info.draggedIndexes);
    }
    void onDropped(const DragDropInfo &info) override { *m_log += " filter:" + placeOf(info); }

    QString *m_log;
};

} // namespace

class tst_BVDragAndDropManager : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { muteOffscreenWarnings(); }
    void position_data();
    void position();
    void start_data();
    void start();
    void acceptance_data();
    void acceptance();
    void drop_data();
    void drop();
    void keys_data();
    void keys();
    void deletion_data();
    void deletion();
    void widgets();
    void replacement();
};

void tst_BVDragAndDropManager::position_data()
{
    QTest::addColumn<QPoint>("pos"); // in a cell of 100 x 20 pixels at (50, 100)
    // On, above or below a row that takes drops, or on the viewport; for one that takes none; both again with wide bands.
    QTest::addColumn<QString>("expected");
    const auto row = [](const char *name, const QPoint &pos, const char *expected) { QTest::newRow(name) << pos << expected; };
    row("one pixel below the top", {80, 101}, "aaaa");
    row("two pixels below the top", {80, 102}, "oaaa");
    row("end of the upper quarter", {80, 104}, "oaaa");
    row("behind the upper quarter", {80, 105}, "oaoa");
    row("above the centre", {80, 108}, "oaoa");
    row("centre", {80, 109}, "oboa");
    row("lower half", {80, 110}, "obob");
    row("lower quarter", {80, 115}, "obbb");
    row("two pixels above the bottom", {80, 117}, "obbb");
    row("one pixel above the bottom", {80, 118}, "bbbb");
    row("left edge", {50, 110}, "vvob");
    row("in front of the cell", {20, 110}, "vvob");
    row("in front of its edge", {20, 100}, "aaaa");
}

void tst_BVDragAndDropManager::position()
{
    QFETCH(const QPoint, pos);
    DragTree tree("a!,b");
    QString positions;
    const auto add = [&positions](Position position) { positions += "oabv"[int(position)]; };
    for (const QString name : {"a", "b"})
        add(BVDragAndDropManager::dropIndicatorPosition(pos, QRect(50, 100, 100, 20), tree.cell(name)));
    tree.m_view->setStyleSheet("QTreeView::item { height: 20px }");
    tree.m_view->ensurePolished();
    for (const QString name : {"a", "b"}) {
        const QRect rect = tree.m_view->visualRect(tree.cell(name));
        QCOMPARE(rect.height(), 20);
        add(tree.m_manager->advancedDropIndicatorPosition(pos - QPoint(50, 100) + rect.topLeft(), tree.cell(name)));
    }
    QTEST(positions, "expected");
    QCOMPARE(tree.m_manager->advancedDropIndicatorPosition(pos, QModelIndex()), Position::OnViewport);
}

void tst_BVDragAndDropManager::start_data()
{
    QTest::addColumn<QString>("how"); // words
    QTest::addColumn<int>("way");     // beyond the least that starts a drag
    QTest::addColumn<QString>("expected");
    QTest::newRow("least way") << "" << 0 << "ac";
    QTest::newRow("one pixel less") << "" << -1 << "";
    QTest::newRow("rows that are not dragged") << "rest" << 0 << "";
    QTest::newRow("press beside the rows") << "beside" << 5 << "";
    QTest::newRow("press on the branches") << "branches" << 5 << "";
    QTest::newRow("press on another column") << "column" << 0 << "ac";
    QTest::newRow("nothing selected") << "none" << 0 << "";
    QTest::newRow("selected too late") << "none late" << 0 << "";
    QTest::newRow("right button") << "right" << 0 << "";
    QTest::newRow("disabled") << "disabled" << 5 << "";
    QTest::newRow("press consumed") << "press" << 5 << "";
    QTest::newRow("move consumed") << "move" << 5 << "";
    QTest::newRow("without a model") << "model" << 5 << "";
    QTest::newRow("a cell of the row") << "cell" << 0 << "";
    QTest::newRow("a cell stands for the row") << "cell whole" << 0 << "c";
}

void tst_BVDragAndDropManager::start()
{
    QFETCH(const QString, how);
    QFETCH(const int, way);
    DragTree tree("a(b-,c),d-");
    tree.m_view->show();
    QString dragged;
    connect(tree.m_manager, &BVDragAndDropManager::sigPrepareDrag, this,
            [&](const QList<QModelIndex> &rows) { dragged += DragTree::namesOf(rows) + (tree.m_manager->renderToPixmap(rows).isNull() ? "?" : ""); });
    bool viewMoves = false;
    connect(tree.m_view, &QAbstractItemView::entered, this, [&] { viewMoves = true; });
    tree.m_view->setDragEnabled(how != "disabled");
    tree.m_manager->setMousePressedCallback([&](QMouseEvent *) { return how == "press"; });
    tree.m_manager->setMouseMoveCallback([&](QMouseEvent *) { return how == "move"; });
    tree.m_manager->setDragWholeRow(how.contains("whole"));
    const QPoint inFront = tree.m_view->visualRect(tree.cell("c")).topLeft() - QPoint(2, 0);
    const QPoint start = how == "beside" ? QPoint(10, 250) : how == "branches" ? inFront : tree.at("c", 0.5, how == "column");
    QTest::mousePress(tree.m_view->viewport(), how == "right" ? Qt::RightButton : Qt::LeftButton, {}, start);
    tree.select(how == "rest" ? "bd" : how.contains("none") || how.contains("cell") ? "" : "dcba");
    if (how.contains("cell"))
        tree.m_view->selectionModel()->select(tree.cell("c", 1), QItemSelectionModel::Select);
    if (how == "model")
        tree.m_view->setModel(nullptr);
    sendMove(tree.m_view->viewport(), start + QPoint(0, QApplication::startDragDistance() - 1 + way),
             how == "right" ? Qt::RightButton : Qt::LeftButton);
    if (how.contains("late")) {
        tree.select("c");
        sendMove(tree.m_view->viewport(), start + QPoint(0, 2 * QApplication::startDragDistance()));
    }
    QTEST(dragged, "expected");
    sendMove(tree.m_view->viewport(), start, Qt::NoButton);
    QVERIFY(!viewMoves);

    // Only without a drag the release is a click, here the one that selects.
    const int before = tree.m_view->selectionModel()->selectedIndexes().size();
    QTest::mouseRelease(tree.m_view->viewport(), Qt::LeftButton, {}, QPoint(10, 280));
    if (!dragged.isEmpty())
        QCOMPARE(tree.m_view->selectionModel()->selectedIndexes().size(), before);
    QVERIFY(tree.m_manager->getDraggedIndexes().isEmpty());
}

void tst_BVDragAndDropManager::acceptance_data()
{
    QTest::addColumn<QStringList>("formats");
    QTest::addColumn<QString>("carried");
    QTest::addColumn<bool>("expected");
    QTest::newRow("one of the formats") << QStringList{"x/a", "x/b"} << "x/b" << true;
    QTest::newRow("another format") << QStringList{"x/a"} << "x/b" << false;
    QTest::newRow("foreign drag without formats") << QStringList() << "x/b" << false;
    QTest::newRow("empty drag") << QStringList{"x/a"} << "" << false;
}

void tst_BVDragAndDropManager::acceptance()
{
    QFETCH(const QStringList, formats);
    QFETCH(const QString, carried);
    QFETCH(const bool, expected);
    DragTree tree("a,b");
    for (const QString &format : formats)
        tree.m_manager->addAcceptedFormat(format);
    QVector<int> states;
    tree.m_manager->setStateCallback([&](BVDragAndDropManager::DragState state) { states << state; });
    QMimeData mime;
    if (!carried.isEmpty())
        mime.setData(carried, "1");
    QCOMPARE(send<QDragEnterEvent>(tree.m_view->viewport(), tree.at("b"), &mime), expected);
    QDragLeaveEvent leave;
    if (expected) // else there is nothing to leave
        QApplication::sendEvent(tree.m_view->viewport(), &leave);
    QCOMPARE(states, expected ? QVector<int>({BVDragAndDropManager::Dragging, BVDragAndDropManager::NoDrag}) : QVector<int>());

    tree.m_manager->setDragEnterCallback([&](QDragEnterEvent *event) {
        event->setAccepted(!expected);
        return true;
    });
    QCOMPARE(send<QDragEnterEvent>(tree.m_view->viewport(), tree.at("b"), &mime), !expected);
    QDragLeaveEvent end; // or the toolkit sends the next one to this viewport
    QApplication::sendEvent(tree.m_view->viewport(), &end);
}

void tst_BVDragAndDropManager::drop_data()
{
    QTest::addColumn<bool>("consumed");
    QTest::addColumn<QString>("expected");
    QTest::newRow("signal") << false << " callback:ab slot:.3:a second:.2: filter:.2";
    QTest::newRow("callback") << true << " callback:ab";
}

void tst_BVDragAndDropManager::drop()
{
    QFETCH(const bool, consumed);
    DragTree tree("a,b,c,d,e");
    BVDragAndDropManager *manager = tree.m_manager;
    QString log;
    Filter filter(&log);
    QLabel widget;
    Brimvale::RegisterDragAndDropWidgetEvent registration(&widget, &filter, false);
    QApplication::sendEvent(tree.m_view, &registration);
    const int first = manager->addDropListener([&](const DragDropInfo &) { log += " first"; });
    manager->addDropListener([&](const DragDropInfo &info) {
        manager->removeDropListener(3);
        log += " second:" + placeOf(info) + ':' + DragTree::namesOf(info.draggedIndexes);
    });
    QCOMPARE(manager->addDropListener([&](const DragDropInfo &) { log += " third"; }), 3);
    manager->removeDropListener(first);
    manager->setDropCallback([&](QDropEvent *drop) {
        log += " callback:" + drop->mimeData()->data(DragTree::s_format);
        return consumed;
    });
    connect(manager, &BVDragAndDropManager::sigPrepareDrag, this,
            [](const QList<QModelIndex> &rows, QMimeData &, QPixmap &, QList<QModelIndex> &dragged) { dragged = rows.mid(0, 1); });
    connect(manager, &BVDragAndDropManager::sigDropEvent, this, [&](QDropEvent *drop) {
        QVERIFY(drop->isAccepted());
        const DragDropInfo info = manager->getDragAndDropInfo();
        QCOMPARE(info.source.data(), tree.m_view.data());
        log += " slot:" + placeOf(info) + ':' + DragTree::namesOf(info.draggedIndexes);
        delete tree.m_model.item(info.draggedIndexes.value(0)); // what follows sees it gone
        tree.build("f");
    });
    tree.select("ba");
    QTest::keyClick(tree.m_view, Qt::Key_Down, Qt::AltModifier);
    QTEST(log, "expected");
    QVERIFY(manager->getDraggedIndexes().isEmpty());
    QVERIFY(!manager->getDropIndex().isValid());
}

void tst_BVDragAndDropManager::keys_data()
{
    QTest::addColumn<QString>("selected");
    QTest::addColumn<int>("key");
    QTest::addColumn<QString>("expected"); // drops on the tree, or, behind a slash, on the second one
    const auto row = [](const char *name, const char *selected, Qt::Key key, const char *expected) {
        QTest::newRow(name) << selected << int(key) << expected;
    };
    row("up", "d", Qt::Key_Up, ".0 d");
    row("up, first row", "a", Qt::Key_Up, "");
    row("up, several", "df", Qt::Key_Up, ".0 df");
    row("down", "a", Qt::Key_Down, ".2 a");
    row("down with the child of a selected row", "ab", Qt::Key_Down, ".2 ab");
    row("down, over a hidden row", "d", Qt::Key_Down, ".4 d");
    row("down, last row", "f", Qt::Key_Down, "");
    row("inwards", "d", Qt::Key_Right, "a.-1 d");
    row("inwards below a row that takes no drops", "c", Qt::Key_Right, "/.1 c");
    row("inwards, first row", "a", Qt::Key_Right, "/.1 a");
    row("inwards, but refused", "de", Qt::Key_Right, "/.1 de");
    row("into a tree that takes no drops", "f", Qt::Key_Right, "");
    row("outwards", "c", Qt::Key_Left, ".1 c");
    row("outwards, top level", "d", Qt::Key_Left, "");
    row("row that is not dragged", "g", Qt::Key_Up, "passed on");
}

void tst_BVDragAndDropManager::keys()
{
    QFETCH(const QString, selected);
    QFETCH(const int, key);
    QWidget window;
    window.resize(600, 300);
    DragTree trees[] = {DragTree("a!(b,c),d,e,g-,f"), DragTree("p,q")};
    QString log;
    for (int i = 0; i < 2; ++i) {
        trees[i].m_view->setParent(&window);
        trees[i].m_view->move(300 * i, 0);
        trees[i].m_manager->setSecondTreeView(trees[1 - i].m_view);
        connect(trees[i].m_manager, &BVDragAndDropManager::sigDropEvent, this, [&, i](QDropEvent *event) {
            const DragDropInfo info = trees[i].m_manager->getDragAndDropInfo();
            QCOMPARE(info.source.data(), trees[0].m_view.data());
            QCOMPARE(info.action, Qt::MoveAction);
            log += (i ? "/" : "") + placeOf(info) + ' ' + event->mimeData()->data(DragTree::s_format);
        });
    }
    trees[0].m_manager->setDragMoveCallback([&](QDragMoveEvent *event) {
        event->ignore();
        return selected == "de";
    });
    trees[1].m_view->setAcceptDrops(selected != "f");
    trees[0].m_view->setRowHidden(2, QModelIndex(), true);
    trees[1].m_view->setCurrentIndex(trees[1].cell("p"));
    window.show();
    trees[0].select(selected);
    QKeyEvent override(QEvent::ShortcutOverride, key, Qt::AltModifier);
    override.ignore();
    QApplication::sendEvent(trees[0].m_view, &override);
    if (!override.isAccepted())
        log = "passed on";
    QTest::keyClick(trees[0].m_view, Qt::Key(key), Qt::AltModifier);
    QTEST(log, "expected");

    trees[0].m_view->setDragEnabled(false);
    log.clear();
    QTest::keyClick(trees[0].m_view, Qt::Key(key), Qt::AltModifier);
    QCOMPARE(log, QString());
}

void tst_BVDragAndDropManager::deletion_data()
{
    QTest::addColumn<bool>("modelOnly");
    for (const char *place : {"prepare", "enter", "move", "column", "target", "callback", "drop", "state", "listener", "scroll"}) {
        QTest::newRow(place) << false;
        QTest::newRow(qPrintable(QString("model in ") + place)) << true;
    }
}

void tst_BVDragAndDropManager::deletion()
{
    QFETCH(const bool, modelOnly);
    const QString place = QString(QTest::currentDataTag()).section(' ', -1);
    DragTree tree("a,b,c");
    BVDragAndDropManager *manager = tree.m_manager;
    int calls = 0;
    const auto strike = [&](const QString &here) {
        if (here != place || ++calls > 1)
            return;
        if (modelOnly)
            tree.m_model.clear();
        else
            delete tree.m_view;
    };
    const auto consumer = [&strike](const QString &here) {
        return [&strike, here](auto *) {
            strike(here);
            return false;
        };
    };
    connect(manager, &BVDragAndDropManager::sigPrepareDrag, this, [&] { strike("prepare"); });
    connect(manager, &BVDragAndDropManager::sigDropTargetColumnChanged, this, [&] { strike("column"); });
    connect(manager, &BVDragAndDropManager::sigDropTargetChanged, this, [&] { strike("target"); });
    connect(manager, &BVDragAndDropManager::sigDropEvent, this, [&] { strike("drop"); });
    manager->setDragEnterCallback(consumer("enter"));
    manager->setDragMoveCallback(consumer("move"));
    manager->setDropCallback(consumer("callback"));
    manager->setStateCallback([&](BVDragAndDropManager::DragState) { strike("state"); });
    manager->setAutoScrollCallback([&](bool) { strike("scroll"); });
    manager->addDropListener([&](const DragDropInfo &) { strike("listener"); });
    tree.select("a");
    QTest::keyClick(tree.m_view, Qt::Key_Down, Qt::AltModifier);
    QVERIFY(calls > 0);
    QCOMPARE(tree.m_view.isNull(), !modelOnly);
}

void tst_BVDragAndDropManager::widgets()
{
    DragTree tree("a,b");
    QString log;
    Filter filter(&log);
    QLabel widget;
    Brimvale::RegisterDragAndDropWidgetEvent registration(&widget, &filter, false);
    QApplication::sendEvent(tree.m_view, &registration);
    // Its events are ours only while a drag from the view runs.
    connect(tree.m_manager, &BVDragAndDropManager::sigDropEvent, this, [&](QDropEvent *event) {
        log += send<QDragEnterEvent>(&widget, QPoint(1, 1), event->mimeData()) ? " accepted" : " refused";
        send<QDropEvent>(&widget, QPoint(1, 1), event->mimeData());
    });
    const auto move = [&] {
        log.clear();
        tree.select("a");
        QTest::keyClick(tree.m_view, Qt::Key_Down, Qt::AltModifier);
        return log;
    };
    QCOMPARE(move(), QString(" accepted taken:aa filter:.2"));
    QMimeData mime;
    mime.setData(DragTree::s_format, "a");
    QVERIFY(!send<QDragEnterEvent>(&widget, QPoint(1, 1), &mime));

    Brimvale::RegisterDragAndDropWidgetEvent deregistration(&widget, &filter, true);
    QApplication::sendEvent(tree.m_view, &deregistration);
    QCOMPARE(move(), QString(" refused"));
    QVERIFY(!widget.acceptDrops());

    // Of several managers the last one leaves the widget as it was, also by dying.
    {
        DragTree other("c");
        for (BVTreeView *view : {tree.m_view.data(), other.m_view.data()})
            QApplication::sendEvent(view, &registration);
        QApplication::sendEvent(tree.m_view, &deregistration);
        QVERIFY(widget.acceptDrops());
    }
    QVERIFY(!widget.acceptDrops());
}

void tst_BVDragAndDropManager::replacement()
{
    DragTree tree("a,b");
    BVDragAndDropManager other(tree.m_view);
    int drops = 0;
    for (BVDragAndDropManager *manager : {tree.m_manager.data(), &other}) {
        manager->addAcceptedFormat(DragTree::s_format);
        connect(manager, &BVDragAndDropManager::sigDropEvent, this, [&drops, manager, &other] { drops += manager == &other ? 10 : 1; });
    }
    tree.m_view->setDragAndDropManager(&other);
    connect(&other, &BVDragAndDropManager::sigPrepareDrag, this,
            [](const QList<QModelIndex> &, QMimeData &mime) { mime.setData(DragTree::s_format, "a"); });
    tree.select("a");
    QTest::keyClick(tree.m_view, Qt::Key_Down, Qt::AltModifier);
    QCOMPARE(drops, 10);
    QCOMPARE(tree.m_view->initDragAndDropManager(), &other);
    tree.m_view->setDragAndDropManager(nullptr);
    QTest::keyClick(tree.m_view, Qt::Key_Down, Qt::AltModifier);
    QCOMPARE(drops, 10);
}

QTEST_MAIN(tst_BVDragAndDropManager)

#include "tst_bvdraganddropmanager.moc"
