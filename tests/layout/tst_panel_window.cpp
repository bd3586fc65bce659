// SPDX-License-Identifier: MIT
#include "layout/BVResizableWidget.h"
#include "layout/MainWidget.h"
#include "style/StyleSheetHandler.h"

#include "XdoTool.h"

#include <QApplication>
#include <QLabel>
#include <QMainWindow>
#include <QPushButton>
#include <QTest>
#include <QTextEdit>
#include <QVBoxLayout>

#include <memory>

/// A panel dragged over its form with the pointer and keys from outside.
class tst_PanelWindow : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
    void dragFloatsAndReturns();
    void doubleClick();
    void escape();
    void windowShrinks();

private:
    bool drag(const QPoint &way, const std::function<bool()> &beforeRelease = {});
    bool isAt(const QSize &size) const { return m_panel->size() == size && !m_panel->mainWidget()->isAnimating(); }

    std::unique_ptr<QMainWindow> m_window;
    QPointer<BVResizableWidget> m_panel;
    QPushButton *m_button = nullptr; // under the panel when that has grown
    QSize m_place;
    int m_clicks = 0;
};

void tst_PanelWindow::initTestCase()
{
    qApp->setStyle("Fusion");
    qApp->setStyleSheet(Brimvale::StyleSheetHandler::load());
}

void tst_PanelWindow::init()
{
    m_window = std::make_unique<QMainWindow>();
    auto *form = new QWidget;
    auto *layout = new QVBoxLayout(form);
    m_panel = new BVResizableWidget;
    m_panel->setContainerWidget(new QTextEdit("Rolling direction 0 deg"));
    m_panel->useDiagonalHandle(true);
    m_panel->useVerticalHandle(true);
    m_panel->setFixedSize(260, 120);
    layout->addWidget(m_panel);
    m_panel->setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
    m_panel->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    m_button = new QPushButton("Below");
    m_clicks = 0;
    connect(m_button, &QPushButton::clicked, this, [this] { ++m_clicks; });
    layout->addWidget(m_button, 0, Qt::AlignLeft);
    layout->addStretch();
    m_window->setCentralWidget(form);
    m_window->resize(700, 500);
    qApp->setProperty("MainWindow", QVariant::fromValue<QWidget *>(m_window.get()));
    QVERIFY(XdoTool::showActive(m_window.get()));
    m_place = m_panel->size();
}

void tst_PanelWindow::cleanup()
{
    m_window.reset();
    qApp->setProperty("MainWindow", QVariant());
}

bool tst_PanelWindow::drag(const QPoint &way, const std::function<bool()> &beforeRelease)
{
    const BVResizableWidgetHandle *handle = m_panel->diagonalHandle();
    const QPoint from = handle->mapTo(m_window.get(), handle->rect().center());
    return XdoTool::drag(m_window.get(), {from, from + way}, beforeRelease);
}

void tst_PanelWindow::dragFloatsAndReturns()
{
    QVERIFY(drag(QPoint(120, 90)));
    QTRY_VERIFY(m_panel->isFloating() && isAt(m_place + QSize(120, 90)));
    QCOMPARE(m_panel->window(), static_cast<QWidget *>(m_window.get()));
    QVERIFY(XdoTool::click(m_button)); // the panel lies over it
    QVERIFY(XdoTool::typeText("90"));
    QTRY_VERIFY(m_panel->findChild<QTextEdit *>()->toPlainText().contains("90"));
    QCOMPARE(m_clicks, 0);
    QVERIFY(drag(QPoint(-200, -200)));
    QTRY_VERIFY(!m_panel->isFloating());
    QTRY_COMPARE(m_panel->size(), m_place);
    QVERIFY(XdoTool::click(m_button));
    QTRY_COMPARE(m_clicks, 1);
}

void tst_PanelWindow::doubleClick()
{
    const auto doubleClick = [this] {
        const BVResizableWidgetHandle *handle = m_panel->verticalHandle();
        return XdoTool::movePointer(handle, handle->rect().center()) && XdoTool::run({"click", "--repeat", "2", "1"});
    };
    QVERIFY(doubleClick());
    QTRY_VERIFY(m_panel->isEnlarged() && !m_panel->mainWidget()->isAnimating());
    QVERIFY(m_panel->mainWidget()->geometry().bottom() < m_window->height() - 32);
    QVERIFY(XdoTool::pressKey("space")); // the handle has the keyboard, as it has been clicked
    QTRY_VERIFY(!m_panel->isFloating());
    QTRY_COMPARE(m_panel->size(), m_place);
}

void tst_PanelWindow::escape()
{
    QVERIFY(drag(QPoint(100, 80), [this] {
        return m_panel->isFloating() && XdoTool::pressKey("Escape") && QTest::qWaitFor([this] { return !m_panel->isFloating(); });
    }));
    QCOMPARE(m_panel->size(), m_place);
    QVERIFY(drag(QPoint(100, 80))); // and it can be dragged again
    QTRY_VERIFY(m_panel->isFloating() && isAt(m_place + QSize(100, 80)));
}

void tst_PanelWindow::windowShrinks()
{
    QVERIFY(drag(QPoint(300, 200)));
    QTRY_VERIFY(m_panel->isFloating() && isAt(m_place + QSize(300, 200)));
    m_window->resize(400, 300);
    QTRY_COMPARE(m_window->size(), QSize(400, 300));
    QTRY_VERIFY(m_panel->fitToMainWindow(m_panel->mainWidget()->geometry()));
    QCOMPARE(m_panel->mainWidget()->width(), 400);
}

QTEST_MAIN(tst_PanelWindow)

#include "tst_panel_window.moc"
