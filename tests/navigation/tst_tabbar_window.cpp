// SPDX-License-Identifier: MIT
#include "navigation/BVAnimatedTabBar.h"
#include "style/StyleSheetHandler.h"

#include "XdoTool.h"

#include <QApplication>
#include <QMenu>
#include <QTest>
#include <QTimer>
#include <QToolTip>
#include <QVBoxLayout>

#include <memory>

/// A bar of twelve tabs with menu buttons in a window that shows some of them.
class tst_TabBarWindow : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup() { m_window.reset(); }
    void menuClosesOnItsButton();
    void scrolls();
    void wheelNeedsFocus();
    void toolTip();

private:
    QPoint menuButton(int index) const;

    std::unique_ptr<QWidget> m_window;
    BVAnimatedTabBar *m_bar = nullptr;
};

void tst_TabBarWindow::initTestCase()
{
    qApp->setStyle("Fusion");
    qApp->setStyleSheet(Brimvale::StyleSheetHandler::load());
}

void tst_TabBarWindow::init()
{
    m_window = std::make_unique<QWidget>();
    auto *layout = new QVBoxLayout(m_window.get());
    m_bar = new BVAnimatedTabBar;
    layout->addWidget(m_bar);
    layout->addStretch();
    for (int i = 0; i < 12; ++i)
        m_bar->useMenuButton(m_bar->addTab(QStringLiteral("Operation %1").arg(i)), true);
    m_window->resize(500, 200);
    QVERIFY(XdoTool::showActive(m_window.get()));
    m_bar->setFocus();
}

QPoint tst_TabBarWindow::menuButton(int index) const
{
    const QRect tab = m_bar->getTabRect(index);
    return QPoint(tab.right() - 14, tab.center().y());
}

void tst_TabBarWindow::menuClosesOnItsButton()
{
    QMenu menu;
    for (int i = 0; i < 3; ++i)
        menu.addAction("An action");
    int requests = 0;
    connect(m_bar, &BVAnimatedTabBar::menuButtonClicked, &menu, [&](int index) {
        ++requests;
        m_bar->showMenu(index, menu);
    });
    QPoint corner;
    bool clicked = false;
    QTimer poll; // the menu has an event loop of its own
    poll.callOnTimeout([&] {
        if (!menu.isVisible() || clicked)
            return;
        clicked = true;
        corner = menu.pos();
        XdoTool::clickAt(m_bar, menuButton(0));
    });
    poll.start(20);
    QVERIFY(XdoTool::clickAt(m_bar, menuButton(0)));
    QTRY_VERIFY(clicked && !menu.isVisible());
    QVERIFY((corner - m_bar->mapToGlobal(menuButton(0))).manhattanLength() < 30);
    QTest::qWait(300); // longer than a menu keeps one waiting
    QCOMPARE(requests, 1);
}

void tst_TabBarWindow::scrolls()
{
    const int right = m_bar->width() - 1;
    QVERIFY(XdoTool::clickAt(m_bar, QPoint(right - 8, 15))); // the arrow
    QTRY_VERIFY(m_bar->getTabRect(0).left() < 0);
    QCOMPARE(m_bar->currentIndex(), 0);
    const QPoint tab = m_bar->getTabRect(2).center();
    QVERIFY(XdoTool::drag(m_bar, {tab, QPoint(right + 5, 15)},
                          [&] { return QTest::qWaitFor([&] { return m_bar->getTabRect(11).right() <= right; }, 10000); }));
    QTRY_COMPARE(m_bar->currentIndex(), 2);
    QVERIFY(m_bar->getTabRect(11).right() <= right); // stays where it has been scrolled
}

void tst_TabBarWindow::wheelNeedsFocus()
{
    QVERIFY(XdoTool::scroll(m_bar, -2));
    QTRY_COMPARE(m_bar->currentIndex(), 2);
    m_bar->clearFocus();
    QVERIFY(XdoTool::scroll(m_bar, -1));
    QVERIFY(XdoTool::clickAt(m_bar, m_bar->getTabRect(1).center()));
    QTRY_COMPARE(m_bar->currentIndex(), 1);
}

void tst_TabBarWindow::toolTip()
{
    m_bar->setItemText(0, "An operation with a text that does not fit");
    QVERIFY(XdoTool::movePointer(m_bar, m_bar->getTabRect(0).center()));
    QTRY_COMPARE(QToolTip::text(), QString("An operation with a text that does not fit"));
    QVERIFY(XdoTool::movePointer(m_bar, QPoint(100, 150)));
    QTRY_VERIFY(!QToolTip::isVisible());
}

QTEST_MAIN(tst_TabBarWindow)
#include "tst_tabbar_window.moc"
