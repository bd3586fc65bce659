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
    QVERIFY(RegisterResizeableWidgetInterfaceEvent(nullptr, &widget, true).deregister());
    QVERIFY(!RegisterDragAndDropWidgetEvent(&widget, nullptr, false).deregister());
    QVERIFY(!OverlayEvent().open() && OverlayEvent(true).open());
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
