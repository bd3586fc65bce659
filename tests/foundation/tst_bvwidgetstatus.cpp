// SPDX-License-Identifier: MIT
#include "foundation/BVStatusColor.h"
#include "foundation/BVWidgetStatus.h"
#include "foundation/BVWidgetStatusChangedEvent.h"

#include "TestSupport.h"

#include <QStandardItemModel>
#include <QTest>
#include <QTreeWidget>
#include <QWidget>

#include <tuple>

using S = BVWidgetStatus;

class tst_BVWidgetStatus : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void setStatus();
    void setStatusProperty();
    void propertyNames();
    void dominantStatus();
    void debugTexts();
    void event();
    void valueObject();
    void items();
    void oddProperty();
    void nullWidget();
    void colors();
    void replacedColors();
};

void tst_BVWidgetStatus::setStatus()
{
    const S::Stati two = S::UserEdit | S::Different;
    const std::tuple<const char *, S::Stati, S::Status, bool, S::Stati> rows[] = {
        {"set", two, S::NeedInput, true, (two | S::NeedInput)},
        {"set again", two, S::UserEdit, true, two},
        {"clear", two, S::UserEdit, false, S::Stati(S::Different)},
        {"clear a missing one", two, S::NeedInput, false, two},
        {"Normal on clears all", two, S::Normal, true, S::Stati()},
        {"Normal off changes nothing", two, S::Normal, false, two},
        {"flag without a property", two, S::ResetAvailable, true, (two | S::ResetAvailable)},
    };
    for (const auto &[name, before, flag, on, after] : rows) {
        QWidget widget;
        S::setStatus(&widget, before);
        EventCounter events(&widget, BVWidgetStatusChangedEvent::s_eventType);
        S::setStatus(&widget, flag, on);
        QVERIFY2(S::status(&widget) == after, name);
        QVERIFY2(widget.property("WidgetStatus").type() == QVariant::UInt, name);
        QVERIFY2(events.count() == (before == after ? 0 : 1), name);
        QVERIFY2(!widget.property("userEditStatus").isValid(), name); // the plain form writes no style property
        QVERIFY2(!S::testStatus(&widget, S::Normal), name);
    }
}

void tst_BVWidgetStatus::setStatusProperty()
{
    const S::Stati none;
    const S::Stati need = S::NeedInput;
    const std::tuple<const char *, S::Stati, S::Stati, S::Status, bool, bool, S::Stati, S::Stati> rows[] = {
        {"both follow", none, none, S::NeedInput, true, true, need, need},
        {"unchanged property leaves the flags", none, need, S::NeedInput, true, false, none, need},
        {"Normal clears all, whatever on says", need, need, S::Normal, false, true, none, none},
        {"clear", (need | S::UserEdit), (need | S::UserEdit), S::UserEdit, false, true, need, need},
        {"no property, no effect", need, need, S::ResetAvailable, true, false, need, need},
    };
    for (const auto &[name, flags, properties, flag, on, changed, flagsAfter, propertiesAfter] : rows) {
        QWidget widget;
        S::setStatusProperty(&widget, properties);
        S::setStatus(&widget, flags);
        EventCounter events(&widget, BVWidgetStatusChangedEvent::s_eventType);
        QVERIFY2(S::setStatusProperty(&widget, flag, on) == changed, name);
        QVERIFY2(S::status(&widget) == flagsAfter, name);
        QVERIFY2(S::getStatusProperty(&widget) == propertiesAfter, name);
        QVERIFY2(events.count() == (flags == flagsAfter ? 0 : 1), name);
        if (flag != S::Normal && flag != S::ResetAvailable)
            QVERIFY2(S::testStatusProperty(&widget, flag) == on, name);
    }
}

void tst_BVWidgetStatus::propertyNames()
{
    const std::pair<quint32, QString> rows[] = {
        {0x0u, ""},
        {0x2u, "userEditStatus"},
        {0x20u, "needInputStatus"},
        {0x40u, "ruvixEnabledStatus"},
        {0x80u, "ruvixStandardChanged"},
        {0x100u, "ruvixActiveStatus"},
        {0x200u, "ruvixInvalidStatus"},
        {0x400u, "differentStatus"},
        {0x800u, "compareDifferentStatus"},
        {0x1000u, "standardEnabledStatus"},
        {0x2000u, "standardDefinedStatus"},
        {0x4000u, "standardDefaultStatus"},
        {0x8000u, "defaultChangedStatus"},
        {0x10000u, "standardChangedStatus"},
        {0x20000u, "standardLockedStatus"},
        {0x40000u, ""},
        {0x4u, ""},
        {0x22u, ""},
    };
    for (const auto &[value, name] : rows) {
        QCOMPARE(S::statusPropertyName(static_cast<S::Status>(value)), name);
        QCOMPARE(S::debugStatusFlag(S::Stati(QFlag(value))), value == 0x22u ? "needInputStatus|userEditStatus" : name);
    }
}

void tst_BVWidgetStatus::dominantStatus()
{
    // Each flag is added to those before it, so it must win over all of them.
    S::Stati stati = S::StandardLocked | S::StandardDefined | S::RuvixEnabled | S::DefaultChanged | S::RuvixStandardChanged | S::StandardEnabled |
                     S::StandardDefault; // these never dominate
    for (const S::Status flag :
         {S::Normal, S::UserEdit, S::RuvixActive, S::Different, S::StandardChanged, S::RuvixInvalid, S::CompareDifferent, S::NeedInput}) {
        stati |= flag;
        QCOMPARE(S::getDominantStatusFromFlag(stati), flag);
    }
}

void tst_BVWidgetStatus::debugTexts()
{
    QWidget widget;
    widget.setObjectName(QStringLiteral("edit"));
    S::setStatus(&widget, S::UserEdit | S::NeedInput);
    QCOMPARE(S::debugStatusToString(&widget), QStringLiteral("needInputStatus|userEditStatus"));
    QTest::ignoreMessage(QtDebugMsg, QRegularExpression(QStringLiteral("^here debug Status of QWidget\\(0x[0-9a-f]+, name=\"?edit\"?\\): "
                                                                       "needInputStatus\\|userEditStatus$")));
    S::debugStatus(&widget, QStringLiteral("here"));

    QString text = QStringLiteral("x");
    S::debugStateHelper(text, S::UserEdit, S::UserEdit);
    S::debugStateHelper(text, S::UserEdit, S::NeedInput);
    QCOMPARE(text, QStringLiteral("x|userEditStatus"));
}

void tst_BVWidgetStatus::event()
{
    class Recorder : public QWidget
    {
    public:
        bool event(QEvent *event) override
        {
            if (event->type() == BVWidgetStatusChangedEvent::s_eventType)
                m_seen.append(*static_cast<BVWidgetStatusChangedEvent *>(event));
            return QWidget::event(event);
        }
        QList<BVWidgetStatusChangedEvent> m_seen;
    } widget;

    S::setStatus(&widget, S::UserEdit, true);
    S::setStatusProperty(&widget, S::NeedInput);
    S::clear(&widget); // silent
    QCOMPARE(widget.m_seen.size(), 2);
    QCOMPARE(widget.m_seen.at(1).oldStatus(), S::Stati(S::UserEdit));
    QCOMPARE(widget.m_seen.at(1).status(), S::Stati(S::NeedInput));
    QCOMPARE(widget.m_seen.at(1).widget(), &widget);
    QVERIFY(S::isStatus(&widget, S::Normal));
}

void tst_BVWidgetStatus::valueObject()
{
    QWidget first;
    QWidget second;
    S::setStatus(&first, S::UserEdit);
    S::setStatus(&second, S::Different);
    BVWidgetStatus object(&first);
    QVERIFY(!first.property("WidgetStatus").isValid());
    object.setStatus(S::NeedInput, true);
    QVERIFY(S::testStatus(&first, S::NeedInput));
    QVERIFY(!S::isStatus(&second, object));
    object.attachWidget(&second); // unlike construction, resets nothing
    QCOMPARE(object.status(), S::Stati(S::Different));
    QVERIFY(S::isStatus(&second, object));
}

void tst_BVWidgetStatus::items()
{
    QStandardItemModel model(1, 1);
    auto *item = new QStandardItem;
    model.setItem(0, item);
    QSignalSpy changes(&model, &QStandardItemModel::dataChanged);
    S::setStatus(item, S::NeedInput, true);
    S::setStatus(item, S::NeedInput, true);
    S::setStatus(item, S::Normal, true); // not special for items
    QCOMPARE(changes.count(), 1);
    QCOMPARE(item->data(280), QVariant(0x20));
    QCOMPARE(getWidgetStatus(item->index()), S::Stati(S::NeedInput));
    QCOMPARE(getWidgetStatus(QModelIndex()), S::Stati());

    QTreeWidgetItem treeItem;
    S::setStatus(&treeItem, 1, S::Different, true);
    QCOMPARE(treeItem.data(1, 280), QVariant(0x400));
    QVERIFY(!treeItem.data(0, 280).isValid());
}

void tst_BVWidgetStatus::oddProperty()
{
    QWidget widget;
    widget.setProperty("WidgetStatus", QStringLiteral("many"));
    QVERIFY(S::isStatus(&widget, S::Normal));
    S::setStatus(&widget, S::UserEdit, true);
    QVERIFY(S::isStatus(&widget, S::UserEdit));
}

void tst_BVWidgetStatus::nullWidget()
{
    QWidget *none = nullptr;
    S::setStatus(none, S::NeedInput, true);
    S::clear(none);
    S::setStatus(static_cast<QStandardItem *>(nullptr), S::NeedInput, true);
    S::setStatus(static_cast<QTreeWidgetItem *>(nullptr), 0, S::NeedInput, true);
    QCOMPARE(S::status(none), S::Stati());
    QVERIFY(!S::isStatus(none, S::Normal));
    QVERIFY(!S::setStatusProperty(none, S::NeedInput));
    QVERIFY(!S::setStatusProperty(none, S::NeedInput, true));
    QCOMPARE(S::debugStatusToString(none), QString());
}

void tst_BVWidgetStatus::colors()
{
    BVStatusColor &table = BVStatusColor::colors();
    const QString normal = "e5e5e5 333333 545454 cccccc";
    const QString red = "ff4d4d 990000 cc3d3d cc3d3d";
    const QString lightRed = "ffaaaa 990000 dc7a7a dc7a7a";
    const QString blue = "99c3ff 004099 366ab2 1a4480";
    const QString lightBlue = "99c3ff 004099 6492d0 1a4480";
    const QString yellow = "ffdf7f 734c00 cc9e14 cc9e14";
    const QString green = "99ffbb 00802a 99ffbb 00802a";
    const QString purple = "ee99ff 9500b2 ee99ff 9500b2";
    const std::tuple<S::Status, QString, QString> rows[] = {
        {S::Normal, normal, normal},       {S::NeedInput, red, lightRed},         {S::RuvixInvalid, red, lightRed},
        {S::RuvixActive, blue, lightBlue}, {S::UserEdit, blue, lightBlue},        {S::StandardChanged, yellow, yellow},
        {S::Different, green, green},      {S::CompareDifferent, purple, purple}, {S::StandardLocked, normal, normal},
    };
    for (const auto &[status, main, light] : rows) {
        for (const bool useLight : {false, true}) {
            table.setUseLightColor(useLight);
            QStringList names;
            for (const QColor &color :
                 {table.forDarkBackground(status), table.forLightBackground(status), table.forButtons(status, false), table.forButtons(status, true)})
                names << color.name().mid(1);
            const QString shown = names.join(QLatin1Char(' '));
            QVERIFY2(shown == (useLight ? light : main), qPrintable(QStringLiteral("%1: %2").arg(int(status)).arg(shown)));
        }
    }
    table.setUseLightColor(false);
}

void tst_BVWidgetStatus::replacedColors()
{
    BVStatusColor &table = BVStatusColor::colors();
    const BVStatusColor::Colors before = {table.forDarkBackground(S::NeedInput), table.forLightBackground(S::NeedInput),
                                          table.forButtons(S::NeedInput, false), table.forButtons(S::NeedInput, true)};
    table.setUseLightColor(true);
    table.replaceColor(S::NeedInput, {Qt::cyan, Qt::cyan, Qt::cyan, Qt::cyan});
    QCOMPARE(table.forDarkBackground(S::NeedInput), QColor(255, 170, 170));
    table.setUseLightColor(false);
    QCOMPARE(table.forDarkBackground(S::NeedInput), QColor(Qt::cyan));
    table.replaceColor(S::NeedInput, before);

    QCOMPARE(table.disabled(), QColor(229, 229, 229, 178));
    QCOMPARE(table.disabledForDarkBackground(), table.disabled());
    QCOMPARE(table.disabledForLightBackground(), QColor(51, 51, 51, 178));
    QCOMPARE(table.disabledForButtons(false), QColor(84, 84, 84, 178));
    QCOMPARE(table.disabledForButtons(true), QColor(204, 204, 204, 178));
}

QTEST_MAIN(tst_BVWidgetStatus)

#include "tst_bvwidgetstatus.moc"
