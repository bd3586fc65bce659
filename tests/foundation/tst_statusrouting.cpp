// SPDX-License-Identifier: MIT
#include "controls/BVLineEdit.h"
#include "foundation/BVReferenceValueInterface.h"
#include "foundation/BVStatusBatch.h"
#include "foundation/BVWidgetStatusChangedEvent.h"
#include "foundation/BVWidgetStatusHandler.h"
#include "foundation/BVWidgetStatusPropertyDispatcher.h"
#include "foundation/BVWidgetStatusRouter.h"

#include "TestSupport.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>
#include <QToolTip>

#include <tuple>

using S = BVWidgetStatus;

namespace {

/// A group that shows the status of two edits.
struct Form
{
    Form()
    {
        handler->attach(first);
        handler->attach(second);
    }

    QGroupBox group;
    QLineEdit *first = new QLineEdit(&group);
    QLineEdit *second = new QLineEdit(&group);
    BVWidgetStatusHandler *handler = new BVWidgetStatusHandler(&group);
};

} // namespace

class tst_StatusRouting : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { muteOffscreenWarnings(); }
    void combine();
    void disabledChildren();
    void settingsWaitForTheNextUpdate();
    void blocking();
    void detachAndDelete();
    void nesting();
    void parentGoesFirst();
    void oddEvents();
    void lockSymbol();
    void lockFollows();
    void referenceToolTip();
    void router();
    void dispatcher();
    void batch();
    void batchPolishesOnce();
};

void tst_StatusRouting::combine()
{
    QGroupBox group;
    auto *first = new QLineEdit(&group);
    auto *second = new QLineEdit(&group);
    S::setStatus(first, S::NeedInput);
    auto *handler = new BVWidgetStatusHandler(&group);
    handler->attach(first);
    handler->attach(first);
    handler->attach(second);
    handler->attach(nullptr);
    QVERIFY(S::isStatus(&group, S::Normal)); // attaching does not combine

    QSignalSpy changes(handler, &BVWidgetStatusHandler::childStatusChanged);
    S::setStatus(second, S::UserEdit);
    QVERIFY(S::isStatus(&group, S::NeedInput | S::UserEdit));
    QVERIFY(S::testStatusProperty(&group, S::NeedInput));
    QCOMPARE(changes.count(), 1);
    QCOMPARE(changes.first().at(0).value<QWidget *>(), second);
    handler->clear();
    QVERIFY(S::isStatus(&group, S::Normal));
}

void tst_StatusRouting::disabledChildren()
{
    Form form;
    S::setStatus(form.first, S::NeedInput);
    S::setStatus(form.second, S::UserEdit);
    form.first->setEnabled(false);
    QVERIFY(S::isStatus(&form.group, S::UserEdit)); // at once
    form.handler->setObserveDisabledChildren(true);
    form.handler->updateParentStatus();
    QVERIFY(S::isStatus(&form.group, S::NeedInput | S::UserEdit));
}

void tst_StatusRouting::settingsWaitForTheNextUpdate()
{
    Form form;
    form.handler->set(S::StandardDefined);
    QVERIFY(S::isStatus(&form.group, S::Normal));
    S::setStatus(form.first, S::UserEdit);
    QVERIFY(S::isStatus(&form.group, S::StandardDefined | S::UserEdit));
    form.handler->setEnabled(false);
    QVERIFY(!S::isStatus(&form.group, S::Normal));
    form.handler->updateParentStatus();
    QVERIFY(S::isStatus(&form.group, S::Normal));
}

void tst_StatusRouting::blocking()
{
    Form form;
    S::setStatus(form.first, S::UserEdit);
    QVERIFY(!form.handler->setBlocking(true, true));
    S::setStatus(form.first, S::NeedInput);
    QVERIFY(form.handler->setBlocking(false, true));
    QVERIFY(S::isStatus(&form.group, S::UserEdit)); // what was recorded before blocking began
}

void tst_StatusRouting::detachAndDelete()
{
    Form form;
    S::setStatus(form.first, S::NeedInput);
    S::setStatus(form.second, S::UserEdit);
    form.handler->detach(form.second);
    QVERIFY(S::isStatus(&form.group, S::NeedInput));
    S::setStatus(form.second, S::Different);
    QVERIFY(S::isStatus(&form.group, S::NeedInput));
    delete form.first;
    QVERIFY(S::isStatus(&form.group, S::Normal));
    form.handler->updateParentStatus(); // touches no widget that is gone
}

void tst_StatusRouting::nesting()
{
    QWidget page;
    auto *group = new QGroupBox(&page);
    auto *edit = new QLineEdit(group);
    (new BVWidgetStatusHandler(group))->attach(edit);
    (new BVWidgetStatusHandler(&page))->attach(group);
    S::setStatus(edit, S::NeedInput, true);
    QVERIFY(S::testStatusProperty(&page, S::NeedInput));
    S::setStatus(edit, S::NeedInput, false);
    QVERIFY(!S::testStatusProperty(&page, S::NeedInput));
    S::setStatus(edit, S::StandardLocked, true);
    QVERIFY(S::testStatus(group, S::StandardLocked)); // but shows no lock of its own
    QCOMPARE(page.findChildren<QWidget *>(QStringLiteral("bv_standardlocked")).size(), 1);
}

void tst_StatusRouting::parentGoesFirst()
{
    QLineEdit stays;
    {
        QGroupBox group;
        auto *edit = new QLineEdit(&group);
        auto *handler = new BVWidgetStatusHandler(&group);
        handler->attach(edit);
        handler->attach(&stays);
        S::setStatus(edit, S::NeedInput, true);
        S::setStatus(&stays, S::UserEdit, true);
    }
    S::setStatus(&stays, S::NeedInput, true); // no handler left to hear of it
    QVERIFY(S::isStatus(&stays, S::UserEdit | S::NeedInput));
}

void tst_StatusRouting::oddEvents()
{
    Form form;
    BVWidgetStatusChangedEvent nobody(S::Normal, S::NeedInput, nullptr);
    QCoreApplication::sendEvent(form.first, &nobody);
    QVERIFY(S::isStatus(&form.group, S::Normal));

    auto *stranger = new QLineEdit; // not attached, but spoken for
    BVWidgetStatusChangedEvent other(S::Normal, S::NeedInput, stranger);
    QCoreApplication::sendEvent(form.first, &other);
    QVERIFY(S::isStatus(&form.group, S::NeedInput));
    delete stranger;
    QVERIFY(S::isStatus(&form.group, S::Normal));
}

void tst_StatusRouting::lockFollows()
{
    QWidget page;
    auto *edit = new BVLineEdit(&page);
    S::setStatus(edit, S::StandardLocked, true);
    auto *handler = new BVWidgetStatusHandler(&page);
    handler->attach(edit);
    const auto *symbol = edit->findChild<QWidget *>(QStringLiteral("bv_standardlocked"));
    QVERIFY(symbol && !symbol->isHidden());
    QVERIFY(edit->textMargins().right() > 0);
    edit->resetBvStatus(); // silent
    QVERIFY(symbol->isHidden());
    QCOMPARE(edit->textMargins().right(), 0);
    S::setStatus(edit, S::StandardLocked, true);
    QVERIFY(!symbol->isHidden());

    QLineEdit plain(&page);
    handler->attach(&plain);
    S::setStatus(&plain, S::StandardLocked, true);
    handler->detach(&plain);
    QVERIFY(plain.findChild<QWidget *>(QStringLiteral("bv_standardlocked"))->isHidden());
}

void tst_StatusRouting::lockSymbol()
{
    QGroupBox group;
    auto *edit = new QLineEdit(&group);
    edit->resize(100, 24);
    (new BVWidgetStatusHandler(&group))->attach(edit);
    const auto symbol = [edit] { return edit->findChild<QWidget *>(QStringLiteral("bv_standardlocked")); };
    QVERIFY(!symbol());
    S::setStatus(edit, S::StandardLocked, true);
    QVERIFY(symbol() && !symbol()->isHidden());
    QVERIFY(symbol()->geometry().left() > 50);
    group.setLayoutDirection(Qt::RightToLeft);
    QVERIFY(symbol()->geometry().right() < 50);
    S::setStatus(edit, S::StandardLocked, false);
    QVERIFY(symbol()->isHidden());
}

void tst_StatusRouting::referenceToolTip()
{
    const std::tuple<bool, QString, QVariant, QString> rows[] = {
        {false, "", QVariant("DC04"), "Reference value: DC04"},
        {false, "Material", QVariant(2.5), "Material\nReference value: 2.5"},
        {false, "", QVariant(QStringList{"a", "b"}), "Reference value: a, b"},
        {true, "", QVariant(true), "Reference value: On"},
        {true, "", QVariant(int(Qt::PartiallyChecked)), "Reference value: On"},
        {true, "", QVariant("abc"), "Reference value: Undefined"},
        {false, "<b>Grade</b>", QVariant("a<b"), "<b>Grade</b><br>Reference value: a&lt;b"},
        {false, "", QVariant(0.1 + 0.2), "Reference value: 0.3"},
        {false, "", QVariant(QSize(1, 2)), "Reference value: Undefined"},
        {false, "Material", QVariant(), "Material"},
    };
    for (const auto &[checkBox, own, reference, toolTip] : rows) {
        QWidget window;
        QWidget *child = checkBox ? static_cast<QWidget *>(new QCheckBox(&window)) : new QLineEdit(&window);
        (new BVWidgetStatusHandler(&window))->attach(child);
        child->setToolTip(own);
        child->setProperty("ReferenceValue", reference);
        QCOMPARE(BVReferenceValueInterface::composedToolTip(child), toolTip);

        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        QHelpEvent help(QEvent::ToolTip, QPoint(1, 1), child->mapToGlobal(QPoint(1, 1)));
        QApplication::sendEvent(child, &help);
        QCOMPARE(QToolTip::text(), toolTip);
        QToolTip::hideText();
    }
}

void tst_StatusRouting::router()
{
    QLabel receiver;
    auto *sender = new QLineEdit;
    EventCounter senderEvents(sender, BVWidgetStatusChangedEvent::s_eventType);
    S::setStatus(sender, S::UserEdit);
    BVWidgetStatusPropertyDispatcher::dispatch(&receiver, &receiver);
    BVWidgetStatusRouter::route(&receiver, &receiver);
    QVERIFY(!receiver.findChild<BVWidgetStatusRouter *>());
    BVWidgetStatusRouter::route(&receiver, sender);
    QVERIFY(S::testStatusProperty(&receiver, S::UserEdit)); // told at once

    QLineEdit second;
    senderEvents.reset();
    S::setStatus(sender, S::NeedInput);
    QVERIFY(S::isStatus(&receiver, S::NeedInput));
    QCOMPARE(senderEvents.count(), 0); // consumed
    BVWidgetStatusRouter::route(&receiver, &second);
    QVERIFY(S::isStatus(&receiver, S::Normal));
    S::setStatus(sender, S::Different);
    QVERIFY(S::isStatus(&receiver, S::Normal)); // the first route has ended

    BVWidgetStatusRouter::route(&receiver, sender);
    delete sender;
    QCOMPARE(S::getStatusProperty(&receiver), S::Stati());
}

void tst_StatusRouting::dispatcher()
{
    QLineEdit edit;
    BVWidgetStatusPropertyDispatcher::dispatch(&edit, &edit);
    EventCounter events(&edit, BVWidgetStatusChangedEvent::s_eventType);
    S::setStatus(&edit, S::NeedInput, true);
    QVERIFY(S::testStatusProperty(&edit, S::NeedInput));
    QCOMPARE(events.count(), 1);
}

void tst_StatusRouting::batch()
{
    QWidget window;
    window.setStyleSheet(QStringLiteral("QLineEdit[needInputStatus=\"true\"] { color: #ff0000; }"));
    auto *edit = new QLineEdit(&window);
    BVWidgetStatusPropertyDispatcher::dispatch(edit, edit);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    const auto color = [edit] { return edit->palette().color(QPalette::Text); };
    {
        const BVStatusBatch outer;
        const BVStatusBatch inner;
        S::setStatus(edit, S::NeedInput, true);
        QVERIFY(S::testStatusProperty(edit, S::NeedInput));
    }
    QVERIFY(color() != QColor(Qt::red));
    QTRY_COMPARE(color(), QColor(Qt::red));
    S::setStatus(edit, S::NeedInput, false);
    QVERIFY(color() != QColor(Qt::red)); // at once without a batch
}

void tst_StatusRouting::batchPolishesOnce()
{
    QGroupBox group;
    auto *handler = new BVWidgetStatusHandler(&group);
    QVector<QLineEdit *> edits;
    for (int i = 0; i < 3; ++i) {
        edits.append(new QLineEdit(&group));
        handler->attach(edits.last());
        BVWidgetStatusPropertyDispatcher::dispatch(edits.last(), edits.last());
    }
    group.show();
    QVERIFY(QTest::qWaitForWindowExposed(&group));
    EventCounter groupPolishes(&group, QEvent::StyleChange);
    EventCounter editPolishes(edits.first(), QEvent::StyleChange);
    {
        const BVStatusBatch batch;
        for (QLineEdit *edit : edits) {
            for (const S::Status flag : {S::UserEdit, S::Different, S::NeedInput})
                S::setStatus(edit, flag, true);
        }
    }
    QCOMPARE(groupPolishes.count(), 0);
    QTRY_COMPARE(groupPolishes.count(), 1);
    QCoreApplication::processEvents();
    QCOMPARE(groupPolishes.count(), 1);
    QCOMPARE(editPolishes.count(), 1); // with its group, not a second time on its own
}

QTEST_MAIN(tst_StatusRouting)

#include "tst_statusrouting.moc"
