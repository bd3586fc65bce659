// SPDX-License-Identifier: MIT
#include "layout/BVPanelGeometry_p.h"

#include <QDialog>
#include <QMainWindow>
#include <QTest>

using namespace BVPanelGeometry;
using Handle = BVResizableWidgetHandle;

class tst_BVPanelGeometry : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void handles_data();
    void handles();
    void border_data();
    void border();
    void fits_data();
    void fits();
    void clamped_data();
    void clamped();
    void resized();
    void hostWindow();
};

void tst_BVPanelGeometry::handles_data()
{
    QTest::addColumn<int>("position");
    QTest::addColumn<QSize>("growth"); // when the pointer goes by (3, 5)
    QTest::addColumn<QSize>("along");
    QTest::addColumn<int>("cursor");
    QTest::addColumn<QRect>("rect"); // in a parent of 100 by 60
    QTest::newRow("left") << 0 << QSize(-3, 5) << QSize(-3, 0) << int(Qt::SizeHorCursor) << QRect(0, 0, 10, 60);
    QTest::newRow("right") << 1 << QSize(3, 5) << QSize(3, 0) << int(Qt::SizeHorCursor) << QRect(90, 0, 10, 60);
    QTest::newRow("top") << 2 << QSize(3, -5) << QSize(0, -5) << int(Qt::SizeVerCursor) << QRect(0, 0, 100, 10);
    QTest::newRow("bottom") << 3 << QSize(3, 5) << QSize(0, 5) << int(Qt::SizeVerCursor) << QRect(0, 50, 100, 10);
    QTest::newRow("top left") << 4 << QSize(-3, -5) << QSize(-3, -5) << int(Qt::SizeFDiagCursor) << QRect(0, 0, 10, 10);
    QTest::newRow("top right") << 5 << QSize(3, -5) << QSize(3, -5) << int(Qt::SizeBDiagCursor) << QRect(90, 0, 10, 10);
    QTest::newRow("bottom left") << 6 << QSize(-3, 5) << QSize(-3, 5) << int(Qt::SizeBDiagCursor) << QRect(0, 50, 10, 10);
    QTest::newRow("bottom right") << 7 << QSize(3, 5) << QSize(3, 5) << int(Qt::SizeFDiagCursor) << QRect(90, 50, 10, 10);
}

void tst_BVPanelGeometry::handles()
{
    QFETCH(const int, position);
    const auto place = Position(position);
    QTEST(growth(place, QPoint(3, 5)), "growth");
    QTEST(alongHandle(place, growth(place, QPoint(3, 5))), "along");
    QTEST(int(BVCursorTable::cursor(handlePlace(place).cursor).shape()), "cursor");
    QTEST(handleRect(place, QSize(100, 60), 10), "rect");
    // The way back: an edge or corner keeps the opposite one.
    const HandlePlace &spec = handlePlace(place);
    QCOMPARE(int(positionOf(spec.dragsWidth, spec.dragsHeight, spec.dragsWidth && spec.widthSign < 0, spec.dragsHeight && spec.heightSign < 0)),
             position);
}

void tst_BVPanelGeometry::border_data()
{
    QTest::addColumn<int>("position");
    QTest::addColumn<QPoint>("point"); // the handle fills (100, 50) to (109, 149)
    QTest::addColumn<bool>("expected");
    QTest::newRow("left: outermost") << 0 << QPoint(101, 60) << false;
    QTest::newRow("left: behind that") << 0 << QPoint(102, 60) << true;
    QTest::newRow("left: inner side") << 0 << QPoint(109, 60) << true;
    QTest::newRow("left: past it") << 0 << QPoint(110, 60) << false;
    QTest::newRow("right: left side") << 1 << QPoint(100, 60) << true;
    QTest::newRow("right: last") << 1 << QPoint(107, 60) << true;
    QTest::newRow("right: outermost") << 1 << QPoint(108, 60) << false;
    QTest::newRow("top right as all others") << 5 << QPoint(101, 60) << false;
    QTest::newRow("top right: right side") << 5 << QPoint(109, 60) << true;
    QTest::newRow("top") << 1 << QPoint(105, 50) << true;
    QTest::newRow("bottom") << 1 << QPoint(105, 149) << true;
    QTest::newRow("above") << 1 << QPoint(105, 49) << false;
    QTest::newRow("below") << 1 << QPoint(105, 150) << false;
}

void tst_BVPanelGeometry::border()
{
    QFETCH(const int, position);
    QFETCH(const QPoint, point);
    QTEST(isOverBorder(Position(position), QRect(100, 50, 10, 100), point), "expected");
}

void tst_BVPanelGeometry::fits_data()
{
    QTest::addColumn<QRect>("rect"); // in a window of 400 by 300 with margins of 1, 2, 3 and 4
    QTest::addColumn<bool>("expected");
    QTest::newRow("all of it") << QRect(1, 2, 396, 262) << true;
    QTest::newRow("too far left") << QRect(0, 2, 10, 10) << false;
    QTest::newRow("too far up") << QRect(1, 1, 10, 10) << false;
    QTest::newRow("too wide") << QRect(1, 2, 397, 10) << false;
    QTest::newRow("over the status bar") << QRect(1, 2, 10, 263) << false;
    QTest::newRow("empty") << QRect(10, 10, 0, 10) << false;
}

void tst_BVPanelGeometry::fits()
{
    QFETCH(const QRect, rect);
    QTEST(BVPanelGeometry::fits(availableArea(QSize(400, 300), QMargins(1, 2, 3, 4)), rect), "expected");
}

void tst_BVPanelGeometry::clamped_data()
{
    QTest::addColumn<QRect>("rect");
    QTest::addColumn<QRect>("expected"); // in (10, 20) to (109, 99)
    QTest::newRow("inside") << QRect(20, 30, 40, 40) << QRect(20, 30, 40, 40);
    QTest::newRow("past the bottom right") << QRect(100, 90, 40, 40) << QRect(70, 60, 40, 40);
    QTest::newRow("past the top left") << QRect(-100, -90, 40, 40) << QRect(10, 20, 40, 40);
    QTest::newRow("too large") << QRect(50, 50, 400, 40) << QRect(10, 50, 100, 40);
}

void tst_BVPanelGeometry::clamped()
{
    QFETCH(const QRect, rect);
    QTEST(BVPanelGeometry::clamped(QRect(10, 20, 100, 80), rect), "expected");
    QVERIFY(!BVPanelGeometry::clamped(QRect(0, 0, 50, -20), rect).isEmpty()); // a window without any room
}

void tst_BVPanelGeometry::resized()
{
    const QRect rect(10, 20, 100, 80);
    const QRect area(0, 0, 200, 150);
    QCOMPARE(BVPanelGeometry::resized(rect, QSize(120, 90), false, false), QRect(10, 20, 120, 90));
    QCOMPARE(BVPanelGeometry::resized(rect, QSize(105, 90), true, true), QRect(5, 10, 105, 90));
    for (const bool keepsEnd : {false, true}) { // the room is used up and kept to
        const QSize room = roomFor(area, rect, keepsEnd, keepsEnd);
        const QRect grown = BVPanelGeometry::resized(rect, room, keepsEnd, keepsEnd);
        QVERIFY(area.contains(grown));
        QVERIFY(!area.contains(BVPanelGeometry::resized(rect, room + QSize(1, 0), keepsEnd, keepsEnd)));
        QVERIFY(!area.contains(BVPanelGeometry::resized(rect, room + QSize(0, 1), keepsEnd, keepsEnd)));
    }
}

void tst_BVPanelGeometry::hostWindow()
{
    QWidget top;
    auto *inner = new QMainWindow(&top);
    inner->setWindowFlags(Qt::Widget);
    auto *central = new QWidget;
    inner->setCentralWidget(central);
    QCOMPARE(BVPanelGeometry::hostWindow(central), static_cast<QWidget *>(inner));
    QCOMPARE(BVPanelGeometry::hostWindow(inner), &top);
    QCOMPARE(BVPanelGeometry::hostWindow(&top), &top);
    QDialog dialog(inner);
    QCOMPARE(BVPanelGeometry::hostWindow(new QWidget(&dialog)), &dialog);
}

QTEST_MAIN(tst_BVPanelGeometry)

#include "tst_bvpanelgeometry.moc"
