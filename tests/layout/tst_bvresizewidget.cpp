// SPDX-License-Identifier: MIT
#include "layout/BVResizeWidget.h"

#include <QAccessible>
#include <QMouseEvent>
#include <QTest>

#include <memory>

constexpr int s_minimum = 200; // px, for both directions

using Points = QVector<QPoint>;

/// The grip's geometry rules, with presses and moves at global positions.
class tst_BVResizeWidget : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void drag_data();
    void drag();
    void keys_data();
    void keys();
    void refusals();
    void accessible();
    void windowDies();

private:
    void send(QEvent::Type type, const QPoint &position);

    std::unique_ptr<QMainWindow> m_window;
    std::unique_ptr<BVResizeWidget> m_grip;
};

void tst_BVResizeWidget::init()
{
    m_grip = std::make_unique<BVResizeWidget>();
    m_window = std::make_unique<QMainWindow>(nullptr, Qt::FramelessWindowHint);
    m_window->setMinimumSize(s_minimum, s_minimum);
    m_window->setGeometry(100, 100, 300, 250);
    m_grip->setWindow(m_window.get());
}

void tst_BVResizeWidget::send(QEvent::Type type, const QPoint &position)
{
    const bool isMove = type == QEvent::MouseMove;
    QMouseEvent event(type, QPointF(), position, isMove ? Qt::NoButton : Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(m_grip.get(), &event);
}

void tst_BVResizeWidget::drag_data()
{
    QTest::addColumn<BVResizeWidget::ResizeType>("type");
    QTest::addColumn<QRect>("start");
    QTest::addColumn<Points>("path"); // press, then moves
    QTest::addColumn<QRect>("expected");

    using G = BVResizeWidget;
    const QRect large(100, 100, 300, 250);
    const QRect small(100, 100, s_minimum, s_minimum);
    const Points outAndIn{{0, 0}, {150, 120}};
    QTest::newRow("left") << G::left << large << outAndIn << QRect(150, 100, 250, 250);
    QTest::newRow("top left") << G::topLeft << large << outAndIn << QRect(150, 120, 250, 230);
    QTest::newRow("top") << G::top << large << outAndIn << QRect(100, 120, 300, 230);
    QTest::newRow("top right") << G::topRight << large << Points{{400, 100}, {450, 80}} << QRect(100, 80, 350, 270);
    QTest::newRow("right") << G::right << large << Points{{400, 100}, {450, 80}} << QRect(100, 100, 350, 250);
    QTest::newRow("bottom right") << G::bottomRight << large << Points{{0, 0}, {450, 380}} << QRect(100, 100, 350, 280);
    QTest::newRow("bottom") << G::bottom << large << Points{{0, 0}, {450, 380}} << QRect(100, 100, 300, 280);
    QTest::newRow("bottom left") << G::bottomLeft << large << Points{{0, 0}, {90, 380}} << QRect(90, 100, 310, 280);

    // At the smallest size an inward step ends the drag, so the outward one behind it does nothing.
    QTest::newRow("left stops") << G::left << small << Points{{100, 0}, {101, 0}, {50, 0}} << small;
    QTest::newRow("left goes on sideways") << G::left << small << Points{{100, 0}, {100, 9}, {50, 9}} << QRect(50, 100, 250, 200);
    QTest::newRow("top stops") << G::top << small << Points{{0, 100}, {0, 101}, {0, 50}} << small;
    QTest::newRow("top stops sideways") << G::top << small << Points{{0, 100}, {9, 100}, {9, 50}} << small;
    QTest::newRow("top left stops by its width") << G::topLeft << small << Points{{100, 100}, {101, 90}, {50, 50}} << small;
    QTest::newRow("top left stops by its height") << G::topLeft << small << Points{{100, 100}, {90, 100}, {50, 50}} << small;
    QTest::newRow("bottom left stops by its width") << G::bottomLeft << small << Points{{100, 300}, {101, 310}, {50, 350}} << small;
    QTest::newRow("top right never stops") << G::topRight << small << Points{{300, 100}, {300, 110}, {320, 90}} << QRect(100, 90, 220, 220);
    QTest::newRow("right never stops") << G::right << small << Points{{300, 0}, {290, 0}, {320, 0}} << QRect(100, 100, 220, 200);
    QTest::newRow("one step past the smallest size") << G::topLeft << large << Points{{100, 100}, {390, 340}} << QRect(200, 150, 200, 200);
    QTest::newRow("turned inside out") << G::bottomRight << large << Points{{400, 350}, {10, 10}} << small;
}

void tst_BVResizeWidget::drag()
{
    QFETCH(const BVResizeWidget::ResizeType, type);
    QFETCH(const QRect, start);
    QFETCH(const Points, path);
    QFETCH(const QRect, expected);
    m_window->setGeometry(start);
    QVERIFY(m_grip->setProperty("resizeType", type));
    send(QEvent::MouseMove, QPoint(7, 7)); // nothing is pressed yet
    send(QEvent::MouseButtonPress, path.first());
    QCOMPARE(m_window->geometry(), start);
    for (int i = 1; i < path.size(); ++i)
        send(QEvent::MouseMove, path.at(i));
    QCOMPARE(m_window->geometry(), expected);
    send(QEvent::MouseButtonRelease, path.last());
    send(QEvent::MouseMove, QPoint(7, 7));
    QCOMPARE(m_window->geometry(), expected);
}

void tst_BVResizeWidget::keys_data()
{
    QTest::addColumn<BVResizeWidget::ResizeType>("type");
    QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
    QTest::addColumn<QVector<int>>("keys");
    QTest::addColumn<QRect>("expected");

    using G = BVResizeWidget;
    using Keys = QVector<int>;
    const Qt::KeyboardModifiers none;
    const Qt::KeyboardModifiers shift = Qt::ShiftModifier;
    QTest::newRow("right") << G::right << none << Keys{Qt::Key_Right} << QRect(100, 100, 210, 200);
    QTest::newRow("left") << G::left << none << Keys{Qt::Key_Left, Qt::Key_Down} << QRect(90, 100, 210, 200);
    QTest::newRow("single pixels") << G::bottom << shift << Keys{Qt::Key_Down} << QRect(100, 100, 200, 201);
    QTest::newRow("a shortcut's key") << G::right << Qt::KeyboardModifiers(Qt::AltModifier) << Keys{Qt::Key_Right} << QRect(100, 100, 200, 200);
    QTest::newRow("corner, both ways") << G::bottomLeft << none << Keys{Qt::Key_Left, Qt::Key_Down} << QRect(90, 100, 210, 210);
    QTest::newRow("a stopped edge holds not the other") << G::topLeft << none << Keys{Qt::Key_Right, Qt::Key_Up} << QRect(100, 90, 200, 210);
    QTest::newRow("inward at the smallest size") << G::topRight << none << Keys{Qt::Key_Down, Qt::Key_Left} << QRect(100, 100, 200, 200);
}

void tst_BVResizeWidget::keys()
{
    QFETCH(const BVResizeWidget::ResizeType, type);
    QFETCH(const Qt::KeyboardModifiers, modifiers);
    QFETCH(const QVector<int>, keys);
    m_window->resize(s_minimum, s_minimum);
    m_grip->setResizeType(type);
    for (const int key : keys)
        QTest::keyClick(m_grip.get(), Qt::Key(key), modifiers);
    QTEST(m_window->geometry(), "expected");
}

void tst_BVResizeWidget::refusals()
{
    m_grip->setResizeType(BVResizeWidget::top);
    for (const int number : {-1, 8})
        m_grip->setResizeType(BVResizeWidget::ResizeType(number));
    QCOMPARE(m_grip->resizeType(), BVResizeWidget::top);
    QCOMPARE(m_grip->cursor().shape(), Qt::SizeVerCursor);
    m_window->showMaximized();
    const QRect maximized = m_window->geometry();
    send(QEvent::MouseButtonPress, QPoint());
    send(QEvent::MouseMove, QPoint(0, 50));
    QTest::keyClick(m_grip.get(), Qt::Key_Down);
    QCOMPARE(m_window->geometry(), maximized);
}

void tst_BVResizeWidget::accessible()
{
    m_grip->setResizeType(BVResizeWidget::topRight);
    QAccessibleInterface *grip = QAccessible::queryAccessibleInterface(m_grip.get());
    QCOMPARE(grip->role(), QAccessible::Grip);
    QCOMPARE(grip->text(QAccessible::Name), QString("Top right corner of the window"));
    grip->actionInterface()->doAction(QAccessibleActionInterface::increaseAction());
    QCOMPARE(m_window->geometry(), QRect(100, 90, 310, 260));
}

void tst_BVResizeWidget::windowDies()
{
    send(QEvent::MouseButtonPress, QPoint(100, 100));
    m_window.reset();
    send(QEvent::MouseMove, QPoint(50, 50));
    m_grip->resizeTopLeft(QPoint(), QPoint());
    QTest::keyClick(m_grip.get(), Qt::Key_Left);
    send(QEvent::MouseButtonPress, QPoint(100, 100));
}

QTEST_MAIN(tst_BVResizeWidget)

#include "tst_bvresizewidget.moc"
