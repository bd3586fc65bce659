// SPDX-License-Identifier: MIT
#include "layout/BVResizeWidget.h"

#include "TestSupport.h"
#include "XdoTool.h"

#include <QGridLayout>
#include <QTest>

#include <memory>

constexpr int s_minimum = 200; // px, for both directions

Q_DECLARE_METATYPE(QMargins)

/// A main window without a frame that the pointer resizes by its grips.
class tst_GripWindow : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void drag_data();
    void drag();

private:
    std::unique_ptr<QMainWindow> m_window;
    BVResizeWidget *m_grips[8] = {};
};

void tst_GripWindow::init()
{
    m_window = std::make_unique<QMainWindow>(nullptr, Qt::FramelessWindowHint);
    m_window->setMinimumSize(s_minimum, s_minimum);
    auto *content = new QWidget;
    auto *layout = new QGridLayout(content);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->setRowStretch(1, 1);
    layout->setColumnStretch(1, 1);
    using G = BVResizeWidget;
    // Clockwise around the window from the middle of the left edge, as the types are numbered.
    const QPoint cells[] = {{0, 1}, {0, 0}, {1, 0}, {2, 0}, {2, 1}, {2, 2}, {1, 2}, {0, 2}};
    for (int type = G::left; type <= G::bottomLeft; ++type) {
        m_grips[type] = new G;
        m_grips[type]->setResizeType(G::ResizeType(type));
        m_grips[type]->setWindow(m_window.get());
        layout->addWidget(m_grips[type], cells[type].y(), cells[type].x());
    }
    m_window->setCentralWidget(content);
}

void tst_GripWindow::drag_data()
{
    QTest::addColumn<BVResizeWidget::ResizeType>("type");
    QTest::addColumn<QSize>("size");
    QTest::addColumn<QPoint>("way");
    QTest::addColumn<QMargins>("growth");

    using G = BVResizeWidget;
    const QSize large(400, 300);
    const QSize small(s_minimum, s_minimum);
    QTest::newRow("left") << G::left << large << QPoint(-60, 30) << QMargins(60, 0, 0, 0);
    QTest::newRow("top") << G::top << large << QPoint(30, 40) << QMargins(0, -40, 0, 0);
    QTest::newRow("right") << G::right << large << QPoint(-60, 30) << QMargins(0, 0, -60, 0);
    QTest::newRow("bottom") << G::bottom << large << QPoint(30, 40) << QMargins(0, 0, 0, 40);
    QTest::newRow("top left") << G::topLeft << large << QPoint(-50, -40) << QMargins(50, 40, 0, 0);
    QTest::newRow("top right") << G::topRight << large << QPoint(50, -40) << QMargins(0, 40, 50, 0);
    QTest::newRow("bottom right") << G::bottomRight << large << QPoint(50, 40) << QMargins(0, 0, 50, 40);
    QTest::newRow("bottom left") << G::bottomLeft << large << QPoint(50, 40) << QMargins(-50, 0, 0, 40);

    QTest::newRow("left at the smallest width") << G::left << small << QPoint(120, 0) << QMargins();
    QTest::newRow("top at the smallest height") << G::top << small << QPoint(0, 120) << QMargins();
    QTest::newRow("top left at the smallest size") << G::topLeft << small << QPoint(120, 120) << QMargins();
    QTest::newRow("right at the smallest width") << G::right << small << QPoint(-120, 0) << QMargins();
    QTest::newRow("left past the smallest width") << G::left << large << QPoint(350, 0) << QMargins(-200, 0, 0, 0);
    QTest::newRow("top past the smallest height") << G::top << large << QPoint(0, 250) << QMargins(0, -100, 0, 0);
}

void tst_GripWindow::drag()
{
    QFETCH(const BVResizeWidget::ResizeType, type);
    QFETCH(const QSize, size);
    QFETCH(const QPoint, way);
    QFETCH(const QMargins, growth);
    m_window->setGeometry(QRect(QPoint(400, 400), size));
    QVERIFY(XdoTool::showActive(m_window.get()));
    QTRY_COMPARE(m_window->geometry(), QRect(QPoint(400, 400), size));
    EventCounter releases(m_grips[type], QEvent::MouseButtonRelease);
    const auto place = [](int middle, int extent) { return middle < 9 ? 0 : middle < extent - 9 ? middle : extent; };
    const QPoint press = m_grips[type]->mapTo(m_window.get(), m_grips[type]->rect().center());
    const QPoint edge(place(press.x(), size.width()), place(press.y(), size.height()));
    QVERIFY(XdoTool::drag(m_window.get(), {press, edge + way})); // the edge goes to the cursor
    QTRY_COMPARE(releases.count(), 1);
    QTRY_COMPARE(m_window->geometry(), QRect(QPoint(400, 400), size) + growth);
}

QTEST_MAIN(tst_GripWindow)

#include "tst_grip_window.moc"
