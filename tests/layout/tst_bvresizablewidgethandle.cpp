// SPDX-License-Identifier: MIT
#include "layout/BVResizableWidgetTextHandle.h"

#include <QAccessible>
#include <QApplication>
#include <QDialog>
#include <QMouseEvent>
#include <QTest>

#include <memory>

using Handle = BVResizableWidgetHandle;

/// A handle at the edge of a parent, with what it tells in order: "start +3,5 end".
struct Dragged
{
    explicit Dragged(Handle::Position position, bool withText = false)
        : m_handle(withText ? new BVResizableWidgetTextHandle(position, &m_parent) : new Handle(position, &m_parent))
    {
        m_parent.resize(200, 100);
        m_parent.show();
        QObject::connect(m_handle, &Handle::sigMoveStarted, [this] { m_told << "start"; });
        QObject::connect(m_handle, &Handle::sigMoveAbout, [this](QSize delta) { m_told << QString("%1,%2").arg(delta.width()).arg(delta.height()); });
        QObject::connect(m_handle, &Handle::sigMoved, [this] { m_told << "end"; });
        QObject::connect(m_handle, &Handle::sigMoveCanceled, [this] { m_told << "cancel"; });
        QObject::connect(m_handle, &Handle::sigToggleRequested, [this] { m_told << "toggle"; });
    }

    static void send(QWidget *widget, QEvent::Type type, const QPoint &global, Qt::MouseButton button = Qt::LeftButton)
    {
        QMouseEvent event(type, widget->mapFromGlobal(global), global, type == QEvent::MouseMove ? Qt::NoButton : button, button, Qt::NoModifier);
        QApplication::sendEvent(widget, &event);
    }
    QString told() { return std::exchange(m_told, QStringList()).join(' '); }

    QWidget m_parent;
    Handle *m_handle;
    QStringList m_told;
};

class tst_BVResizableWidgetHandle : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void mouse();
    void keys_data();
    void keys();
    void escape();
    void lostRelease_data();
    void lostRelease();
    void places();
    void splitter_data();
    void splitter();
    void textHandle();
    void accessible();
    void diesOnPress();
};

void tst_BVResizableWidgetHandle::mouse()
{
    Dragged left(Handle::LeftEdge);
    const QPoint at = left.m_handle->mapToGlobal(QPoint(5, 50));
    left.send(left.m_handle, QEvent::MouseMove, at);
    left.send(left.m_handle, QEvent::MouseButtonPress, at, Qt::RightButton);
    QCOMPARE(left.told(), QString()); // only the left button drags
    left.send(left.m_handle, QEvent::MouseButtonPress, at);
    left.send(left.m_handle, QEvent::MouseMove, at - QPoint(3, 0));
    left.send(left.m_handle, QEvent::MouseMove, at - QPoint(3, 0)); // a null delta is none
    left.send(left.m_handle, QEvent::MouseMove, at - QPoint(7, -1), Qt::NoButton); // a program's own event
    left.send(left.m_handle, QEvent::MouseButtonRelease, at);
    left.send(left.m_handle, QEvent::MouseMove, at);
    QCOMPARE(left.told(), QString("start 3,0 4,1 end")); // growth to the left, each since the last
    left.send(left.m_handle, QEvent::MouseButtonPress, at);
    left.send(left.m_handle, QEvent::MouseButtonRelease, at);
    QCOMPARE(left.told(), QString("start"));
    left.send(left.m_handle, QEvent::MouseButtonDblClick, at);
    QCOMPARE(left.told(), QString("toggle"));
}

void tst_BVResizableWidgetHandle::keys_data()
{
    QTest::addColumn<int>("position");
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("modifiers");
    QTest::addColumn<QString>("expected");
    QTest::newRow("right edge, right") << 1 << int(Qt::Key_Right) << 0 << "start 10,0 end";
    QTest::newRow("left edge, right shrinks") << 0 << int(Qt::Key_Right) << 0 << "start -10,0 end";
    QTest::newRow("single pixels") << 1 << int(Qt::Key_Left) << int(Qt::ShiftModifier) << "start -1,0 end";
    QTest::newRow("across the edge") << 1 << int(Qt::Key_Down) << 0 << "";
    QTest::newRow("top edge, up") << 2 << int(Qt::Key_Up) << 0 << "start 0,10 end";
    QTest::newRow("corner, down") << 7 << int(Qt::Key_Down) << 0 << "start 0,10 end";
    QTest::newRow("a shortcut's key") << 1 << int(Qt::Key_Right) << int(Qt::ControlModifier) << "";
    QTest::newRow("toggle") << 1 << int(Qt::Key_Return) << 0 << "toggle";
}

void tst_BVResizableWidgetHandle::keys()
{
    QFETCH(const int, position);
    QFETCH(const int, key);
    QFETCH(const int, modifiers);
    Dragged handle{Handle::Position(position)};
    QTest::keyClick(handle.m_handle, Qt::Key(key), Qt::KeyboardModifiers(modifiers));
    QTEST(handle.told(), "expected");
}

void tst_BVResizableWidgetHandle::escape()
{
    Dragged right(Handle::RightEdge);
    const QPoint at = right.m_handle->mapToGlobal(QPoint(5, 50));
    QTest::keyClick(&right.m_parent, Qt::Key_Escape);
    right.send(right.m_handle, QEvent::MouseButtonPress, at);
    right.send(right.m_handle, QEvent::MouseMove, at + QPoint(9, 0));
    QTest::keyClick(&right.m_parent, Qt::Key_Escape); // whoever has the keyboard
    right.send(right.m_handle, QEvent::MouseMove, at + QPoint(20, 0));
    right.send(right.m_handle, QEvent::MouseButtonRelease, at);
    QCOMPARE(right.told(), QString("start 9,0 cancel"));
}

void tst_BVResizableWidgetHandle::lostRelease_data()
{
    QTest::addColumn<QString>("how");
    for (const char *how : {"elsewhere", "hidden", "disabled", "modal dialog"})
        QTest::newRow(how) << how;
}

void tst_BVResizableWidgetHandle::lostRelease()
{
    QFETCH(const QString, how);
    Dragged right(Handle::RightEdge);
    const QPoint at = right.m_handle->mapToGlobal(QPoint(5, 50));
    right.send(right.m_handle, QEvent::MouseButtonPress, at);
    QDialog dialog(&right.m_parent);
    if (how == "hidden")
        right.m_parent.hide();
    else if (how == "disabled")
        right.m_parent.setEnabled(false);
    else if (how == "modal dialog")
        dialog.open();
    else {
        QMouseEvent move(QEvent::MouseMove, QPointF(5, 50), at + QPoint(9, 0), Qt::NoButton, Qt::NoButton, Qt::NoModifier);
        QSpontaneKeyEvent::setSpontaneous(&move);
        qApp->notify(right.m_handle, &move); // sendEvent() makes it a program's own
    }
    QTRY_VERIFY(!right.m_handle->isPressing());
    right.send(right.m_handle, QEvent::MouseMove, at + QPoint(20, 0));
    QCOMPARE(right.told(), QString("start cancel"));
}

void tst_BVResizableWidgetHandle::places()
{
    Dragged handle(Handle::RightEdge);
    QCOMPARE(handle.m_handle->objectName(), QString("BVResizableWidgetHandle"));
    QCOMPARE(handle.m_handle->geometry(), QRect(190, 0, 10, 100));
    handle.m_parent.resize(300, 80);
    QCOMPARE(handle.m_handle->geometry(), QRect(290, 0, 10, 80));
    handle.m_handle->setPosition(Handle::TopLeftCorner);
    QCOMPARE(handle.m_handle->geometry(), QRect(0, 0, 10, 10));
    handle.m_handle->setPosition(Handle::Position(8));
    QCOMPARE(handle.m_handle->position(), Handle::TopLeftCorner);
    const QPoint inside = handle.m_handle->mapToGlobal(QPoint(5, 5));
    QVERIFY(handle.m_handle->isMouseOverHandleBorder(inside));
    handle.m_parent.hide();
    QVERIFY(!handle.m_handle->isMouseOverHandleBorder(inside));
    QVERIFY(Handle(Handle::LeftEdge, nullptr, false).testAttribute(Qt::WA_NativeWindow));
}

void tst_BVResizableWidgetHandle::splitter_data()
{
    QTest::addColumn<int>("x"); // in the handle
    QTest::addColumn<QString>("expected");
    QTest::newRow("one pixel in from outside") << 1 << "";
    QTest::newRow("over the border") << 5 << "start 4,0 end toggle";
}

void tst_BVResizableWidgetHandle::splitter()
{
    QFETCH(const int, x);
    QWidget window;
    auto *splitter = new QWidget(&window);
    splitter->setObjectName("qt_qmainwindow_extended_splitter");
    qApp->setProperty("MainWindow", QVariant::fromValue(&window));
    Dragged left(Handle::LeftEdge);
    const QPoint at = left.m_handle->mapToGlobal(QPoint(x, 50));
    left.send(splitter, QEvent::MouseButtonPress, at);
    left.send(splitter, QEvent::MouseMove, at - QPoint(4, 0));
    left.send(splitter, QEvent::MouseButtonRelease, at);
    left.send(splitter, QEvent::MouseButtonDblClick, at);
    qApp->setProperty("MainWindow", QVariant());
    QTEST(left.told(), "expected");
}

void tst_BVResizableWidgetHandle::textHandle()
{
    Dragged bottom(Handle::BottomEdge, true);
    auto *handle = static_cast<BVResizableWidgetTextHandle *>(bottom.m_handle);
    QCOMPARE(handle->shownText(), QString("Enlarge"));
    handle->onWidgedResized(true);
    QCOMPARE(handle->shownText(), QString("Restore"));
    QVERIFY(handle->height() >= handle->fontMetrics().height());
    QCOMPARE(handle->geometry().bottom(), bottom.m_parent.rect().bottom());
    QTest::mouseClick(handle, Qt::LeftButton);
    QCOMPARE(bottom.told(), QString("start toggle"));
    const QPoint at = handle->mapToGlobal(QPoint(5, 5));
    bottom.send(handle, QEvent::MouseButtonDblClick, at); // the second press of a double click
    bottom.send(handle, QEvent::MouseButtonRelease, at);
    QCOMPARE(bottom.told(), QString("start toggle"));
    bottom.send(handle, QEvent::MouseButtonPress, at);
    bottom.send(handle, QEvent::MouseMove, at + QPoint(0, 1));
    bottom.send(handle, QEvent::MouseButtonRelease, at + QPoint(0, 1));
    QCOMPARE(bottom.told(), QString("start 0,1 end")); // a drag is no click
}

void tst_BVResizableWidgetHandle::accessible()
{
    Dragged right(Handle::RightEdge);
    QAccessibleInterface *interface = QAccessible::queryAccessibleInterface(right.m_handle);
    QVERIFY(interface && interface->valueInterface() && interface->actionInterface());
    QCOMPARE(interface->role(), QAccessible::Grip);
    QCOMPARE(interface->text(QAccessible::Name), QString("Change width"));
    QCOMPARE(interface->text(QAccessible::Value), QString("200 pixels"));
    QCOMPARE(interface->valueInterface()->currentValue().toInt(), 200);
    interface->valueInterface()->setCurrentValue(150);
    interface->actionInterface()->doAction(QAccessibleActionInterface::increaseAction());
    QCOMPARE(right.told(), QString("start -50,0 end start 10,0 end"));
    right.m_handle->setPosition(Handle::BottomRightCorner);
    interface->valueInterface()->setCurrentValue(150);
    interface->actionInterface()->doAction(QAccessibleActionInterface::increaseAction());
    QCOMPARE(right.told(), QString("start -50,0 end start 10,10 end"));
    Dragged bottom(Handle::BottomEdge, true);
    interface = QAccessible::queryAccessibleInterface(bottom.m_handle);
    QCOMPARE(interface->text(QAccessible::Name), QString("Enlarge"));
}

void tst_BVResizableWidgetHandle::diesOnPress()
{
    for (const bool onStart : {true, false}) {
        QWidget parent;
        auto *handle = new Handle(Handle::RightEdge, &parent);
        connect(handle, &Handle::sigMoveStarted, [&] {
            if (onStart)
                delete handle;
        });
        connect(handle, &Handle::sigMoveAbout, [&] { delete handle; });
        handle->moveBy(QSize(5, 0));
        QVERIFY(!parent.findChild<Handle *>());
    }
}

QTEST_MAIN(tst_BVResizableWidgetHandle)

#include "tst_bvresizablewidgethandle.moc"
