// SPDX-License-Identifier: MIT
#include "controls/BVInfoArea.h"
#include "controls/BVProgressiveDisclosure.h"
#include "navigation/BVStackAnimationWidget.h"
#include "navigation/BVStackStartPage.h"

#include <QAction>
#include <QApplication>
#include <QCommandLinkButton>
#include <QSignalSpy>
#include <QTest>

#include <functional>

namespace {

/// A page with actions named by letters; what happens is noted.
struct Scene
{
    explicit Scene(bool withTitle = false)
        : m_page(new BVStackStartPage(&m_window, nullptr, withTitle, true))
    {
        m_window.resize(400, 400);
        m_page->setGeometry(m_window.rect());
        if (m_page->animationWidget())
            m_page->animationWidget()->setDuration(40);
        QObject::connect(m_page, &BVStackStartPage::animationStarted, [this] { m_log += "started "; });
        QObject::connect(m_page, &BVStackStartPage::animationHasFinished, [this] { m_log += "finished "; });
        QObject::connect(m_page, &BVStackStartPage::actionBarsClosed,
                         [this](const QString &title, bool closed) { m_log += title + (closed ? " closed " : " opened "); });
    }
    QAction *add(const QString &text)
    {
        auto *action = new QAction(text, &m_window);
        QObject::connect(action, &QAction::triggered, [this, text] { m_log += text + " "; });
        m_actions.append(action);
        return action;
    }
    QCommandLinkButton *button(QAction *action) const { return qobject_cast<QCommandLinkButton *>(m_page->getWidgetFromAction(action)); }
    void show()
    {
        m_window.show();
        QApplication::setActiveWindow(&m_window);
    }

    QWidget m_window;
    QPointer<BVStackStartPage> m_page;
    QVector<QPointer<QAction>> m_actions;
    QString m_log;
};

using Step = std::function<void(Scene &)>;

} // namespace

Q_DECLARE_METATYPE(Step)

class tst_BVStackStartPage : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void clicks_data();
    void clicks();
    void flight();
    void controls();
    void groups();
    void keys_data();
    void keys();
    void deletion();
};

void tst_BVStackStartPage::clicks_data()
{
    QTest::addColumn<Step>("prepare");
    QTest::addColumn<Step>("duringFlight");
    QTest::addColumn<QString>("log");
    QTest::addColumn<bool>("pageVisible");
    const Step nothing = [](Scene &) {};
    const auto on = [](const char *property) { return Step([property](Scene &scene) { scene.m_page->setProperty(property, true); }); };
    QTest::newRow("the flight comes first") << nothing << nothing << "started | a finished " << true;
    QTest::newRow("no animation") << on("noAnimation") << nothing << "started a finished | " << true;
    QTest::newRow("hide after click") << on("hideAfterClick") << nothing << "started | a finished " << false;
    QTest::newRow("hidden and not animated") << Step([=](Scene &scene) {
        on("hideAfterClick")(scene);
        on("noAnimation")(scene);
    }) << nothing << "started a finished | " << false;
    QTest::newRow("the action dies") << nothing << Step([](Scene &scene) { delete scene.m_actions[0]; }) << "started | finished " << true;
    QTest::newRow("the action dies at once") << Step([](Scene &scene) {
        connect(scene.m_page, &BVStackStartPage::animationStarted, [&] { delete scene.m_actions[0]; });
    }) << nothing << "started finished | " << true;
    QTest::newRow("the button goes") << nothing << Step([](Scene &scene) { scene.m_page->removeControl(scene.m_actions[0]); })
                                     << "started | a finished " << true;
    QTest::newRow("the action gets disabled") << nothing << Step([](Scene &scene) { scene.m_actions[0]->setEnabled(false); })
                                              << "started | a finished " << true;
    QTest::newRow("the flight is deleted") << nothing << Step([](Scene &scene) { delete scene.m_page->animationWidget(); }) << "started | a finished "
                                           << true;
    QTest::newRow("there is no flight") << Step([](Scene &scene) { delete scene.m_page->animationWidget(); }) << nothing << "started a finished | "
                                        << true;
    QTest::newRow("the flight has no parent") << Step([](Scene &scene) { scene.m_page->animationWidget()->setParent(nullptr); }) << nothing
                                              << "started | a finished " << true;
    QTest::newRow("an action that starts it again")
        << Step([](Scene &scene) { connect(scene.m_actions[0], &QAction::triggered, scene.m_page, &BVStackStartPage::startAnimation); }) << nothing
        << "started | a finished " << true;
    QTest::newRow("the next click overtakes it") << nothing << Step([](Scene &scene) { scene.button(scene.m_actions[1])->click(); })
                                                 << "started | started a finished b finished " << true;
}

void tst_BVStackStartPage::clicks()
{
    QFETCH(Step, prepare);
    QFETCH(Step, duringFlight);
    QFETCH(QString, log);
    QFETCH(bool, pageVisible);
    Scene scene;
    scene.m_page->addControl(scene.add("a"));
    scene.m_page->addControl(scene.add("b"));
    prepare(scene);
    scene.show();
    scene.button(scene.m_actions[0])->click();
    scene.m_log += "| ";
    duringFlight(scene);
    QTRY_COMPARE(scene.m_log, log);
    QTest::qWait(60); // for what must not follow
    QCOMPARE(scene.m_log, log);
    QCOMPARE(scene.m_page->isVisible(), pageVisible);
}

void tst_BVStackStartPage::flight()
{
    Scene scene;
    QAction *action = scene.add("a");
    scene.m_page->addControl(action);
    scene.m_page->startAnimation(); // no sender
    QCOMPARE(scene.m_log, QString());
    scene.show();
    scene.m_page->animationWidget()->setDuration(10000);
    scene.button(action)->click();
    const BVStackAnimationWidget *flight = scene.m_page->animationWidget();
    QCOMPARE(flight->parentWidget(), &scene.m_window);
    QCOMPARE(flight->geometry(), scene.m_window.rect());
    QCOMPARE(flight->currentImage().format(), QImage::Format_ARGB32);
    QCOMPARE(flight->currentImage().size(), scene.button(action)->size() * scene.m_window.devicePixelRatio());
    QCOMPARE(flight->currentRect().topLeft(), scene.button(action)->mapTo(&scene.m_window, QPoint()));
    QCOMPARE(flight->currentImage().pixelColor(flight->currentImage().width() - 2, 1).alpha(), 0); // nothing of the page behind
    scene.m_page->animationWidget()->endAnimation();
    QCOMPARE(scene.m_log, QString("started a finished "));
}

void tst_BVStackStartPage::controls()
{
    Scene scene(true);
    QAction *a = scene.add("&Alpha");
    QAction *b = scene.add("Beta");
    QAction *c = scene.add("Gamma");
    scene.m_page->addControl(a, QIcon(":/Icons/new.svg"));
    scene.m_page->addControl(b, c);
    scene.m_page->addControl(a);
    scene.m_page->addControl(nullptr);
    scene.m_page->addControl(c, a);
    scene.show();
    QCOMPARE(scene.m_page->findChildren<QCommandLinkButton *>().size(), 3);
    QCOMPARE(scene.button(b)->property("composition").toString(), QString("left"));
    QCOMPARE(scene.button(c)->property("composition").toString(), QString("right"));
    QCOMPARE(scene.button(b)->y(), scene.button(c)->y());
    for (const Qt::LayoutDirection direction : {Qt::RightToLeft, Qt::LeftToRight}) {
        scene.m_window.setLayoutDirection(direction);
        QTRY_COMPARE(scene.button(b)->x() + scene.button(b)->width(), scene.button(c)->x());
    }

    a->setText("Other");
    a->setToolTip("tip");
    QCOMPARE(scene.button(a)->text(), QString("Other"));
    QCOMPARE(scene.button(a)->toolTip(), QString("tip"));
    a->setText("&Alpha");
    scene.m_page->enableControl("Alpha", false);
    QVERIFY(!scene.button(a)->isEnabled() && scene.button(b)->isEnabled());
    scene.m_page->enableAllControlActions(true);
    QVERIFY(scene.button(a)->isEnabled());
    scene.m_page->showControl("Gamma", false);
    QVERIFY(!scene.button(c)->isVisible() && scene.button(b)->isVisible());
    scene.m_page->setAllWidgetsStatus(BVWidgetStatus::NeedInput);
    QVERIFY(BVWidgetStatus::testStatusProperty(scene.button(b), BVWidgetStatus::NeedInput));
    QCOMPARE(scene.button(b)->property("needInputStatus").toBool(), true);

    scene.m_page->removeControl(c);
    QCOMPARE(scene.m_page->getWidgetFromAction(c), nullptr);
    scene.m_page->addControl(c);
    c->setVisible(true);
    b->setIcon(QIcon(":/Icons/new.svg"));
    b->setIcon(QIcon()); // the arrow is back
    QCOMPARE(scene.button(b)->icon().pixmap(20).toImage(), scene.button(c)->icon().pixmap(20).toImage());
    QAction *d = scene.add("Delta");
    QAction *e = scene.add("Epsilon");
    scene.m_page->addControl(d, e);
    d->setVisible(false);
    scene.m_page->removeControl(e); // the row stays for the hidden one
    d->setVisible(true);
    QTRY_VERIFY(scene.button(d)->isVisible() && scene.button(d)->width() > 100);
    QVERIFY(!scene.button(b)->property("composition").isValid());
    delete b;
    QCOMPARE(scene.m_page->getWidgetFromAction(b), nullptr);
    scene.m_page->enableControl("Beta", true);

    QVERIFY(!scene.m_page->infoArea()->isVisible());
    scene.m_page->addInformationText(QString());
    scene.m_page->addInformationText("Note");
    QVERIFY(scene.m_page->infoArea()->isVisible());
    QCOMPARE(scene.m_page->infoArea()->messages(), QStringList("Note"));
}

void tst_BVStackStartPage::groups()
{
    Scene scene;
    QAction *a = scene.add("a");
    QAction *b = scene.add("b");
    scene.m_page->addControl(a);
    QCOMPARE(scene.m_page->addControlGroup("More", {a, nullptr}), nullptr);
    QPointer<BVProgressiveDisclosure> group = scene.m_page->addControlGroup("More", {b, a});
    QVERIFY(group && group->isAncestorOf(scene.button(b)) && !group->isAncestorOf(scene.button(a)));
    QAction *c = scene.add("c");
    QCOMPARE(scene.m_page->addControlGroup("More", {c}), group.data());
    scene.show();
    group->setOpen(false);
    group->setOpen(true);
    QCOMPARE(scene.m_log, QString("More closed More opened "));
    b->setVisible(false);
    QVERIFY(group->isVisible());
    scene.m_page->removeControl(c);
    QVERIFY(!group->isVisible());
    delete b;
    QTRY_VERIFY(!group);
    QCOMPARE(scene.m_page->controlGroup("More"), nullptr);

    scene.m_page->addControlGroup("More", {scene.add("d")});
    delete scene.m_page->addControlGroup("Other", {c, scene.add("e")}); // takes the buttons along
    QCOMPARE(scene.m_page->getWidgetFromAction(c), nullptr);
    delete scene.m_page->controlGroup("More")->contentWidget();
    QTRY_VERIFY(!scene.m_page->controlGroup("More"));
}

void tst_BVStackStartPage::keys_data()
{
    QTest::addColumn<QVector<Qt::Key>>("keys");
    QTest::addColumn<QString>("focus");
    // a, then b and c side by side, d disabled, e
    QTest::newRow("down and right") << QVector<Qt::Key>{Qt::Key_Down, Qt::Key_Right} << "c";
    QTest::newRow("at the end of the row") << QVector<Qt::Key>{Qt::Key_Down, Qt::Key_Right, Qt::Key_Right} << "c";
    QTest::newRow("past the disabled") << QVector<Qt::Key>{Qt::Key_Down, Qt::Key_Down} << "e";
    QTest::newRow("up from the second in a row") << QVector<Qt::Key>{Qt::Key_Down, Qt::Key_Right, Qt::Key_Up} << "a";
    QTest::newRow("no further up") << QVector<Qt::Key>{Qt::Key_Up} << "a";
    QTest::newRow("last and first") << QVector<Qt::Key>{Qt::Key_End, Qt::Key_Left, Qt::Key_Home} << "a";
}

void tst_BVStackStartPage::keys()
{
    QFETCH(QVector<Qt::Key>, keys);
    QFETCH(QString, focus);
    Scene scene;
    scene.m_page->setNoAnimation(true);
    QAction *a = scene.add("a");
    QAction *b = scene.add("b");
    QAction *c = scene.add("c");
    QAction *d = scene.add("d");
    scene.m_page->addControl(a);
    scene.m_page->addControl(b, c);
    scene.m_page->addControl(d);
    scene.m_page->addControl(scene.add("e"));
    d->setEnabled(false);
    scene.show();
    scene.button(a)->setFocus();
    for (Qt::Key key : keys)
        QTest::keyClick(QApplication::focusWidget(), key);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    QCOMPARE(scene.m_log, QString("started %1 finished ").arg(focus));
}

void tst_BVStackStartPage::deletion()
{
    Scene scene;
    scene.m_page->addControl(new QAction("own", scene.m_page)); // goes with the page
    scene.m_page->addControlGroup("More", {scene.add("a")});
    scene.m_page->addControl(scene.add("b"));
    scene.show();
    connect(scene.m_actions[1], &QAction::triggered, [&] { delete scene.m_page; });
    scene.button(scene.m_actions[1])->click();
    QTRY_VERIFY(!scene.m_page);
    QCOMPARE(scene.m_log, QString("started b "));
    QTRY_VERIFY(!scene.m_window.findChild<BVStackAnimationWidget *>());
}

QTEST_MAIN(tst_BVStackStartPage)
#include "tst_bvstackstartpage.moc"
