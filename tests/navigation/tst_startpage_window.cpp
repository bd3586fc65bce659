// SPDX-License-Identifier: MIT
#include "controls/BVLineEdit.h"
#include "itemviews/BVDragTreeWidget.h"
#include "navigation/BVControlledStackItem.h"
#include "navigation/BVControlledStackWidget.h"
#include "navigation/BVStackAnimationWidget.h"
#include "navigation/BVStackControllerWidget.h"
#include "navigation/BVStackStartPage.h"
#include "style/StyleSheetHandler.h"

#include "XdoTool.h"

#include <QAction>
#include <QApplication>
#include <QHBoxLayout>
#include <QTest>

#include <memory>

namespace {

/// An empty stack whose start page adds the pages a and b, and a line to type in; F5 adds b, too.
/// A flight lasts until it is ended.
struct Scene
{
    Scene()
    {
        auto *layout = new QHBoxLayout(&m_window);
        layout->addWidget(m_controller);
        layout->addWidget(m_stack);
        layout->addWidget(m_line);
        layout->addWidget(m_target);
        for (const QString name : {"a", "b"}) {
            auto *action = new QAction("Add " + name, &m_window);
            QObject::connect(action, &QAction::triggered, [this, name] { add(name); });
            m_page->addControl(action);
            m_actions.append(action);
        }
        m_actions[1]->setShortcut(Qt::Key_F5);
        m_window.addAction(m_actions[1]);
        m_stack->setStartPage(m_page, 0);
        m_page->animationWidget()->setEndWidget(m_target, BVStackAnimationWidget::Center);
        m_page->animationWidget()->setDuration(1000000);
        QObject::connect(m_page, &BVStackStartPage::animationStarted, [this](QAction *action) { m_log += "started " + action->text() + ", "; });
        QObject::connect(m_page, &BVStackStartPage::animationHasFinished, [this] { m_log += "finished "; });
        m_window.resize(700, 300);
    }
    void add(const QString &name)
    {
        m_log += name + ' ';
        m_stack->addItem(new QWidget, -1)->setText(name);
    }
    QWidget *button(int action) const { return m_page->getWidgetFromAction(m_actions[action]); }

    QWidget m_window;
    BVStackControllerWidget *m_controller = new BVStackControllerWidget(&m_window);
    BVControlledStackWidget *m_stack = new BVControlledStackWidget(m_controller, &m_window);
    BVLineEdit *m_line = new BVLineEdit(&m_window);
    QWidget *m_target = new QWidget(&m_window);
    BVStackStartPage *m_page = new BVStackStartPage(m_stack, &m_window);
    QVector<QAction *> m_actions;
    QString m_log;
};

/// Counts the user's input as it arrives in the application, in front of all filters before.
class Arrivals : public QObject
{
public:
    Arrivals() { qApp->installEventFilter(this); }
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        const bool isInput =
            event->type() == QEvent::KeyPress || event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseButtonDblClick;
        m_count += isInput && watched->isWindowType();
        return false;
    }

    int m_count = 0;
};

} // namespace

/// Start pages and their flights, worked with the pointer and keys from outside.
class tst_StartPageWindow : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup() { m_scene.reset(); }
    void flight_data();
    void flight();
    void wholeFlight();

private:
    std::unique_ptr<Scene> m_scene;
};

void tst_StartPageWindow::initTestCase()
{
    qApp->setStyle("Fusion");
    qApp->setStyleSheet(Brimvale::StyleSheetHandler::load());
}

void tst_StartPageWindow::init()
{
    m_scene = std::make_unique<Scene>();
    QVERIFY(XdoTool::showActive(&m_scene->m_window));
    m_scene->m_line->setFocus();
}

void tst_StartPageWindow::flight_data()
{
    QTest::addColumn<QStringList>("keys"); // that start it; none for a click
    QTest::newRow("click") << QStringList();
    QTest::newRow("return") << QStringList{"Tab", "Return"};
    QTest::newRow("space bar") << QStringList{"Tab", "space"};
    QTest::newRow("arrow, enter") << QStringList{"Tab", "Tab", "Up", "KP_Enter"};
}

void tst_StartPageWindow::flight()
{
    QFETCH(const QStringList, keys);
    BVStackAnimationWidget *flight = m_scene->m_page->animationWidget();
    QVERIFY(!keys.isEmpty() || XdoTool::click(m_scene->button(0)));
    for (const QString &key : keys)
        QVERIFY(XdoTool::pressKey(key));
    QTRY_COMPARE(m_scene->m_log, QString("started Add a, "));
    QVERIFY(flight->isVisible());
    QVERIFY(m_scene->m_page->isVisible());

    Arrivals arrivals;
    m_scene->m_line->setFocus();
    QVERIFY(XdoTool::typeText("123"));
    QVERIFY(XdoTool::pressKey("Tab"));
    QVERIFY(XdoTool::pressKey("F5"));
    QVERIFY(XdoTool::click(m_scene->button(1)));
    QVERIFY(XdoTool::click(m_scene->button(0)));
    QTRY_COMPARE(arrivals.m_count, 7);
    QCOMPARE(m_scene->m_log, QString("started Add a, "));
    QCOMPARE(m_scene->m_line->text(), QString());
    QVERIFY(m_scene->m_line->hasFocus());
    QVERIFY(flight->isInFlight());

    flight->endAnimation();
    const QString log = "started Add a, a finished ";
    QCOMPARE(m_scene->m_log, log);
    QVERIFY(!m_scene->m_page->isVisible());
    QVERIFY(XdoTool::typeText("45"));
    QTRY_COMPARE(m_scene->m_line->text(), QString("45"));
    QVERIFY(XdoTool::pressKey("F5"));
    QTRY_COMPARE(m_scene->m_log, log + "b ");
    QVERIFY(XdoTool::clickAt(m_scene->m_controller->tree()->viewport(), QPoint(20, 10)));
    QTRY_COMPARE(m_scene->m_stack->currentIndex(), 0);
}

/// At its own pace, with a target that goes meanwhile.
void tst_StartPageWindow::wholeFlight()
{
    m_scene->m_page->animationWidget()->setDuration(200);
    connect(m_scene->m_page, &BVStackStartPage::animationStarted, m_scene->m_target, &QObject::deleteLater);
    QVERIFY(XdoTool::click(m_scene->button(1)));
    QTRY_COMPARE(m_scene->m_log, QString("started Add b, b finished "));
    QVERIFY(!m_scene->m_page->animationWidget()->isVisible());
    QVERIFY(XdoTool::click(m_scene->m_line));
    QVERIFY(XdoTool::typeText("1"));
    QTRY_COMPARE(m_scene->m_line->text(), QString("1"));
    QCOMPARE(m_scene->m_log, QString("started Add b, b finished "));
}

QTEST_MAIN(tst_StartPageWindow)

#include "tst_startpage_window.moc"
