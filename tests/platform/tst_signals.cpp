// SPDX-License-Identifier: MIT
#include "platform/Signal.h"
#include "platform/WidgetTrackerSingleton.h"

#include <QStringList>
#include <QTest>

#include <memory>

using Signals::Connection;
using IntSignal = Signals::Signal<void(int)>;

class tst_Signals : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void callsInOrderUntilDisconnected();
    void signalDiesFirst();
    void slotDestroysItsConnection();
    void slotDestroysAnother();
    void slotConnectsAnother();
    void slotDestroysTheSignal();
    void copyStartsWithoutSlots();
    void trackerPassesRecords();
};

void tst_Signals::callsInOrderUntilDisconnected()
{
    IntSignal signal;
    QStringList calls;
    const auto slot = [&calls](const char *name) { return [&calls, name](int i) { calls << name + QString::number(i); }; };
    Connection first = signal.connect(slot("a"));
    {
        const Connection second = signal.connect(slot("b"));
        signal(1);
    }
    signal(2);
    Connection moved = std::move(first);
    signal(3);
    moved = signal.connect(slot("c")); // disconnects what it held
    signal(4);
    QVERIFY(moved.isConnected());
    moved.disconnect();
    signal(5);
    QVERIFY(!moved.isConnected());
    QVERIFY(!Connection().isConnected());
    QCOMPARE(calls, (QStringList{"a1", "b1", "a2", "a3", "c4"}));
}

void tst_Signals::signalDiesFirst()
{
    auto signal = std::make_unique<IntSignal>();
    const auto captured = std::make_shared<int>(0);
    Connection connection = signal->connect([captured](int) {});
    QCOMPARE(captured.use_count(), 2L);
    signal.reset();
    QCOMPARE(captured.use_count(), 1L); // the slot is gone, and what it held
    QVERIFY(!connection.isConnected());
    connection.disconnect();
}

void tst_Signals::slotDestroysItsConnection()
{
    IntSignal signal;
    int calls = 0;
    auto connection = std::make_unique<Connection>();
    const auto captured = std::make_shared<QString>("still there");
    *connection = signal.connect([&connection, &calls, captured](int) {
        connection.reset();
        ++calls; // the slot's own state must live until it returns
        QCOMPARE(*captured, QString("still there"));
    });
    const Connection other = signal.connect([&calls](int) { calls += 10; });
    signal(0);
    QCOMPARE(calls, 11);
    signal(0);
    QCOMPARE(calls, 21);
}

void tst_Signals::slotDestroysAnother()
{
    IntSignal signal;
    QStringList calls;
    std::unique_ptr<Connection> victim;
    const Connection first = signal.connect([&](int) {
        calls << "first";
        victim.reset();
    });
    victim = std::make_unique<Connection>(signal.connect([&](int) { calls << "victim"; }));
    const Connection last = signal.connect([&](int) { calls << "last"; });
    signal(0);
    QCOMPARE(calls, (QStringList{"first", "last"}));
}

void tst_Signals::slotConnectsAnother()
{
    IntSignal signal;
    int calls = 0;
    std::vector<Connection> added;
    const Connection first = signal.connect([&](int) { added.push_back(signal.connect([&calls](int) { ++calls; })); });
    signal(0);
    QCOMPARE(calls, 0); // takes part from the next emission on
    signal(0);
    QCOMPARE(calls, 1);
}

void tst_Signals::slotDestroysTheSignal()
{
    auto signal = std::make_unique<IntSignal>();
    QStringList calls;
    const Connection first = signal->connect([&](int) {
        calls << "first";
        signal.reset();
    });
    const Connection second = signal->connect([&](int) { calls << "second"; });
    (*signal)(0);
    QCOMPARE(calls, QStringList{"first"});
    QVERIFY(!second.isConnected());
}

void tst_Signals::copyStartsWithoutSlots()
{
    int calls = 0;
    IntSignal signal;
    const Connection connection = signal.connect([&calls](int) { ++calls; });
    IntSignal copy(signal);
    copy(0);
    QCOMPARE(calls, 0);
    const Connection own = copy.connect([&calls](int) { calls += 10; });
    copy = signal; // keeps its own slots
    copy(0);
    signal(0);
    QCOMPARE(calls, 11);
}

void tst_Signals::trackerPassesRecords()
{
    WidgetTrackerSingleton &tracker = WidgetTrackerSingleton::getInstance();
    QStringList first;
    QStringList once;
    const Connection firstListener = tracker.listen([&first](const QString &record) { first << record; });
    Connection onceListener;
    onceListener = tracker.listen([&](const QString &record) {
        once << record;
        onceListener.disconnect();
    });
    tracker.track("TAB CLICKED\n\nTab: a");
    tracker.track(QString());
    QCOMPARE(first, (QStringList{"TAB CLICKED\n\nTab: a", ""}));
    QCOMPARE(once, QStringList{"TAB CLICKED\n\nTab: a"});
}

QTEST_GUILESS_MAIN(tst_Signals)

#include "tst_signals.moc"
