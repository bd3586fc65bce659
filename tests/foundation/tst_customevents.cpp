// SPDX-License-Identifier: MIT
#include "foundation/BVWidgetStatusChangedEvent.h"
#include "foundation/BlockSignals.h"
#include "foundation/MainWindow.h"
#include "foundation/OpenSimulationEvent.h"
#include "foundation/OverlayEvent.h"
#include "foundation/RegisterDragAndDropWidgetEvent.h"
#include "foundation/RegisterResizeableWidgetInterfaceEvent.h"
#include "foundation/ResizeWidgetCloseEvent.h"
#include "foundation/VirtualSliderEvent.h"

#include <QSet>
#include <QTest>
#include <QWidget>

#include <memory>

using namespace Brimvale;

class tst_CustomEvents : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void types();
    void fields();
    void mainWindow();
    void blockSignals();
};

void tst_CustomEvents::types()
{
    const QSet<int> types = {BVWidgetStatusChangedEvent::s_eventType,
                             OpenSimulationEvent::s_customEventType,
                             OverlayEvent::s_customEventType,
                             RegisterDragAndDropWidgetEvent::s_customEventType,
                             RegisterResizeableWidgetInterfaceEvent::s_customEventType,
                             ResizeWidgetCloseEvent::s_customEventType,
                             VirtualSliderEvent::s_virtualSliderEventType};
    QCOMPARE(types.size(), 7);
    for (const int type : types)
        QVERIFY(type >= QEvent::User && type <= QEvent::MaxUser);
    QCOMPARE(OverlayEvent().type(), OverlayEvent::s_customEventType);
}

void tst_CustomEvents::fields()
{
    QWidget widget;
    const RegisterResizeableWidgetInterfaceEvent panel(nullptr, &widget, true);
    QVERIFY(panel.getResizableWidget() == &widget && panel.deregister());
    const RegisterDragAndDropWidgetEvent drag(&widget, nullptr, false);
    QVERIFY(drag.getWidget() == &widget && !drag.deregister());
    QVERIFY(!OverlayEvent().open() && OverlayEvent(true).open());
    QCOMPARE(ResizeWidgetCloseEvent(&widget).getParentWidget(), &widget);
    const VirtualSliderEvent slider(5, Qt::ShiftModifier); // the key comes first
    QCOMPARE(slider.getKeys(), 5);
    QCOMPARE(slider.getModifiers(), Qt::KeyboardModifiers(Qt::ShiftModifier));
    const OpenSimulationEvent original(QStringLiteral("cup.sim"), QStringLiteral("done"));
    const OpenSimulationEvent copy = original;
    QCOMPARE(copy.getFileName() + copy.getMessage(), QStringLiteral("cup.simdone"));
    QCOMPARE(copy.type(), OpenSimulationEvent::s_customEventType);
}

void tst_CustomEvents::mainWindow()
{
    QVERIFY(!Brimvale::mainWindow());
    QWidget widget;
    qApp->setProperty("MainWindow", QVariant::fromValue(&widget));
    QCOMPARE(Brimvale::mainWindow(), &widget);
    qApp->setProperty("MainWindow", QVariant::fromValue<QObject *>(&widget));
    QCOMPARE(Brimvale::mainWindow(), &widget);
    for (const QVariant &wrong : {QVariant(3), QVariant::fromValue<QObject *>(qApp), QVariant()}) {
        qApp->setProperty("MainWindow", wrong);
        QVERIFY(!Brimvale::mainWindow());
    }
    for (int i = 0; i < 2; ++i) { // one that goes leaves null, and the next may have its address
        auto window = std::make_unique<QWidget>();
        qApp->setProperty("MainWindow", QVariant::fromValue(window.get()));
        QCOMPARE(Brimvale::mainWindow(), window.get());
        window.reset();
        QVERIFY(!Brimvale::mainWindow());
    }
    auto former = std::make_unique<QWidget>();
    for (QWidget *window : {former.get(), &widget}) {
        qApp->setProperty("MainWindow", QVariant::fromValue(window));
        QCOMPARE(Brimvale::mainWindow(), window);
    }
    qApp->setProperty("MainWindow", QVariant::fromValue(former.get()));
    former.reset(); // before anybody has asked for it again
    QVERIFY(!qApp->property("MainWindow").isValid());
}

void tst_CustomEvents::blockSignals()
{
    QObject first;
    auto *second = new QObject;
    second->blockSignals(true);
    QObject third;
    {
        const BlockSignals blocker{&first, nullptr, second, &first, &third};
        QVERIFY(first.signalsBlocked() && third.signalsBlocked());
        delete second;
    }
    QVERIFY(!first.signalsBlocked() && !third.signalsBlocked());
}

QTEST_MAIN(tst_CustomEvents)

#include "tst_customevents.moc"
