// SPDX-License-Identifier: MIT
#include "DragRows.h"
#include "TestSupport.h"

#include <QHelpEvent>
#include <QScrollBar>
#include <QTest>

constexpr int s_scrollPause = 50; // ms, between two steps of the toolkit

/// A drag over a tree: its target, and what the view shows and does meanwhile.
class tst_BVDragOver : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { muteOffscreenWarnings(); }
    void target();
    void changes_data();
    void changes();
    void refusal();
    void autoScroll();
    void viewScrolls();
    void hint();
};

void tst_BVDragOver::target()
{
    DragTree tree("a!,b(c),d");
    tree.m_view->show();
    QVERIFY(QTest::qWaitForWindowExposed(tree.m_view));
    BVDragAndDropManager *manager = tree.m_manager;
    manager->addAcceptedFormat("x/a");
    QString log;
    connect(manager, &BVDragAndDropManager::sigDropTargetColumnChanged, this, [&](const QModelIndex &target, int column, int previous) {
        log += QString(" %1:%2>%3").arg(DragTree::namesOf({target})).arg(previous).arg(column);
    });
    connect(manager, &BVDragAndDropManager::sigDropTargetChanged, this, [&](const QModelIndex &target, const QModelIndex &previous) {
        QCOMPARE(manager->getDropIndex(), previous);
        log += QString(" %1>%2").arg(DragTree::namesOf({previous}), DragTree::namesOf({target}));
    });
    QMimeData mime;
    mime.setData("x/a", "1");
    QWidget *viewport = tree.m_view->viewport();
    const auto moveTo = [&](const QPoint &pos, Qt::DropActions actions = Qt::MoveAction) {
        log.clear();
        return send<QDragMoveEvent>(viewport, pos, &mime, actions) ? placeOf(manager->getDragAndDropInfo()) + log : "refused";
    };
    QVERIFY(send<QDragEnterEvent>(viewport, tree.at("a"), &mime));
    const QImage before = tree.m_view->grab().toImage();
    QCOMPARE(moveTo(tree.at("a", 0.0)), QString(".0 a:-1>0 >a"));
    QVERIFY(tree.m_view->grab().toImage() != before);
    QCOMPARE(moveTo(tree.at("a")), QString("a.-1")); // the place goes with the pointer
    QCOMPARE(moveTo(tree.at("a"), Qt::CopyAction), QString("a.-1 a:0>0 a>a"));
    QCOMPARE(moveTo(tree.at("a", 0.5, 1), Qt::CopyAction), QString("a.-1 a:0>1 a>a"));
    QCOMPARE(moveTo(tree.at("c", 0.9, 1), Qt::CopyAction), QString("b.1 a>c"));
    QCOMPARE(moveTo(QPoint(5, 250), Qt::CopyAction), QString(".-1 c>"));
    QCOMPARE(moveTo(tree.at("d", 0.9), Qt::CopyAction), QString(".3 d:-1>0 >d"));

    // A row in front of it leaves the target where it is.
    delete tree.m_model.item(tree.cell("a"));
    QCOMPARE(placeOf(manager->getDragAndDropInfo()), QString(".2"));
    manager->setDragMoveCallback([](QDragMoveEvent *event) {
        event->ignore();
        return true;
    });
    QCOMPARE(moveTo(tree.at("c")), QString("refused"));
    QCOMPARE(manager->getDropIndex(), tree.cell("d"));
    QDragLeaveEvent leave;
    QApplication::sendEvent(viewport, &leave);
    QVERIFY(!manager->getDropIndex().isValid());
}

void tst_BVDragOver::changes_data()
{
    QTest::addColumn<QString>("removed");
    QTest::addColumn<bool>("waits"); // until the drop
    QTest::addColumn<QString>("expected");
    QTest::newRow("the target") << "c" << true << "b.1";
    QTest::newRow("the target, right before the drop") << "c" << false << "b.1";
    QTest::newRow("the target and what follows") << "cd" << true << "b.-1";
    QTest::newRow("the same, right before the drop") << "cd" << false << "b.-1";
    QTest::newRow("a row in front") << "a" << true << "b.1";
    QTest::newRow("the same, right before the drop, which goes where it shows") << "a" << false << "b.0";
}

/// Rows are removed while the pointer rests at the top of c.
void tst_BVDragOver::changes()
{
    QFETCH(const QString, removed);
    QFETCH(const bool, waits);
    DragTree tree("b(a,c,d)");
    tree.m_view->setRootIndex(tree.cell("b"));
    tree.m_view->show();
    tree.m_manager->addAcceptedFormat("x/a");
    QString place;
    connect(tree.m_manager, &BVDragAndDropManager::sigDropEvent, this, [&] { place = placeOf(tree.m_manager->getDragAndDropInfo()); });
    QMimeData mime;
    mime.setData("x/a", "1");
    QWidget *viewport = tree.m_view->viewport();
    const QPoint pos = tree.at("c", 0.0);
    QVERIFY(send<QDragEnterEvent>(viewport, pos, &mime));
    QVERIFY(send<QDragMoveEvent>(viewport, pos, &mime));
    for (const QChar name : removed)
        delete tree.m_model.item(tree.cell(name));
    if (waits)
        QCoreApplication::processEvents();
    QVERIFY(send<QDropEvent>(viewport, pos, &mime));
    QTEST(place, "expected");
}

/// Nothing is shown where nothing may be dropped, and nothing dropped when that is so only since the pointer rests.
void tst_BVDragOver::refusal()
{
    DragTree tree("a,b,c");
    tree.m_view->show();
    QVERIFY(QTest::qWaitForWindowExposed(tree.m_view));
    tree.m_manager->addAcceptedFormat("x/a");
    bool refuses = false;
    tree.m_manager->setDragMoveCallback([&](QDragMoveEvent *event) {
        event->setAccepted(!refuses);
        return refuses;
    });
    int drops = 0;
    connect(tree.m_manager, &BVDragAndDropManager::sigDropEvent, this, [&] { ++drops; });
    QMimeData mime;
    mime.setData("x/a", "1");
    QWidget *viewport = tree.m_view->viewport();
    QVERIFY(send<QDragEnterEvent>(viewport, tree.at("a"), &mime));
    const QImage plain = tree.m_view->grab().toImage();
    QVERIFY(send<QDragMoveEvent>(viewport, tree.at("b", 0.9), &mime));
    QVERIFY(tree.m_view->grab().toImage() != plain);
    refuses = true;
    QVERIFY(!send<QDragMoveEvent>(viewport, tree.at("c"), &mime));
    QCOMPARE(tree.m_view->grab().toImage(), plain);
    refuses = false;
    QVERIFY(send<QDragMoveEvent>(viewport, tree.at("b", 0.9), &mime));
    refuses = true;
    tree.build("d");
    QCoreApplication::processEvents();
    QVERIFY(!send<QDropEvent>(viewport, tree.at("b", 0.9), &mime));
    QVERIFY(!tree.m_manager->getDropIndex().isValid());
    QCOMPARE(drops, 0);
}

void tst_BVDragOver::autoScroll()
{
    DragTree tree("a,b,c,d,e,f,g,h,i,j,k,l,m,n,o,p,q,r,s,t,u,v,w,x,y,z");
    tree.m_view->show();
    QVERIFY(QTest::qWaitForWindowExposed(tree.m_view));
    tree.m_manager->addAcceptedFormat("x/a");
    QString told;
    tree.m_manager->setAutoScrollCallback([&](bool on) { told += on ? '+' : '-'; });
    QMimeData mime;
    mime.setData("x/a", "1");
    QWidget *viewport = tree.m_view->viewport();
    const QPoint middle = viewport->rect().center();
    const int bottom = viewport->height() - 1;
    const int margin = tree.m_view->autoScrollMargin();
    QVERIFY(send<QDragEnterEvent>(viewport, middle, &mime));
    for (const int y : {middle.y(), bottom - margin, bottom - margin + 1, 1})
        QVERIFY(send<QDragMoveEvent>(viewport, QPoint(middle.x(), y), &mime));
    QCOMPARE(told, QString("--++"));

    // The target goes with the rows that scroll under the pointer.
    const QPersistentModelIndex before = tree.m_manager->getDropIndex();
    tree.m_view->scrollToBottom();
    QVERIFY(tree.m_manager->getDropIndex().row() > before.row());
    tree.m_view->setAutoScroll(false);
    told.clear();
    QVERIFY(send<QDragMoveEvent>(viewport, QPoint(middle.x(), 1), &mime));
    QCOMPARE(told, QString());
}

/// Along a margin on whose side nothing scrolls to one where it does.
void tst_BVDragOver::viewScrolls()
{
    DragTree tree("a,b,c,d,e,f,g,h,i,j,k,l,m,n,o,p,q,r,s,t,u,v,w,x,y,z");
    tree.m_view->show();
    QVERIFY(QTest::qWaitForWindowExposed(tree.m_view));
    tree.m_manager->addAcceptedFormat("x/a");
    QMimeData mime;
    mime.setData("x/a", "1");
    QWidget *viewport = tree.m_view->viewport();
    const auto moveTo = [&](const QPoint &pos) {
        QCursor::setPos(viewport->mapToGlobal(pos));
        return send<QDragMoveEvent>(viewport, pos, &mime);
    };
    QVERIFY(send<QDragEnterEvent>(viewport, viewport->rect().center(), &mime));
    QVERIFY(moveTo(QPoint(viewport->width() - 2, viewport->height() / 2)));
    QTest::qWait(2 * s_scrollPause); // the view finds that nothing moves
    QVERIFY(moveTo(QPoint(viewport->width() - 2, viewport->height() - 2)));
    QTRY_COMPARE(tree.m_view->verticalScrollBar()->value(), tree.m_view->verticalScrollBar()->maximum());
    QDragLeaveEvent leave;
    QApplication::sendEvent(viewport, &leave);
}

void tst_BVDragOver::hint()
{
    DragTree tree("a,b");
    tree.m_view->show();
    QVERIFY(QTest::qWaitForWindowExposed(tree.m_view));
    tree.m_manager->setDragAndDropInfoText("Drop rows here");
    QWidget *viewport = tree.m_view->viewport();
    const QRect band = QRect(0, viewport->height() - 42, viewport->width(), 42);
    const auto isShown = [&] { // wholly, or not at all
        const QRgb base = tree.m_view->palette().color(QPalette::Base).rgb();
        const QImage image = viewport->grab(band).toImage();
        return image.pixel(image.rect().center() + QPoint(0, 11)) != base || image.pixel(image.rect().center() - QPoint(0, 11)) != base;
    };
    const QPoint inBand = band.topLeft() + QPoint(5, 0);
    const QPoint above = inBand - QPoint(0, 1);
    QVERIFY(!isShown());
    QHelpEvent tip(QEvent::ToolTip, above, viewport->mapToGlobal(above));
    QApplication::sendEvent(viewport, &tip);
    QTRY_VERIFY(isShown());
    sendMove(viewport, above, Qt::NoButton);
    QVERIFY(isShown());
    sendMove(viewport, inBand, Qt::NoButton);
    QTRY_VERIFY(!isShown());
    sendMove(viewport, above, Qt::NoButton);
    QApplication::sendEvent(viewport, &tip);
    QTRY_VERIFY(isShown());
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(viewport, &leave);
    QVERIFY(isShown()); // it slides
    QTRY_VERIFY(!isShown());

    tree.m_manager->addAcceptedFormat("x/a");
    QMimeData mime;
    mime.setData("x/a", "1");
    QVERIFY(send<QDragEnterEvent>(viewport, above, &mime));
    QTRY_VERIFY(isShown());
    QVERIFY(send<QDragMoveEvent>(viewport, inBand, &mime));
    QTRY_VERIFY(!isShown());
    QVERIFY(send<QDragMoveEvent>(viewport, above, &mime));
    QTRY_VERIFY(isShown());
    QVERIFY(send<QDropEvent>(viewport, above, &mime));
    QTRY_VERIFY(!isShown());
}

QTEST_MAIN(tst_BVDragOver)

#include "tst_bvdragover.moc"
