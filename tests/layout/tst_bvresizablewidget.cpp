// SPDX-License-Identifier: MIT
#include "foundation/RegisterResizeableWidgetInterfaceEvent.h"
#include "foundation/ResizeWidgetCloseEvent.h"
#include "layout/BVResizableWidget.h"
#include "layout/MainWidget.h"

#include "TestSupport.h"

#include <QApplication>
#include <QDialog>
#include <QDockWidget>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QProxyStyle>
#include <QScrollArea>
#include <QSignalSpy>
#include <QSplitter>
#include <QStackedWidget>
#include <QStyleFactory>
#include <QTest>
#include <QTimer>
#include <QVBoxLayout>

#include <memory>

using Brimvale::RegisterResizeableWidgetInterfaceEvent;
using Brimvale::ResizeWidgetCloseEvent;
using Handle = BVResizableWidgetHandle;

namespace {

/// Without animations, so that a geometry is there at once.
struct Still : QProxyStyle
{
    int styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget, QStyleHintReturn *data) const override
    {
        return hint == SH_Widget_Animation_Duration ? 0 : QProxyStyle::styleHint(hint, option, widget, data);
    }
};

/// A main window of 600 by 500 that notes the registrations it gets: "+a -a +null".
class Window : public QMainWindow
{
public:
    Window()
    {
        resize(600, 500);
        qApp->setProperty("MainWindow", QVariant::fromValue<QWidget *>(this));
    }
    ~Window() override { qApp->setProperty("MainWindow", QVariant()); }

    QString registered()
    {
        QCoreApplication::sendPostedEvents();
        return std::exchange(m_registered, QStringList()).join(' ');
    }

protected:
    bool event(QEvent *event) override
    {
        if (event->type() == RegisterResizeableWidgetInterfaceEvent::s_customEventType) {
            auto *panel = static_cast<RegisterResizeableWidgetInterfaceEvent *>(event);
            auto *interface = panel->getResizeableWidgetInterface();
            const QString name = interface ? interface->getResizableWidget()->objectName() : "null";
            m_registered << (panel->deregister() ? "+" : "-") + name + (panel->getResizableWidget() ? "" : "()");
        } else if (event->type() == ResizeWidgetCloseEvent::s_customEventType) {
            const QWidget *closed = static_cast<ResizeWidgetCloseEvent *>(event)->getParentWidget();
            m_registered << "close:" + (closed ? closed->objectName() : QString());
        }
        return QMainWindow::event(event);
    }

private:
    QStringList m_registered;
};

/// A panel of 200 by 100 at (50, 40) in a form in the window.
struct Scene
{
    explicit Scene(bool withLayout = true)
    {
        m_host->setObjectName("host");
        m_window->setCentralWidget(m_host);
        if (withLayout) {
            auto *layout = new QVBoxLayout(m_host);
            layout->setContentsMargins(50, 40, 350, 0);
            layout->addWidget(m_panel);
            layout->addStretch();
        } else {
            m_panel->setParent(m_host);
            m_panel->setGeometry(50, 40, 200, 100);
        }
        m_panel->setObjectName("a");
        m_panel->setFixedHeight(100);
        m_panel->setMinimumHeight(0);
        m_panel->setMaximumHeight(QWIDGETSIZE_MAX);
        m_panel->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
        m_content->setMinimumHeight(90);
        m_panel->setContainerWidget(m_content);
        m_panel->useHorizontalHandle(true);
        m_panel->useVerticalHandle(true);
        m_panel->useDiagonalHandle(true);
        m_window->show();
        m_window->registered();
    }

    void drag(Handle *handle, const QPoint &way, bool release = true)
    {
        Q_EMIT handle->sigMoveStarted();
        Q_EMIT handle->sigMoveAbout(QSize(way.x(), way.y()));
        if (release)
            Q_EMIT handle->sigMoved();
    }
    QRect rect() const { return QRect(m_panel->mapTo(m_window.get(), QPoint()), m_panel->size()); }

    std::unique_ptr<Window> m_window = std::make_unique<Window>();
    QPointer<QWidget> m_host = new QWidget;
    QPointer<BVResizableWidget> m_panel = new BVResizableWidget;
    QPointer<QLineEdit> m_content = new QLineEdit;
};

} // namespace

class tst_BVResizableWidget : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void drags_data();
    void drags();
    void dragOutAndBack();
    void resizes_data();
    void resizes();
    void widthCorrection();
    void check();
    void registration();
    void crossingEvents();
    void enlarge();
    void cancel();
    void cancelOnTheWayBack();
    void places_data();
    void places();
    void followsPlace();
    void dock();
    void order();
    void floatsAgain();
    void movedElsewhere();
    void windowShrinks();
    void endsInSignal_data();
    void endsInSignal();
    void deletions_data();
    void deletions();
    void storedState();
    void badState_data();
    void badState();
    void scrollArea();
    void directions();
};

void tst_BVResizableWidget::initTestCase()
{
    muteOffscreenWarnings();
    qApp->setStyle(new Still);
}

void tst_BVResizableWidget::drags_data()
{
    QTest::addColumn<QString>("handle");
    QTest::addColumn<QPoint>("way");
    QTest::addColumn<QRect>("expected");
    const QRect place(50, 40, 200, 100);
    QTest::newRow("shrinking") << "diagonal" << QPoint(-30, -30) << place;
    QTest::newRow("wider") << "horizontal" << QPoint(30, 20) << QRect(50, 40, 230, 100);
    QTest::newRow("higher") << "vertical" << QPoint(30, 20) << QRect(50, 40, 200, 120);
    QTest::newRow("both") << "diagonal" << QPoint(30, 20) << QRect(50, 40, 230, 120);
    QTest::newRow("wider, and not less high than the place") << "diagonal" << QPoint(30, -20) << QRect(50, 40, 230, 100);
    QTest::newRow("to the edge of the window") << "diagonal" << QPoint(3000, 3000) << QRect(50, 40, 550, 428);
}

void tst_BVResizableWidget::drags()
{
    QFETCH(const QString, handle);
    QFETCH(const QPoint, way);
    Scene scene;
    QCOMPARE(scene.rect(), QRect(50, 40, 200, 100));
    QSignalSpy about(scene.m_panel, &BVResizableWidget::sigResizedAbout);
    QSignalSpy resized(scene.m_panel, &BVResizableWidget::sigResiged);
    Handle *dragged = handle == "vertical"     ? scene.m_panel->verticalHandle()
                      : handle == "horizontal" ? scene.m_panel->horizontalHandle()
                                               : scene.m_panel->diagonalHandle();
    scene.drag(dragged, way);
    QTEST(scene.rect(), "expected");
    QFETCH(const QRect, expected);
    const bool grown = expected.size() != QSize(200, 100);
    QCOMPARE(scene.m_panel->isFloating(), grown);
    QCOMPARE(about.count(), int(grown));
    QCOMPARE(resized.count(), int(grown));
    if (grown)
        QCOMPARE(about.at(0), QVariantList({QSize(200, 100), expected.size()}));
}

void tst_BVResizableWidget::dragOutAndBack()
{
    Scene scene;
    Handle *handle = scene.m_panel->diagonalHandle();
    scene.m_panel->containerWidget()->setFocus();
    scene.drag(handle, QPoint(2000, 50), false);
    Q_EMIT handle->sigMoveAbout(QSize(-1600, 0)); // the pointer is still past the edge of the window
    QCOMPARE(scene.rect(), QRect(50, 40, 550, 150));
    Q_EMIT handle->sigMoveAbout(QSize(-300, 0)); // and here at the handle again
    QCOMPARE(scene.rect(), QRect(50, 40, 300, 150));
    Q_EMIT handle->sigMoveAbout(QSize(-500, -500)); // never smaller than the place
    QCOMPARE(scene.rect(), QRect(50, 40, 200, 100));
    QVERIFY(scene.m_panel->isFloating());
    Q_EMIT handle->sigMoved();
    QVERIFY(!scene.m_panel->isFloating());
    QCOMPARE(scene.m_panel->parentWidget(), scene.m_host.data());
    QCOMPARE(scene.rect(), QRect(50, 40, 200, 100));
    QCOMPARE(scene.m_window->focusWidget(), static_cast<QWidget *>(scene.m_content));
}

void tst_BVResizableWidget::resizes_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<QPoint>("position");
    QTest::addColumn<bool>("onlyHorizontal");
    QTest::addColumn<QRect>("expected");
    const QRect place(50, 40, 200, 100);
    QTest::newRow("null") << QSize(0, 0) << QPoint(9, 9) << false << place;
    QTest::newRow("fits in the container") << QSize(190, 90) << QPoint(9, 9) << false << place;
    QTest::newRow("moved") << QSize(300, 90) << QPoint(9, 9) << false << QRect(9, 9, 300, 90);
    QTest::newRow("the height stays") << QSize(300, 300) << QPoint(9, 9) << true << QRect(9, 9, 300, 100);
    QTest::newRow("the last line that is free") << QSize(300, 300) << QPoint(9, 168) << false << QRect(9, 168, 300, 300);
    QTest::newRow("over the status bar") << QSize(300, 300) << QPoint(9, 169) << false << place;
    QTest::newRow("outside") << QSize(300, 300) << QPoint(-1, 9) << false << place;
    QTest::newRow("beyond all numbers") << QSize(INT_MAX, INT_MAX) << QPoint(INT_MAX, INT_MIN) << false << place;
}

void tst_BVResizableWidget::resizes()
{
    QFETCH(const QSize, size);
    QFETCH(const QPoint, position);
    QFETCH(const bool, onlyHorizontal);
    Scene scene;
    if (onlyHorizontal) {
        scene.m_panel->useVerticalHandle(false);
        scene.m_panel->useDiagonalHandle(false);
        scene.m_panel->setFixedHeight(100);
        QCoreApplication::processEvents();
    }
    scene.m_panel->onResize(size, position);
    QTEST(scene.rect(), "expected");
}

void tst_BVResizableWidget::widthCorrection()
{
    Scene scene;
    scene.m_panel->setHorizontalAnchorPosition(BVResizableWidget::AnchorRight);
    scene.m_panel->onResize(QSize(300, 150), QPoint(10, 10));
    QCOMPARE(scene.m_panel->width(), 300); // no last size, no correction
    scene.m_panel->saveLastSize();
    scene.m_panel->onResize(QSize(320, 150), QPoint(10, 10));
    scene.m_panel->onResize(QSize(400, 150), QPoint(10, 10));
    QCOMPARE(scene.m_panel->width(), 420); // 320 now, 300 saved
    scene.m_panel->setMaximumWidth(450);
    scene.m_panel->onResize(QSize(440, 150), QPoint(10, 10));
    QCOMPARE(scene.m_panel->mainWidget()->width(), 450);
}

void tst_BVResizableWidget::check()
{
    Scene scene;
    BVResizableWidget *panel = scene.m_panel;
    const auto possible = [panel](QObject *handle, int width, int height) { return panel->checkResizingPossible(handle, QSize(width, height)); };
    QVERIFY(possible(panel->horizontalHandle(), 1, -5) && !possible(panel->horizontalHandle(), 0, 5));
    QVERIFY(possible(panel->verticalHandle(), -5, 1) && !possible(panel->verticalHandle(), 5, 0));
    QVERIFY(possible(panel->diagonalHandle(), -5, 1) && possible(panel->diagonalHandle(), 1, -5) && !possible(panel->diagonalHandle(), 0, 0));
    QVERIFY(!possible(panel, 5, 5) && !possible(nullptr, 5, 5));
    panel->setResizingEnabled(false);
    QVERIFY(!possible(panel->diagonalHandle(), 5, 5));
    scene.drag(panel->diagonalHandle(), QPoint(30, 30));
    QVERIFY(!panel->isFloating());
    struct WithoutHandles : BVResizableWidget
    {
        Handle *createHandle(Handle::Position /*position*/) override { return nullptr; }
    } without;
    without.useDiagonalHandle(true);
    QVERIFY(!without.hasDiagonalHandle());
}

void tst_BVResizableWidget::registration()
{
    Scene scene;
    scene.m_panel->registerResizeableWidgetToMainWindow(false);
    QCOMPARE(scene.m_window->registered(), QString("+a")); // posted, with the flag true
    scene.m_panel->registerResizeableWidgetToMainWindow(true);
    QCOMPARE(scene.m_window->registered(), QString("-a"));
    scene.drag(scene.m_panel->diagonalHandle(), QPoint(30, 30));
    QCOMPARE(scene.m_window->registered(), QString("-a"));
    scene.m_panel->closeEnlarged();
    QCOMPARE(scene.m_window->registered(), QString("+a close:a"));
    scene.drag(scene.m_panel->diagonalHandle(), QPoint(30, 30));
    scene.drag(scene.m_panel->diagonalHandle(), QPoint(-30, -30));
    QCOMPARE(scene.m_window->registered(), QString("-a +a close:a")); // whatever brings it back
    delete scene.m_content;
    scene.m_panel->registerResizeableWidgetToMainWindow(false);
    QCOMPARE(scene.m_window->registered(), QString("+a()"));
    qApp->setProperty("MainWindow", QVariant());
    QVERIFY(!BVResizableWidget::getMainWindow());
    scene.m_panel->registerResizeableWidgetToMainWindow(true);
    scene.m_panel->registerResizeableWidgetToMainWindow(false);
    QCOMPARE(scene.m_window->registered(), QString());
}

/// What is taken back before it arrives tells nothing; what others have posted arrives.
void tst_BVResizableWidget::crossingEvents()
{
    Scene scene;
    auto *gone = new BVResizableWidget(scene.m_host);
    gone->setObjectName("b");
    gone->registerResizeableWidgetToMainWindow(false);
    scene.m_panel->registerResizeableWidgetToMainWindow(false);
    delete gone;
    QCOMPARE(scene.m_window->registered(), QString("-b() +null() +a"));
    scene.m_panel->registerResizeableWidgetToMainWindow(false);
    scene.drag(scene.m_panel->diagonalHandle(), QPoint(30, 30));
    QCOMPARE(scene.m_window->registered(), QString("-a +null()"));
}

void tst_BVResizableWidget::enlarge()
{
    Scene scene;
    BVResizableWidget *panel = scene.m_panel;
    QSignalSpy enlarged(panel, &BVResizableWidget::sigEnlargedChanged);
    QTest::mouseDClick(panel->verticalHandle(), Qt::LeftButton);
    QCOMPARE(scene.rect(), QRect(50, 40, 550, 428));
    QVERIFY(panel->isEnlarged());
    QTest::keyClick(panel->verticalHandle(), Qt::Key_Return);
    QVERIFY(!panel->isEnlarged() && !panel->isFloating()); // it was embedded before
    scene.drag(panel->diagonalHandle(), QPoint(30, 30));
    panel->onToggleEnlarge();
    panel->onToggleEnlarge();
    QCOMPARE(scene.rect(), QRect(50, 40, 230, 130));
    QCOMPARE(enlarged.count(), 4);
    panel->onToggleEnlarge();
    scene.drag(panel->diagonalHandle(), QPoint(-30, -30));
    QVERIFY(!panel->isEnlarged()); // a size of its own
    panel->onToggleEnlarge();
    panel->closeEnlarged();
    QVERIFY(!panel->isEnlarged() && !panel->isFloating());
}

void tst_BVResizableWidget::cancel()
{
    Scene scene;
    const QPoint at = scene.m_panel->diagonalHandle()->mapToGlobal(QPoint(5, 5));
    const auto mouse = [&](QEvent::Type type, const QPoint &global) {
        Handle *handle = scene.m_panel->diagonalHandle();
        QMouseEvent event(type, handle->mapFromGlobal(global), global, Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(handle, &event);
    };
    for (const QSize &before : {QSize(200, 100), QSize(260, 140)}) {
        mouse(QEvent::MouseButtonPress, at);
        mouse(QEvent::MouseMove, at + QPoint(50, 50));
        QVERIFY(scene.m_panel->isFloating() && scene.m_panel->size() == before + QSize(50, 50));
        QTest::keyClick(scene.m_window.get(), Qt::Key_Escape);
        mouse(QEvent::MouseMove, at + QPoint(90, 90));
        mouse(QEvent::MouseButtonRelease, at + QPoint(90, 90));
        QCOMPARE(scene.rect(), QRect(QPoint(50, 40), before));
        QCOMPARE(scene.m_panel->isFloating(), before.width() == 260);
        scene.drag(scene.m_panel->diagonalHandle(), QPoint(60, 40));
    }
    scene.drag(scene.m_panel->diagonalHandle(), QPoint(250, 200));
    mouse(QEvent::MouseButtonPress, at);
    mouse(QEvent::MouseMove, at - QPoint(50, 50));
    scene.m_window->resize(500, 300);
    QTest::keyClick(scene.m_window.get(), Qt::Key_Escape);
    QCOMPARE(scene.rect(), QRect(0, 0, 500, 268)); // not as large as the window was
}

/// What is on its way back does not float, and Escape undoes a drag of that.
void tst_BVResizableWidget::cancelOnTheWayBack()
{
    Scene scene;
    scene.m_panel->onToggleEnlarge();
    QVERIFY(scene.m_panel->isEnlarged());
    qApp->setStyle(QStyleFactory::create("fusion")); // with animations
    scene.m_panel->onToggleEnlarge();
    QVERIFY(scene.m_panel->mainWidget()->isReturning());
    Handle *handle = scene.m_panel->diagonalHandle();
    QTest::mousePress(handle, Qt::LeftButton);
    Q_EMIT handle->sigMoveAbout(QSize(40, 40));
    QTest::keyClick(handle, Qt::Key_Escape);
    qApp->setStyle(new Still);
    QVERIFY(!scene.m_panel->isFloating());
}

void tst_BVResizableWidget::places_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<bool>("floats");
    QTest::newRow("layout") << "layout" << true;
    QTest::newRow("layout in a layout") << "nested" << true;
    QTest::newRow("splitter") << "splitter" << true;
    QTest::newRow("no layout") << "none" << true;
    QTest::newRow("page of a stack") << "stack" << true;
    QTest::newRow("scrolled widget") << "scroll" << false;
    QTest::newRow("central widget") << "central" << false;
    QTest::newRow("window") << "window" << false;
    QTest::newRow("dock") << "dock" << true;
    QTest::newRow("tab") << "tab" << true;
    QTest::newRow("splitter that is the window") << "pane" << false;
}

void tst_BVResizableWidget::places()
{
    QFETCH(const QString, kind);
    Window window;
    auto *panel = new BVResizableWidget;
    const std::unique_ptr<BVResizableWidget> owner(kind == "window" ? panel : nullptr);
    auto *host = new QWidget;
    QSplitter panes;
    panes.addWidget(new QLabel("beside"));
    auto *tabs = new QTabWidget;
    auto *splitter = new QSplitter;
    auto *stack = new QStackedWidget;
    auto *scroll = new QScrollArea;
    auto *outer = new QVBoxLayout(host);
    for (QWidget *widget : {static_cast<QWidget *>(splitter), static_cast<QWidget *>(stack), static_cast<QWidget *>(scroll), static_cast<QWidget *>(tabs)})
        outer->addWidget(widget);
    window.setCentralWidget(host);
    auto *plain = new QWidget(host);
    outer->addWidget(plain);
    plain->setMinimumHeight(50);
    if (kind == "layout") {
        outer->insertWidget(1, panel);
    } else if (kind == "nested") {
        auto *inner = new QHBoxLayout;
        outer->addLayout(inner);
        inner->addWidget(panel);
        inner->addWidget(new QLabel("beside"));
    } else if (kind == "splitter") {
        splitter->addWidget(new QLabel("beside"));
        splitter->addWidget(panel);
        splitter->addWidget(new QLabel("behind"));
    } else if (kind == "none") {
        panel->setParent(plain);
        panel->setGeometry(3, 4, 30, 20);
    } else if (kind == "stack") {
        stack->addWidget(panel);
    } else if (kind == "scroll") {
        scroll->setWidget(panel);
    } else if (kind == "tab") {
        tabs->addTab(panel, "panel");
    } else if (kind == "dock") {
        auto *dock = new QDockWidget;
        dock->setWidget(panel);
        window.addDockWidget(Qt::BottomDockWidgetArea, dock);
    } else if (kind == "pane") {
        panes.addWidget(panel);
        panes.resize(600, 500);
        panes.show();
    } else if (kind == "central") {
        window.setCentralWidget(panel);
    }
    panel->setMinimumSize(20, 20);
    window.show();
    panel->show();
    QCoreApplication::processEvents();
    const QRect before = panel->geometry();
    const QWidget *parent = panel->parentWidget();
    panel->onResize(panel->size() + QSize(1, 1), QPoint(10, 10)); // all sizes have to fit in the window
    if (kind != "window" && kind != "central" && kind != "pane")
        panel->onResize(QSize(500, 400), QPoint(10, 10));
    QTEST(panel->isFloating(), "floats");
    QCoreApplication::processEvents();
    panel->closeEnlarged();
    QCoreApplication::processEvents();
    QCOMPARE(panel->parentWidget(), parent);
    QCOMPARE(panel->geometry(), before);
    QVERIFY(panel->isVisible());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!window.findChild<MainWidget *>());
    QCOMPARE(panes.count(), kind == "pane" ? 2 : 1);
}

void tst_BVResizableWidget::followsPlace()
{
    Scene scene;
    scene.m_panel->setPropertyOfMainWidget("look", "dark");
    scene.drag(scene.m_panel->diagonalHandle(), QPoint(30, 30));
    MainWidget *main = scene.m_panel->mainWidget();
    QCOMPARE(main->parentWidget(), static_cast<QWidget *>(scene.m_window.get()));
    QCOMPARE(main->property("look").toString(), QString("dark"));
    scene.m_host->hide();
    QVERIFY(!scene.m_panel->isVisible());
    scene.m_host->show();
    QVERIFY(scene.m_panel->isVisible());
    scene.m_host->setEnabled(false);
    QVERIFY(!scene.m_panel->isEnabled());
    scene.m_host->setEnabled(true);
    scene.m_host->setFont(QFont("Mono", 21));
    QPalette palette;
    palette.setColor(QPalette::Base, Qt::yellow);
    scene.m_host->setPalette(palette);
    QCOMPARE(scene.m_content->font().pointSize(), 21);
    QCOMPARE(scene.m_content->palette().color(QPalette::Base), QColor(Qt::yellow));
    scene.m_panel->hide();
    QVERIFY(!main->isVisible());
    scene.m_panel->show();
    QVERIFY(main->isVisible() && scene.m_panel->isEnabled());
    auto *sibling = new QWidget(scene.m_window.get());
    sibling->setGeometry(scene.m_window->rect());
    sibling->show();
    QCOMPARE(scene.m_window->childAt(60, 50), static_cast<QWidget *>(scene.m_panel)); // above siblings
    QWidget other;
    scene.m_host->setParent(&other); // the form has gone elsewhere
    QTRY_VERIFY(!scene.m_panel->isFloating());
    QCOMPARE(scene.m_panel->window(), &other);
    delete scene.m_host;
}

/// A dock becomes a window and none without another parent; the panel is never left in the wrong one.
void tst_BVResizableWidget::dock()
{
    Scene scene;
    auto *dock = new QDockWidget;
    scene.m_window->addDockWidget(Qt::LeftDockWidgetArea, dock);
    dock->setWidget(scene.m_window->takeCentralWidget());
    for (const bool undocked : {true, false}) {
        QCoreApplication::processEvents();
        scene.m_panel->onResize(scene.m_panel->size() + QSize(5, 5), QPoint(1, 40));
        QCOMPARE(scene.m_panel->mainWidget()->parentWidget(), undocked ? static_cast<QWidget *>(scene.m_window.get()) : dock);
        dock->setFloating(undocked);
        QTRY_VERIFY(!scene.m_panel->isFloating());
        QCOMPARE(scene.m_panel->parentWidget(), scene.m_host.data());
        QTRY_VERIFY(scene.m_panel->isVisible());
    }
}

/// Whatever comes into the window leaves the order of the panels as it is.
void tst_BVResizableWidget::order()
{
    Scene scene;
    auto *other = new BVResizableWidget(scene.m_host);
    other->setContainerWidget(new QLabel("other"));
    other->setGeometry(300, 300, 50, 50);
    other->show();
    scene.m_panel->onResize(QSize(300, 300), QPoint(20, 20));
    other->useDiagonalHandle(true);
    other->onResize(QSize(300, 300), QPoint(60, 60));
    const auto isOtherOnTop = [&] { return other->isAncestorOf(scene.m_window->childAt(100, 100)); };
    QVERIFY(isOtherOnTop());
    new QTimer(scene.m_window.get());
    QVERIFY(isOtherOnTop());
    auto *sibling = new QWidget(scene.m_window.get());
    sibling->setGeometry(scene.m_window->rect());
    sibling->show();
    QVERIFY(isOtherOnTop());
    scene.m_panel->mainWidget()->raise();
    new QDialog(scene.m_window.get());
    new QWidget(scene.m_window.get());
    QVERIFY(!isOtherOnTop() && scene.m_panel->isAncestorOf(scene.m_window->childAt(100, 100)));
}

/// One that floats again before the main window has heard of its end has not been closed.
void tst_BVResizableWidget::floatsAgain()
{
    Scene scene;
    scene.drag(scene.m_panel->diagonalHandle(), QPoint(30, 30));
    scene.m_window->registered();
    const auto connection = connect(scene.m_panel, &BVResizableWidget::sigFloatingChanged, [&](bool floating) {
        if (!floating)
            scene.m_panel->onResize(QSize(300, 250), QPoint(20, 20));
    });
    scene.m_panel->closeEnlarged();
    disconnect(connection);
    QVERIFY(scene.m_panel->isFloating());
    QVERIFY(!scene.m_window->registered().contains("close"));
}

void tst_BVResizableWidget::movedElsewhere()
{
    Scene scene;
    QWidget other;
    scene.drag(scene.m_panel->diagonalHandle(), QPoint(30, 30));
    scene.m_window->registered();
    QSignalSpy floating(scene.m_panel, &BVResizableWidget::sigFloatingChanged);
    (new QVBoxLayout(&other))->addWidget(scene.m_panel);
    QVERIFY(!scene.m_panel->isFloating() && !scene.m_panel->isEnlarged());
    QCOMPARE(floating.count(), 1);
    QCOMPARE(scene.m_window->registered(), QString("+a close:a"));
    QCOMPARE(scene.m_host->findChildren<QWidget *>().size(), 0); // nothing keeps the place
    other.show();
    QVERIFY(scene.m_panel->isVisible());
}

/// The panel goes, or is closed, where it tells of itself while it floats already.
void tst_BVResizableWidget::endsInSignal_data()
{
    QTest::addColumn<QString>("how");
    QTest::addColumn<bool>("deletes");
    for (const char *how : {"about", "resized", "enlarged", "escape"}) {
        QTest::addRow("%s, deleted", how) << how << true;
        QTest::addRow("%s, closed", how) << how << false;
    }
}

void tst_BVResizableWidget::endsInSignal()
{
    QFETCH(const QString, how);
    QFETCH(const bool, deletes);
    Scene scene;
    scene.m_panel->onResize(QSize(300, 250), QPoint(20, 20));
    if (how == "escape")
        scene.m_panel->onToggleEnlarge();
    Handle *handle = scene.m_panel->diagonalHandle();
    const QPoint at = handle->mapToGlobal(QPoint(5, 5));
    const auto mouse = [&](QEvent::Type type, const QPoint &global) {
        QMouseEvent event(type, handle->mapFromGlobal(global), global, Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(handle, &event);
    };
    if (how == "escape") {
        mouse(QEvent::MouseButtonPress, at);
        mouse(QEvent::MouseMove, at - QPoint(50, 50));
    }
    bool isFirst = true;
    const auto end = [&] {
        if (!std::exchange(isFirst, false))
            return;
        if (deletes)
            delete scene.m_panel;
        else
            scene.m_panel->closeEnlarged();
    };
    if (how == "about")
        connect(scene.m_panel, &BVResizableWidget::sigResizedAbout, end);
    else if (how == "resized")
        connect(scene.m_panel, &BVResizableWidget::sigResiged, end);
    else
        connect(scene.m_panel, &BVResizableWidget::sigEnlargedChanged, end);
    if (how == "escape")
        QTest::keyClick(scene.m_window.get(), Qt::Key_Escape);
    else
        scene.m_panel->onToggleEnlarge();
    QCOMPARE(bool(scene.m_panel), !deletes);
    QVERIFY(!scene.m_panel || !scene.m_panel->isFloating());
}

void tst_BVResizableWidget::windowShrinks()
{
    Scene scene;
    scene.drag(scene.m_panel->diagonalHandle(), QPoint(350, 300));
    const QRect rect = scene.rect();
    scene.m_window->resize(500, 300);
    QCOMPARE(scene.rect(), QRect(50, 0, 450, 268)); // with the right edge of the place
    scene.m_window->resize(600, 500);
    QCOMPARE(scene.rect(), rect);
    scene.m_window->resize(700, 600);
    QCOMPARE(scene.rect(), rect.adjusted(0, 0, 100, 0));
    scene.m_host->hide();
    scene.m_window->resize(600, 500);
    scene.m_host->show();
    QCOMPARE(scene.rect(), rect);
}

void tst_BVResizableWidget::deletions_data()
{
    QTest::addColumn<QString>("first");
    QTest::addColumn<QString>("second");
    const char *const names[] = {"host", "panel", "main", "content", "window"};
    for (const char *first : names) {
        for (const char *second : names)
            QTest::addRow("%s, %s", first, second) << first << second;
    }
}

void tst_BVResizableWidget::deletions()
{
    Scene scene;
    scene.drag(scene.m_panel->diagonalHandle(), QPoint(30, 30), false);
    QPointer<MainWidget> main = scene.m_panel->mainWidget();
    for (const char *column : {"first", "second"}) {
        const QString name = *static_cast<QString *>(QTest::qData(column, QMetaType::QString));
        if (name == "window")
            scene.m_window.reset();
        else
            delete (name == "host"    ? scene.m_host.data()
                    : name == "panel" ? scene.m_panel.data()
                    : name == "main"  ? main.data()
                                      : static_cast<QWidget *>(scene.m_content));
        QVERIFY(name == "content" || !scene.m_panel);
        QCoreApplication::processEvents();
    }
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(scene.m_panel || !main); // the container leaves with its panel
}

void tst_BVResizableWidget::storedState()
{
    QByteArray floating;
    QByteArray enlarged;
    QByteArray embedded;
    {
        Scene scene;
        embedded = scene.m_panel->saveState();
        scene.drag(scene.m_panel->diagonalHandle(), QPoint(300, 200));
        floating = scene.m_panel->saveState();
        scene.m_panel->onToggleEnlarge();
        enlarged = scene.m_panel->saveState();
    }
    Scene scene;
    QVERIFY(scene.m_panel->restoreState(floating));
    QCOMPARE(scene.rect(), QRect(50, 40, 500, 300));
    QVERIFY(scene.m_panel->restoreState(enlarged));
    QVERIFY(scene.m_panel->isEnlarged());
    scene.m_panel->onToggleEnlarge();
    QCOMPARE(scene.rect(), QRect(50, 40, 500, 300));
    scene.m_panel->setMaximumSize(480, 290);
    scene.m_panel->setMinimumSize(230, 120);
    QVERIFY(scene.m_panel->restoreState(enlarged));
    QCOMPARE(scene.m_panel->size(), QSize(480, 290));
    QVERIFY(scene.m_panel->restoreState(embedded));
    QVERIFY(!scene.m_panel->isFloating());
    QByteArray tiny = floating;
    tiny.replace(7, 16, QByteArray("\0\0\0\5\0\0\0\5\0\0\0\6\0\0\0\6", 16)); // two pixels each way
    QVERIFY(scene.m_panel->restoreState(tiny));
    QCOMPARE(scene.m_panel->size(), QSize(230, 120));
    scene.m_panel->setMinimumSize(0, 0);
    scene.m_panel->setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
    QVERIFY(scene.m_panel->restoreState(embedded));
    scene.m_window->hide();
    scene.m_window->resize(450, 300);
    QVERIFY(scene.m_panel->restoreState(floating)); // waits until it can be seen
    QCOMPARE(scene.m_panel->saveState(), floating);
    scene.m_window->show();
    QTRY_VERIFY(scene.m_panel->isFloating());
    QCOMPARE(scene.rect(), QRect(0, 0, 450, 268));
}

void tst_BVResizableWidget::badState_data()
{
    QTest::addColumn<QByteArray>("state");
    Scene scene;
    scene.drag(scene.m_panel->diagonalHandle(), QPoint(300, 200));
    const QByteArray good = scene.m_panel->saveState();
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("cut off") << good.chopped(1);
    QTest::newRow("with more behind") << good + 'x';
    QTest::newRow("of another kind") << "X" + good.mid(1);
    QTest::newRow("far out") << good.left(7) + "\x7f" + good.mid(8);
    QTest::newRow("embedded and enlarged") << good.left(4) + QByteArray("\0\1", 2) + good.mid(6);
}

void tst_BVResizableWidget::badState()
{
    QFETCH(const QByteArray, state);
    Scene scene;
    QVERIFY(!scene.m_panel->restoreState(state));
    QVERIFY(!scene.m_panel->isFloating());
}

void tst_BVResizableWidget::scrollArea()
{
    Scene scene;
    scene.m_content->setMinimumSize(300, 300);
    scene.m_panel->setStyleSheet("BVResizableWidget[scrollArea=\"true\"] { min-width: 180px; }");
    scene.m_panel->useScrollArea(true);
    QTRY_COMPARE(scene.m_panel->minimumWidth(), 180); // by the sheet, which hears of the property
    QVERIFY(scene.m_panel->minimumSizeHint().height() < 300);
    QVERIFY(scene.m_panel->findChild<QScrollArea *>()->isAncestorOf(scene.m_content));
    scene.m_panel->useScrollArea(false);
    QVERIFY(!scene.m_panel->findChild<QScrollArea *>());
    QCOMPARE(scene.m_content->parentWidget(), static_cast<QWidget *>(scene.m_panel));
    QVERIFY(scene.m_content->isVisible());
    auto *other = new QLabel("other");
    scene.m_panel->useScrollArea(true);
    scene.m_panel->setContainerWidget(other);
    QVERIFY(!scene.m_content && other->isVisible()); // the former one is gone
    BVResizableWidget second;
    second.setContainerWidget(other);
    scene.m_panel->setContainerWidget(new QLabel("third"));
    QCOMPARE(second.containerWidget(), other); // it belongs to the second one now
    QPointer<QWidget> taken = scene.m_panel->containerWidget();
    taken->setParent(&second);
    scene.m_panel->useScrollArea(!scene.m_panel->hasScrollArea());
    QCOMPARE(taken->parentWidget(), &second);
}

void tst_BVResizableWidget::directions()
{
    Scene scene;
    BVResizableWidget *panel = scene.m_panel;
    QCOMPARE(panel->diagonalHandle()->position(), Handle::BottomRightCorner);
    scene.m_window->setLayoutDirection(Qt::RightToLeft);
    QCOMPARE(panel->diagonalHandle()->position(), Handle::BottomLeftCorner);
    QCoreApplication::processEvents();
    QCOMPARE(panel->diagonalHandle()->geometry(), QRect(0, 90, 10, 10));
    const QRect place = scene.rect();
    scene.drag(panel->diagonalHandle(), QPoint(30, 20));
    QCOMPARE(scene.rect(), place.adjusted(-30, 0, 0, 20));
    QVERIFY(panel->isRightToLeft());
    panel->setVerticalAnchorPosition(BVResizableWidget::AnchorBottom);
    panel->setHorizontalAnchorPosition(BVResizableWidget::AnchorRight);
    QCOMPARE(panel->diagonalHandle()->position(), Handle::TopRightCorner);
}

QTEST_MAIN(tst_BVResizableWidget)

#include "tst_bvresizablewidget.moc"
