// SPDX-License-Identifier: MIT
#include "foundation/RegisterResizeableWidgetInterfaceEvent.h"
#include "foundation/ResizeWidgetCloseEvent.h"
#include "layout/MainWidget.h"
#include "layout/ResizableScrollArea.h"
#include "layout/ResizeWidgetPlaceHolder.h"
#include "layout/ResizeableWidgetHandle.h"

#include "TestSupport.h"

#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QMainWindow>
#include <QMouseEvent>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSplitter>
#include <QTest>

#include <QVBoxLayout>

#include <memory>

using Brimvale::RegisterResizeableWidgetInterfaceEvent;
using Brimvale::ResizeWidgetCloseEvent;
using Handle = ResizeableWidgetHandle;

Q_DECLARE_METATYPE(QMargins)

/// Writes down the events that reach the main window: "+" and "-" for the flag of a registration,
/// "?" for one that has been taken back, "x" for a closed place holder.
struct Window : QMainWindow
{
    bool event(QEvent *event) override
    {
        if (event->type() == RegisterResizeableWidgetInterfaceEvent::s_customEventType) {
            auto *registration = static_cast<RegisterResizeableWidgetInterfaceEvent *>(event);
            m_log += !registration->getResizeableWidgetInterface() ? '?' : registration->deregister() ? '+' : '-';
        } else if (event->type() == ResizeWidgetCloseEvent::s_customEventType) {
            m_log += 'x';
            m_closed = static_cast<ResizeWidgetCloseEvent *>(event)->getParentWidget();
        }
        return QMainWindow::event(event);
    }

    QString m_log;
    QWidget *m_closed = nullptr;
};

/// A text edit in a form over other widgets, with a handle at its lower right.
class tst_ResizeableWidgetHandle : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { muteOffscreenWarnings(); }
    void init();
    void cleanup();
    void drag_data();
    void drag();
    void cancel();
    void onResize_data();
    void onResize();
    void placeHolder_data();
    void placeHolder();
    void events();
    void twoHandles();
    void splitter();
    void lastHandle_data();
    void lastHandle();
    void floatsAgain();
    void deletion_data();
    void deletion();
    void scrollArea_data();
    void scrollArea();

private:
    void drag(const QVector<QPoint> &way, bool escape = false);
    QRect inWindow() const { return QRect(m_text->mapTo(m_window.get(), QPoint()), m_text->size()); }

    std::unique_ptr<Window> m_window;
    QWidget *m_form = nullptr;
    QPlainTextEdit *m_text = nullptr;
    QPointer<Handle> m_handle;
};

void tst_ResizeableWidgetHandle::init()
{
    m_window = std::make_unique<Window>();
    qApp->setProperty("MainWindow", QVariant::fromValue<QObject *>(m_window.get()));
    auto *central = new QWidget;
    m_form = new QWidget(central);
    m_form->setGeometry(100, 50, 220, 200);
    m_text = new QPlainTextEdit;
    m_text->setWindowTitle("Messages");
    auto *layout = new QVBoxLayout(m_form);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_text);
    layout->addWidget(new QPushButton("Apply"));
    m_window->setCentralWidget(central);
    m_window->setFixedSize(600, 500);
    m_window->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
    m_handle = new Handle(m_text);
    m_handle->show();
    QCoreApplication::processEvents();
}

void tst_ResizeableWidgetHandle::cleanup()
{
    m_window.reset();
    qApp->setProperty("MainWindow", QVariant());
}

void tst_ResizeableWidgetHandle::drag(const QVector<QPoint> &way, bool escape)
{
    QPoint position(1000, 1000);
    const auto send = [&](QEvent::Type type) {
        QMouseEvent event(type, QPointF(), position, Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(m_handle, &event);
    };
    send(QEvent::MouseButtonPress);
    for (const QPoint &step : way) {
        position += step;
        send(QEvent::MouseMove);
    }
    if (escape)
        QTest::keyClick(m_handle.data(), Qt::Key_Escape);
    send(QEvent::MouseButtonRelease);
}

void tst_ResizeableWidgetHandle::drag_data()
{
    QTest::addColumn<Handle::Position>("position");
    QTest::addColumn<QVector<QPoint>>("way");
    QTest::addColumn<bool>("escape");
    QTest::addColumn<bool>("floats");
    QTest::addColumn<QMargins>("growth");

    using Way = QVector<QPoint>;
    const QMargins none;
    QTest::newRow("larger") << Handle::BottomRightCorner << Way{{30, 0}, {0, 40}} << false << true << QMargins(0, 0, 30, 40);
    QTest::newRow("only smaller") << Handle::BottomRightCorner << Way{{-30, -10}} << false << false << none;
    QTest::newRow("smaller, then as before") << Handle::BottomRightCorner << Way{{-30, -10}, {30, 10}} << false << false << none;
    QTest::newRow("back to its size") << Handle::BottomRightCorner << Way{{30, 40}, {-90, -90}} << false << false << none;
    QTest::newRow("across the handle") << Handle::RightEdge << Way{{0, 50}} << false << false << none;
    QTest::newRow("left edge") << Handle::LeftEdge << Way{{-25, 50}} << false << true << QMargins(25, 0, 0, 0);
    QTest::newRow("top left") << Handle::TopLeftCorner << Way{{-25, -15}} << false << true << QMargins(25, 15, 0, 0);
    QTest::newRow("past the window's edge") << Handle::LeftEdge << Way{{-400, 0}} << false << true << QMargins(100, 0, 0, 0);
    QTest::newRow("from outside back in") << Handle::LeftEdge << Way{{-400, 0}, {350, 0}} << false << true << QMargins(50, 0, 0, 0);
    QTest::newRow("beyond all numbers") << Handle::RightEdge << Way{{INT_MAX - 1000, 0}, {INT_MIN + 2, 0}, {9, 0}} << false << false << none;
    QTest::newRow("Escape") << Handle::BottomRightCorner << Way{{30, 40}} << true << false << none;
}

void tst_ResizeableWidgetHandle::drag()
{
    QFETCH(const Handle::Position, position);
    QFETCH(const QVector<QPoint>, way);
    QFETCH(const bool, escape);
    QFETCH(const bool, floats);
    QFETCH(const QMargins, growth);
    m_handle->setPosition(position);
    const QRect before = inWindow();
    drag(way, escape);
    QTRY_COMPARE(m_handle->isFloating(), floats);
    QTRY_COMPARE(inWindow(), before + growth);
    QVERIFY(m_text->rect().contains(m_handle->geometry()));
    QCOMPARE(m_handle->pos().x() == 0, position == Handle::LeftEdge || position == Handle::TopLeftCorner);
}

/// On its way back the widget does not float, and it stays in a window that has become smaller.
void tst_ResizeableWidgetHandle::cancel()
{
    const QRect place = inWindow();
    QTest::keyClick(m_handle.data(), Qt::Key_Return);
    QTRY_VERIFY(m_handle->isFloating() && !m_handle->mainWidget()->isAnimating());
    QTest::keyClick(m_handle.data(), Qt::Key_Return);
    QVERIFY(m_handle->mainWidget()->isReturning());
    drag({{40, 40}}, true);
    QVERIFY(!m_handle->isFloating());
    QTRY_COMPARE(inWindow(), place);
    m_handle->onResize(QSize(500, 400), QPoint(10, 10));
    QTest::mousePress(m_handle.data(), Qt::LeftButton);
    Q_EMIT m_handle->sigMoveAbout(QSize(-50, -50));
    m_window->setFixedSize(400, 300);
    QTest::keyClick(m_handle.data(), Qt::Key_Escape);
    QCOMPARE(inWindow(), QRect(0, 0, 400, 268));
}

void tst_ResizeableWidgetHandle::onResize_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<QPoint>("position");
    QTest::addColumn<bool>("floats");
    QTest::newRow("null") << QSize(0, 0) << QPoint(10, 10) << false;
    QTest::newRow("smaller") << QSize(50, 50) << QPoint(10, 10) << false;
    QTest::newRow("larger") << QSize(300, 250) << QPoint(10, 10) << true;
    QTest::newRow("reaches the status bar's room") << QSize(300, 459) << QPoint(10, 10) << false;
    QTest::newRow("fills what is left of the height") << QSize(300, 458) << QPoint(10, 10) << true;
    QTest::newRow("outside") << QSize(300, 250) << QPoint(-1, 10) << false;
    QTest::newRow("beyond all numbers") << QSize(INT_MAX, INT_MAX) << QPoint(INT_MAX, INT_MIN) << false;
}

void tst_ResizeableWidgetHandle::onResize()
{
    QFETCH(const QSize, size);
    QFETCH(const QPoint, position);
    QFETCH(const bool, floats);
    const QRect before = inWindow();
    m_handle->onResize(size, position);
    QCOMPARE(m_handle->isFloating(), floats);
    QTRY_COMPARE(inWindow(), floats ? QRect(position, size) : before);
}

void tst_ResizeableWidgetHandle::placeHolder_data()
{
    QTest::addColumn<QString>("way");
    for (const char *way : {"button", "double click", "handle", "program"})
        QTest::newRow(way) << way;
}

void tst_ResizeableWidgetHandle::placeHolder()
{
    QFETCH(const QString, way);
    const QRect place = inWindow();
    QTest::keyClick(m_handle.data(), Qt::Key_Return);
    QVERIFY(m_handle->isFloating());
    QPointer<ResizeWidgetPlaceHolder> holder = m_handle->placeHolder();
    QTRY_COMPARE(QRect(holder->mapTo(m_window.get(), QPoint()), holder->size()), place);
    QCOMPARE(holder->widget(), m_text);
    QVERIFY(holder->accessibleName().startsWith("Messages"));
    QTRY_VERIFY(inWindow().height() > place.height());
    if (way == "button")
        holder->findChild<QAbstractButton *>()->click();
    else if (way == "double click")
        QTest::mouseDClick(holder, Qt::LeftButton, {}, QPoint(2, 2));
    else if (way == "handle")
        QTest::keyClick(m_handle.data(), Qt::Key_Return);
    else
        m_handle->closeEnlarged();
    QTRY_VERIFY(!m_handle->isFloating());
    QVERIFY(!holder);
    QCOMPARE(m_text->parentWidget(), m_form);
    QTRY_COMPARE(inWindow(), place);
}

void tst_ResizeableWidgetHandle::events()
{
    QCOMPARE(m_window->m_log, QString("+"));
    m_handle->onResize(QSize(300, 250), QPoint(10, 10));
    QCOMPARE(m_window->m_log, QString("+-")); // at once
    m_handle->closeEnlarged();
    QCOMPARE(m_window->m_log, QString("+-"));
    QCoreApplication::processEvents();
    QCOMPARE(m_window->m_log, QString("+-+x"));
    QCOMPARE(m_window->m_closed, m_text);
    delete m_handle;
    QCOMPARE(m_window->m_log, QString("+-+x-"));

    // One that goes before its registration has arrived takes it back, but not those of others.
    m_window->m_log.clear();
    auto *early = new Handle(m_text);
    new Handle(m_form);
    delete early;
    QCoreApplication::processEvents();
    QCOMPARE(m_window->m_log, QString("-?+"));
}

/// An edge and a corner of one widget: it floats for both, and goes on to do so while one is left.
void tst_ResizeableWidgetHandle::twoHandles()
{
    QPointer<Handle> edge = new Handle(m_text, Handle::RightEdge);
    QCoreApplication::processEvents();
    m_window->m_log.clear();
    const QRect place = inWindow();
    m_handle->moveBy(QSize(0, 20));
    edge->moveBy(QSize(30, 0));
    QVERIFY(edge->isFloating() && edge->mainWidget() == m_handle->mainWidget());
    QCOMPARE(inWindow(), place + QMargins(0, 0, 30, 20));
    const Handle late(m_text, Handle::TopEdge);
    QVERIFY(late.isFloating());
    delete m_handle;
    QVERIFY(edge->isFloating() && edge->placeHolder());
    edge->moveBy(QSize(-30, 0));
    edge->closeEnlarged();
    QVERIFY(!edge->isFloating() && !late.isFloating());
    QCOMPARE(m_text->parentWidget(), m_form);
    QCoreApplication::processEvents();
    QCOMPARE(m_window->m_log, QString("--++x"));
    edge->moveBy(QSize(30, 0));
    m_text->setParent(m_window->centralWidget()); // by the program
    QVERIFY(!edge->isFloating() && !late.isFloating());
    QVERIFY(!m_form->findChild<ResizeWidgetPlaceHolder *>());
}

void tst_ResizeableWidgetHandle::splitter()
{
    auto *splitter = new QSplitter;
    splitter->addWidget(new QLabel("before"));
    splitter->addWidget(m_text);
    splitter->addWidget(new QLabel("behind"));
    m_window->setCentralWidget(splitter);
    QCoreApplication::processEvents();
    const QList<int> sizes = splitter->sizes();
    m_handle->onResize(QSize(500, 250), QPoint(10, 10));
    QVERIFY(m_handle->isFloating());
    QCOMPARE(m_handle->placeHolder()->parentWidget(), splitter->widget(1));
    m_handle->closeEnlarged();
    QCOMPARE(splitter->widget(1), m_text);
    QCOMPARE(splitter->sizes(), sizes);
}

/// Whenever the last handle goes, the widget comes back; one that is taken elsewhere has gone, too.
void tst_ResizeableWidgetHandle::lastHandle_data()
{
    QTest::addColumn<QString>("how");
    for (const char *how : {"deleted when it floats", "taken away", "taken away before", "taken away and deleted"})
        QTest::newRow(how) << how;
}

void tst_ResizeableWidgetHandle::lastHandle()
{
    QFETCH(const QString, how);
    const QPointer<QWidget> text = m_text;
    QString told;
    connect(m_handle, &Handle::sigFloatingChanged, [&](bool floating) {
        told += floating ? '+' : '-';
        if (how == "deleted when it floats")
            delete m_handle;
    });
    if (how == "taken away before")
        m_handle->setParent(m_form);
    m_handle->onResize(QSize(300, 250), QPoint(10, 10));
    if (how.startsWith("taken away"))
        m_handle->setParent(m_form);
    if (how == "taken away and deleted")
        delete m_handle;
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(text && text->parentWidget() == m_form && text->isVisible());
    QVERIFY(!m_form->findChild<ResizeWidgetPlaceHolder *>() && !m_window->findChild<MainWidget *>());
    QCOMPARE(m_window->m_log.right(1), QString(m_window->m_log.contains('x') ? "x" : "-"));
    QCOMPARE(told, QString(how == "taken away before" ? "" : how == "deleted when it floats" ? "+" : "+-"));
    if (m_handle) {
        m_handle->onResize(QSize(300, 250), QPoint(10, 10));
        QVERIFY(!m_handle->isFloating() && m_handle->getResizableWidget() == m_handle);
    }
}

/// All handles hear of both times, and the main window of no end between.
void tst_ResizeableWidgetHandle::floatsAgain()
{
    Handle second(m_text, Handle::RightEdge);
    QString told;
    connect(&second, &Handle::sigFloatingChanged, [&](bool floating) { told += floating ? '+' : '-'; });
    m_handle->onResize(QSize(300, 250), QPoint(10, 10));
    const auto connection = connect(m_handle, &Handle::sigFloatingChanged, [&](bool floating) {
        if (!floating)
            m_handle->onResize(QSize(300, 250), QPoint(10, 10));
    });
    m_handle->closeEnlarged();
    disconnect(connection);
    QCoreApplication::processEvents();
    QVERIFY(m_handle->isFloating() && second.isFloating());
    QCOMPARE(told, QString("+-+"));
    QVERIFY(!m_window->m_log.contains('x'));
}

void tst_ResizeableWidgetHandle::deletion_data()
{
    QTest::addColumn<QString>("what");
    for (const char *what : {"handle", "widget", "form", "container", "window"})
        QTest::newRow(what) << what;
}

void tst_ResizeableWidgetHandle::deletion()
{
    QFETCH(const QString, what);
    const QPointer<QWidget> text = m_text;
    m_handle->onResize(QSize(300, 250), QPoint(10, 10)); // and the animation is running
    const QPointer<QWidget> holder = m_handle->placeHolder();
    if (what == "handle")
        delete m_handle;
    else if (what == "widget")
        delete m_text;
    else if (what == "form")
        delete m_form;
    else if (what == "container")
        delete m_handle->mainWidget();
    else
        m_window.reset();
    QVERIFY(!m_handle && !holder);
    QCOMPARE(bool(text), what == "handle");
    if (text)
        QCOMPARE(text->parentWidget(), m_form);
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    if (m_window)
        QCOMPARE(m_window->findChildren<MainWidget *>().size(), 0);
}

void tst_ResizeableWidgetHandle::scrollArea_data()
{
    QTest::addColumn<Handle::Position>("position");
    QTest::addColumn<QSize>("growth");
    QTest::addColumn<QSize>("expected");
    QTest::newRow("down") << Handle::BottomEdge << QSize(9, 20) << QSize(120, 120);
    QTest::newRow("not beyond the content") << Handle::BottomEdge << QSize(0, 900) << QSize(120, 310);
    QTest::newRow("corner") << Handle::BottomRightCorner << QSize(15, 20) << QSize(135, 120);
    QTest::newRow("keeps its right edge") << Handle::LeftEdge << QSize(15, 0) << QSize(135, 100);
}

void tst_ResizeableWidgetHandle::scrollArea()
{
    QFETCH(const Handle::Position, position);
    QFETCH(const QSize, growth);
    QFETCH(const QSize, expected);
    ResizableScrollArea area(m_window->centralWidget());
    auto *content = new QWidget;
    content->setMinimumSize(300, 300);
    (new QVBoxLayout(content))->addWidget(new QLabel("content"));
    area.setWidget(content);
    area.setHandlePosition(position);
    area.setGeometry(200, 50, 120, 100);
    area.show();
    const QRect before = area.geometry();
    area.resizeHandle()->moveBy(growth);
    QCOMPARE(area.size(), expected);
    QCOMPARE(position == Handle::LeftEdge ? area.geometry().topRight() : area.pos(),
             position == Handle::LeftEdge ? before.topRight() : before.topLeft());
    QVERIFY(!area.viewport()->geometry().intersects(area.resizeHandle()->geometry()));
    area.resizeHandle()->moveBy(QSize(-999, -999));
    QVERIFY(area.height() >= area.minimumSizeHint().height());
}

QTEST_MAIN(tst_ResizeableWidgetHandle)

#include "tst_resizeablewidgethandle.moc"
