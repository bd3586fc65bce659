// SPDX-License-Identifier: MIT
#include "TestRows.h"
#include "TestSupport.h"
#include "foundation/VirtualSliderEvent.h"
#include "units/BVFormatter.h"
#include "units/BVSlider.h"

#include <QAccessible>
#include <QSignalSpy>
#include <QtTest>
#include <QtWidgets>

#include <memory>

namespace {

constexpr int s_lowest = std::numeric_limits<int>::min();
constexpr int s_highest = std::numeric_limits<int>::max();
constexpr int s_length = 219; // px, so that a horizontal track has 200 pixels

/// A slider from 0 to 200 at 100, shown without a style sheet.
std::unique_ptr<BVSlider> shownSlider(Qt::Orientation orientation = Qt::Horizontal)
{
    auto slider = std::make_unique<BVSlider>(orientation);
    slider->setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    slider->style()->setParent(slider.get());
    slider->setRange(0, 200);
    slider->setValue(100);
    slider->resize(orientation == Qt::Horizontal ? QSize(s_length, 40) : QSize(40, s_length));
    slider->show();
    return slider;
}

void moveMouse(QWidget *widget, const QPoint &position, Qt::MouseButtons held = Qt::LeftButton)
{
    QMouseEvent event(QEvent::MouseMove, position, widget->mapToGlobal(position), Qt::NoButton, held, Qt::NoModifier);
    QApplication::sendEvent(widget, &event);
}

/// Ends a drag without a release: by a property, an event or what is named.
void interrupt(BVSlider *slider, const QString &by)
{
    QEvent blocked(QEvent::WindowBlocked);
    if (by == QLatin1String("blocked"))
        QApplication::sendEvent(slider, &blocked);
    else if (by == QLatin1String("locked"))
        slider->setLocked(true);
    else if (by == QLatin1String("lost release"))
        moveMouse(slider, QPoint(1, 1), Qt::NoButton);
    else if (by == QLatin1String("minimum"))
        slider->setMinimum(130);
    else
        slider->setProperty(qUtf8Printable(by), by == QLatin1String("spanSlider"));
}

QPoint onGroove(const BVSlider &slider, int pixel)
{
    const QPoint middle = slider.rect().center();
    return slider.orientation() == Qt::Horizontal ? QPoint(pixel, middle.y()) : QPoint(middle.x(), pixel);
}

} // namespace

class tst_BVSlider : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void pixelToPosition_data();
    void pixelToPosition();
    void handlePixels_data();
    void handlePixels();
    void interruptedDrag_data();
    void interruptedDrag();
    void admissibleRange_data();
    void admissibleRange();
    void press_data();
    void press();
    void limitDrag();
    void limitDragVertical();
    void keys_data();
    void keys();
    void tabGoesThroughHandles();
    void virtualSlider_data();
    void virtualSlider();
    void wheelMovesLimit();
    void values_data();
    void values();
    void texts();
    void accessibility();
    void painting();
};

void tst_BVSlider::initTestCase()
{
    muteOffscreenWarnings();
}

void tst_BVSlider::pixelToPosition_data()
{
    const Table<bool, bool, bool, bool, int, int> row("vertical", "extended", "rightToLeft", "inverted", "pixel", "position");
    row("in the left margin", false, false, false, false, 3, 0);
    row("behind it", false, false, false, false, 9, 1);
    row("middle", false, false, false, false, 108, 100);
    row("in the right margin", false, false, false, false, s_length - 5, 200);
    row("extended, at the right margin", false, true, false, false, s_length - 6, 200);
    row("right to left, behind it", false, false, true, false, s_length - 10, 1);
    row("inverted", false, false, false, true, s_length - 10, 1);
    row("both", false, false, true, true, 9, 1);
    row("vertical, bottom", true, false, false, false, s_length - 8, 0);
    row("vertical, inverted", true, false, false, true, 10, 2);
}

void tst_BVSlider::pixelToPosition()
{
    const auto narrow = shownSlider();
    narrow->resize(16, 40); // nothing but margins
    QCOMPARE(narrow->pixelPosToValue(5), 0);
    QCOMPARE(narrow->pixelPosToValue(12), 200);
    const auto [vertical, extended, rightToLeft, inverted, pixel, position] =
        fetched<bool, bool, bool, bool, int, int>("vertical", "extended", "rightToLeft", "inverted", "pixel", "position");
    const auto slider = shownSlider(vertical ? Qt::Vertical : Qt::Horizontal);
    slider->setExtended(extended);
    slider->setLayoutDirection(rightToLeft ? Qt::RightToLeft : Qt::LeftToRight);
    slider->setInvertedAppearance(inverted);
    QCOMPARE(slider->pixelPosToValue(pixel), position);
    QCOMPARE(slider->pixelPosToValue(vertical ? QPoint(0, pixel) : QPoint(pixel, 0)), position);
}

void tst_BVSlider::handlePixels_data()
{
    const Table<int, int, int, int> row("minimum", "maximum", "position", "pixel"); // the handle's way is 7 to 211
    row("left end", 0, 200, 0, 7);
    row("middle", 0, 200, 100, 109);
    row("right end", 0, 200, 200, 211);
    row("all, middle", s_lowest, s_highest, 0, 109);
    row("all, right end", s_lowest, s_highest, s_highest, 211);
    row("one too many, middle", -1, s_highest, s_highest / 2, 109);
    row("one too many, right end", -1, s_highest, s_highest, 211);
    row("half, middle", -(1 << 30), 1 << 30, 0, 109);
    row("empty", s_highest, s_highest, s_highest, 7);
}

void tst_BVSlider::handlePixels()
{
    const auto [minimum, maximum, position, pixel] = fetched<int, int, int, int>("minimum", "maximum", "position", "pixel");
    const auto slider = shownSlider();
    slider->setRange(minimum, maximum);
    slider->setValue(position);
    QCOMPARE(slider->valueToPixelPos(position), pixel);
    QTest::mouseMove(slider.get(), onGroove(*slider, pixel));
    QTest::mousePress(slider.get(), Qt::LeftButton, Qt::NoModifier, onGroove(*slider, pixel)); // on the handle
    moveMouse(slider.get(), onGroove(*slider, s_length));
    QCOMPARE(slider->value(), maximum);
    moveMouse(slider.get(), onGroove(*slider, 0));
    QCOMPARE(slider->value(), minimum);
    QTest::mouseRelease(slider.get(), Qt::LeftButton, Qt::NoModifier, onGroove(*slider, 0));
    QVERIFY(!slider->isSliderDown());
    QCOMPARE(slider->pixelPosToValue(108), static_cast<int>((qint64(minimum) + maximum + 1) / 2));
}

void tst_BVSlider::admissibleRange_data()
{
    // From 10..150 and the value 100.
    const Table<int, int, int, int, int, int> row("minimum", "maximum", "newMinimum", "newMaximum", "value", "signalCount");
    row("unchanged", 10, 150, 10, 150, 100, 0);
    row("above the value", 110, 150, 110, 150, 110, 1);
    row("maximum below the minimum", 10, 5, 10, 10, 10, 1);
    row("minimum above the maximum", 160, 150, 150, 150, 150, 1);
    row("both crossed", 90, 80, 80, 80, 80, 1);
    row("beside the range", 300, 400, 300, 400, 200, 1);
}

void tst_BVSlider::admissibleRange()
{
    const auto [minimum, maximum, newMinimum, newMaximum, value, signalCount] =
        fetched<int, int, int, int, int, int>("minimum", "maximum", "newMinimum", "newMaximum", "value", "signalCount");
    const auto slider = shownSlider();
    slider->setAdmissibleRange(10, 150, false);
    QSignalSpy spy(slider.get(), &BVSlider::admissibleRangeChanged);
    slider->setAdmissibleRange(minimum, maximum, true);
    QVERIFY(slider->limitHandlesActive());
    QCOMPARE(spy.count(), signalCount);
    if (signalCount > 0)
        QCOMPARE(spy.last(), QVariantList({newMinimum, newMaximum}));
    QCOMPARE(slider->admissibleMinimum(), newMinimum);
    QCOMPARE(slider->admissibleMaximum(), newMaximum);
    QCOMPARE(slider->value(), value);
    slider->clearAdmissibleRange();
    QCOMPARE(slider->admissibleMinimum(), s_lowest);
    QCOMPARE(slider->admissibleMaximum(), s_highest);
    slider->setValue(3); // the program may go where the user may not
    slider->setAdmissibleRange(0, 50, true);
    slider->setValue(199);
    QCOMPARE(slider->value(), 199);
    BVSlider *deleted = shownSlider().release();
    connect(deleted, &QSlider::valueChanged, deleted, [deleted] { delete deleted; });
    deleted->setAdmissibleRange(120, 150, true);
}

void tst_BVSlider::press_data()
{
    const Table<QString, QPoint, int, int> row("setting", "offset", "value", "requests");
    // The offset counts from the middle of the handle, which stands at 100.
    row("on the groove", QString(), QPoint(50, 0), 150, 1);
    row("beside the groove, along the handle", QString(), QPoint(50, 6), 150, 1);
    row("on the handle", QString(), QPoint(2, 2), 100, 0);
    row("beyond the admissible range", QStringLiteral("range"), QPoint(80, 0), 150, 1);
    row("input off", QStringLiteral("inputOff"), QPoint(50, 0), 100, 0);
    row("locked", QStringLiteral("locked"), QPoint(50, 0), 100, 0);
    row("span", QStringLiteral("span"), QPoint(50, 0), 100, 0);
    row("vertical", QStringLiteral("vertical"), QPoint(0, -50), 150, 1);
    row("vertical, on the handle", QStringLiteral("vertical"), QPoint(0, 3), 100, 0);
}

void tst_BVSlider::press()
{
    const auto [setting, offset, value, requests] = fetched<QString, QPoint, int, int>("setting", "offset", "value", "requests");
    const bool isVertical = setting == QLatin1String("vertical");
    const auto slider = shownSlider(isVertical ? Qt::Vertical : Qt::Horizontal);
    if (setting == QLatin1String("range"))
        slider->setAdmissibleRange(50, 150, true);
    slider->setInputEnabled(setting != QLatin1String("inputOff"));
    slider->setLocked(setting == QLatin1String("locked"));
    slider->setUseAsSpanSlider(setting == QLatin1String("span"));
    QSignalSpy spy(slider.get(), &BVSlider::requestValueChange);
    // Where the click stands for 100: a little off the handle's middle, as the margins differ.
    const int middle = isVertical ? s_length / 2 : 108;
    QTest::mouseClick(slider.get(), Qt::LeftButton, Qt::NoModifier, onGroove(*slider, middle) + offset);
    QCOMPARE(slider->value(), value);
    QCOMPARE(spy.count(), requests);
}

void tst_BVSlider::limitDrag()
{
    const auto slider = shownSlider();
    slider->setAdmissibleRange(50, 150, true);
    slider->setExtended(true);
    QSignalSpy spy(slider.get(), &BVSlider::admissibleRangeChanged);
    const QPoint start = slider->handleRect(BVSlider::LowerLimitHandle).center();
    QTest::mousePress(slider.get(), Qt::LeftButton, Qt::NoModifier, start);
    QCOMPARE(slider->focusedHandle(), BVSlider::LowerLimitHandle);
    const QPoint first(40, start.y());
    moveMouse(slider.get(), first);
    QCOMPARE(slider->admissibleMinimum(), slider->pixelPosToValue(40));
    QCOMPARE(spy.count(), 1);
    QCOMPARE(QToolTip::text(), QString::number(slider->admissibleMinimum(), 'g', 3));
    moveMouse(slider.get(), first);                  // the same place
    moveMouse(slider.get(), QPoint(180, start.y())); // within the 60 ms
    QCOMPARE(spy.count(), 1);
    QTRY_COMPARE(spy.count(), 2); // when they are over; the other limit stops it
    QCOMPARE(slider->admissibleMinimum(), 150);
    QCOMPARE(slider->value(), 150);
    moveMouse(slider.get(), QPoint(80, start.y()));
    QTest::mouseRelease(slider.get(), Qt::LeftButton, Qt::NoModifier, QPoint(80, start.y()));
    QCOMPARE(spy.count(), 3); // the open move and the release are one
    QCOMPARE(slider->admissibleMinimum(), slider->pixelPosToValue(80));
    QTRY_VERIFY(QToolTip::text().isEmpty());
    QTest::mouseClick(slider.get(), Qt::LeftButton, Qt::NoModifier, slider->handleRect(BVSlider::UpperLimitHandle).center());
    QCOMPARE(spy.count(), 4);
    QCOMPARE(spy.last().last().toInt(), 150); // a click moves nothing, but tells
    QTest::mousePress(slider.get(), Qt::LeftButton, Qt::NoModifier, slider->handleRect(BVSlider::UpperLimitHandle).center());
    QTest::mouseClick(slider.get(), Qt::LeftButton, Qt::NoModifier, onGroove(*slider, 130)); // the release got lost
    QCOMPARE(slider->value(), slider->pixelPosToValue(130));
}

void tst_BVSlider::limitDragVertical()
{
    const auto slider = shownSlider(Qt::Vertical);
    slider->setAdmissibleRange(50, 150, true);
    slider->setInputEnabled(false);
    QSignalSpy spy(slider.get(), &BVSlider::admissibleRangeChanged);
    const QPoint start = slider->handleRect(BVSlider::UpperLimitHandle).center();
    QTest::mousePress(slider.get(), Qt::LeftButton, Qt::NoModifier, start);
    for (const int pixel : {40, 30, 20}) {
        moveMouse(slider.get(), QPoint(start.x(), pixel));
        QCOMPARE(slider->admissibleMaximum(), slider->pixelPosToValue(pixel));
    }
    slider->setValue(60); // someone else
    slider->setAdmissibleMinimum(55);
    QTest::keyClick(slider.get(), Qt::Key_Escape);
    QCOMPARE(slider->value(), 60);
    QCOMPARE(spy.last(), QVariantList({55, 150}));
    QTest::mouseRelease(slider.get(), Qt::LeftButton, Qt::NoModifier, QPoint(start.x(), 20));
    QCOMPARE(slider->admissibleMaximum(), 150);
    QCOMPARE(spy.count(), 5); // three moves, someone else, and the way back
}

void tst_BVSlider::interruptedDrag_data()
{
    const Table<QString, BVSlider::Handle> row("by", "heldOn"); // heldOn: it goes on
    for (const char *by : {"locked", "enabled", "visible", "blocked", "lost release"})
        row(by, QLatin1String(by), BVSlider::NoHandle);
    for (const char *by : {"inputEnabled", "spanSlider"})
        row(by, QLatin1String(by), BVSlider::LowerLimitHandle);
    for (const char *by : {"limitHandlesActive", "minimum"})
        row(by, QLatin1String(by), BVSlider::ValueHandle);
}

// Nothing moves afterwards, and what the value's drag has not committed is gone.
void tst_BVSlider::interruptedDrag()
{
    const auto [by, heldOn] = fetched<QString, BVSlider::Handle>("by", "heldOn");
    for (const auto handle : {BVSlider::ValueHandle, BVSlider::LowerLimitHandle}) {
        if (handle == heldOn)
            continue;
        const bool isLimit = handle == BVSlider::LowerLimitHandle;
        const auto slider = shownSlider();
        slider->setTracking(false);
        slider->setAdmissibleRange(50, 150, true);
        const QPoint start = slider->handleRect(handle).center();
        QTest::mousePress(slider.get(), Qt::LeftButton, Qt::NoModifier, start);
        moveMouse(slider.get(), start + QPoint(10, 0));
        moveMouse(slider.get(), start + QPoint(20, 0)); // of a limit, pending
        QSignalSpy spy(slider.get(), &BVSlider::admissibleRangeChanged);
        const int limit = slider->admissibleMinimum();
        QVERIFY(isLimit ? limit > 50 : slider->sliderPosition() > 110);
        interrupt(slider.get(), by);
        QCOMPARE(spy.count(), isLimit ? 1 : 0);
        slider->show();
        moveMouse(slider.get(), start + QPoint(30, 0));
        QCOMPARE(slider->value(), by == QLatin1String("minimum") ? 130 : 100);
        QCOMPARE(slider->sliderPosition(), slider->value());
        QVERIFY(!slider->isSliderDown());
        QCOMPARE(slider->admissibleMinimum(), limit);
        QCOMPARE(spy.count(), isLimit ? 1 : 0);
    }
}

void tst_BVSlider::keys_data()
{
    const Table<BVSlider::Handle, int, bool, int, int, int> row("handle", "key", "rightToLeft", "value", "minimum", "maximum");
    row("value to the end", BVSlider::ValueHandle, Qt::Key_End, false, 150, 50, 150);
    row("lower left, mirrored", BVSlider::LowerLimitHandle, Qt::Key_Left, true, 100, 51, 150);
    row("lower to the other limit", BVSlider::LowerLimitHandle, Qt::Key_End, false, 150, 150, 150);
    row("upper by a page", BVSlider::UpperLimitHandle, Qt::Key_PageUp, false, 100, 50, 160);
    row("upper to the maximum", BVSlider::UpperLimitHandle, Qt::Key_End, false, 100, 50, 200);
}

void tst_BVSlider::keys()
{
    const auto [handle, key, rightToLeft, value, minimum, maximum] =
        fetched<BVSlider::Handle, int, bool, int, int, int>("handle", "key", "rightToLeft", "value", "minimum", "maximum");
    const auto slider = shownSlider();
    slider->setLayoutDirection(rightToLeft ? Qt::RightToLeft : Qt::LeftToRight);
    slider->setAdmissibleRange(50, 150, true);
    slider->setFocusedHandle(handle);
    QSignalSpy spy(slider.get(), &BVSlider::admissibleRangeChanged);
    QTest::keyClick(slider.get(), Qt::Key(key));
    QCOMPARE(slider->value(), value);
    QCOMPARE(slider->admissibleMinimum(), minimum);
    QCOMPARE(slider->admissibleMaximum(), maximum);
    QCOMPARE(spy.count(), handle == BVSlider::ValueHandle ? 0 : 1);
}

void tst_BVSlider::tabGoesThroughHandles()
{
    QWidget window;
    QVBoxLayout layout(&window);
    QLineEdit before;
    BVSlider slider;
    QLineEdit after;
    for (QWidget *widget : {static_cast<QWidget *>(&before), static_cast<QWidget *>(&slider), static_cast<QWidget *>(&after)})
        layout.addWidget(widget);
    slider.setAdmissibleRange(10, 300, true); // the upper limit has no handle
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    before.setFocus();
    QList<int> handles;
    for (const auto key : {Qt::Key_Tab, Qt::Key_Tab, Qt::Key_Tab, Qt::Key_Backtab, Qt::Key_Backtab, Qt::Key_Backtab}) {
        QTest::keyClick(QApplication::focusWidget(), key);
        handles << (slider.hasFocus() ? slider.focusedHandle() : BVSlider::NoHandle);
    }
    QCOMPARE(handles, QList<int>({BVSlider::ValueHandle, BVSlider::LowerLimitHandle, BVSlider::NoHandle, BVSlider::LowerLimitHandle,
                                  BVSlider::ValueHandle, BVSlider::NoHandle}));
    slider.setFocus();
    slider.setFocusedHandle(BVSlider::LowerLimitHandle);
    slider.setLimitHandlesActive(false);
    QCOMPARE(slider.focusedHandle(), BVSlider::ValueHandle);
}

void tst_BVSlider::virtualSlider_data()
{
    const Table<int, Qt::KeyboardModifiers, int, QString> row("keys", "modifiers", "value", "setting");
    row("steps", 5, Qt::NoModifier, 110, QString());
    row("far", 3, Qt::ControlModifier, 150, QString());
    row("one at least", -1, Qt::ShiftModifier, 99, QString());
    row("overflow", s_lowest, Qt::ControlModifier, 50, QString());
    row("arrow", Qt::Key_Left, Qt::NoModifier, 98, QString());
    row("another key", Qt::Key_Escape, Qt::NoModifier, 100, QStringLiteral("unused"));
    row("home", Qt::Key_Home, Qt::ShiftModifier, 50, QString());
    row("input off", 5, Qt::NoModifier, 100, QStringLiteral("inputEnabled"));
    row("disabled", 5, Qt::NoModifier, 100, QStringLiteral("enabled"));
}

void tst_BVSlider::virtualSlider()
{
    const auto [keys, modifiers, value, setting] = fetched<int, Qt::KeyboardModifiers, int, QString>("keys", "modifiers", "value", "setting");
    const auto slider = shownSlider();
    slider->setSingleStep(2);
    slider->setAdmissibleRange(50, 150, true);
    slider->setProperty(qUtf8Printable(setting.isEmpty() ? QStringLiteral("unused") : setting), false);
    Brimvale::VirtualSliderEvent event(keys, modifiers);
    QApplication::sendEvent(slider.get(), &event);
    QCOMPARE(slider->value(), value);
    QCOMPARE(event.isAccepted(), setting.isEmpty());
}

void tst_BVSlider::wheelMovesLimit()
{
    const auto slider = shownSlider();
    slider->setAdmissibleRange(50, 101, false);
    slider->setUseAsSpanSlider(true);
    slider->setFocus();
    QVERIFY(QTest::qWaitForWindowActive(slider.get()));
    for (const int angle : {-60, -20}) { // of 120 for three steps
        QWheelEvent event(QPointF(5, 5), QPointF(5, 5), QPoint(), QPoint(0, angle), Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(slider.get(), &event);
    }
    QCOMPARE(slider->admissibleMinimum(), 48);
}

void tst_BVSlider::values_data()
{
    const Table<double, double, bool, int, double> row("atMinimum", "atMaximum", "logarithmic", "position", "value");
    row("linear", -1.0, 1.0, false, 150, 0.5);
    row("reversed", 10.0, 0.0, false, 50, 7.5);
    row("logarithmic", 1e-3, 1e5, true, 100, 10.0);
    row("huge", -1e308, 1e308, false, 200, 1e308);
}

void tst_BVSlider::values()
{
    const auto [atMinimum, atMaximum, logarithmic, position, value] =
        fetched<double, double, bool, int, double>("atMinimum", "atMaximum", "logarithmic", "position", "value");
    const auto slider = shownSlider();
    QVERIFY(slider->setUserRange(atMinimum, atMaximum, logarithmic ? BVSlider::Logarithmic : BVSlider::Linear));
    QCOMPARE(slider->positionToValue(position), value);
    QCOMPARE(slider->valueToPosition(value), position);
    QCOMPARE(slider->positionToValue(0), atMinimum);
    QCOMPARE(slider->positionToValue(s_highest), atMaximum);
    const bool isReversed = atMinimum > atMaximum;
    QCOMPARE(slider->valueToPosition(s_inf), isReversed ? 0 : 200);
    QCOMPARE(slider->valueToPosition(-s_inf), isReversed ? 200 : 0);
    QCOMPARE(slider->valueToPosition(s_nan), 0);
    QVERIFY(!slider->setUserRange(0, 1, BVSlider::Logarithmic));
    QCOMPARE(slider->positionToValue(0), atMinimum);
}

void tst_BVSlider::texts()
{
    const auto slider = shownSlider();
    QCOMPARE(slider->toolTipText(), QStringLiteral("100"));
    slider->setUserRange(0, 0.4);
    QVERIFY(slider->getFormatter()->setValueUnit(QStringLiteral("m")));
    QVERIFY(slider->getFormatter()->setGlobalOff(QStringLiteral("mm")));
    slider->setToolTip(QStringLiteral("Depth"));
    QCOMPARE(slider->intPositionToUserRelevantValue(100), 200.0);
    QCOMPARE(slider->toolTipText(), QStringLiteral("Depth\n200 mm"));
    slider->setProperty("ReferenceValue", 0.1);
    QVERIFY(BVReferenceValueInterface::composedToolTip(slider.get()).endsWith(QLatin1String(": 100 mm")));
    slider->setUseAsSpanSlider(true);
    QCOMPARE(slider->handlePosition(BVSlider::UpperLimitHandle), 200); // all of the range
    QCOMPARE(slider->admissibleMaximum(), s_highest);
    slider->setAdmissibleRange(50, 100, false);
    QTest::keyClick(slider.get(), Qt::Key_Left); // there is no value handle to take it
    QCOMPARE(slider->admissibleMinimum(), 49);
    QTest::keyClick(slider.get(), Qt::Key_Right);
    QCOMPARE(slider->toolTipText(), QStringLiteral("Depth\n100 mm to 200 mm"));
    slider->setCustomToolTipConverter(BVSlider::MultiplierBasedConverter(0.25, 2));
    QCOMPARE(slider->positionToText(-3), QStringLiteral("-0.75"));
}

void tst_BVSlider::accessibility()
{
    const auto slider = shownSlider();
    QAccessibleInterface *shown = QAccessible::queryAccessibleInterface(slider.get());
    QCOMPARE(shown->childCount(), 0);
    slider->setAdmissibleRange(50, 150, true);
    slider->setUserRange(0, 20);
    QCOMPARE(shown->childCount(), 2);
    QCOMPARE(shown->text(QAccessible::Value), QStringLiteral("10"));
    shown->valueInterface()->setCurrentValue(180);
    QCOMPARE(shown->valueInterface()->currentValue().toInt(), 150);
    QAccessibleInterface *upper = shown->child(1);
    QCOMPARE(upper->text(QAccessible::Name), QStringLiteral("Upper limit"));
    slider->setAccessibleName(QStringLiteral("Force"));
    QCOMPARE(upper->text(QAccessible::Name), QStringLiteral("Force, upper limit"));
    QCOMPARE(upper->text(QAccessible::Value), QStringLiteral("15"));
    QCOMPARE(upper->valueInterface()->minimumValue().toInt(), 50);
    upper->actionInterface()->doAction(QAccessibleActionInterface::decreaseAction());
    QCOMPARE(slider->admissibleMaximum(), 149);
    upper->actionInterface()->doAction(QAccessibleActionInterface::setFocusAction());
    QTRY_COMPARE(shown->focusChild(), upper);
    QVERIFY(upper->state().focused && !shown->state().focused);
    QCOMPARE(shown->childAt(upper->rect().center().x(), upper->rect().center().y()), upper);
}

// Both limits at one place can be taken hold of; nothing asks for more than there is.
void tst_BVSlider::painting()
{
    for (const QString &mode : {QStringLiteral("extended"), QStringLiteral("dvValueSlider"), QStringLiteral("spanSlider")}) {
        for (const int way : {0, 1, 2, 3}) {
            const bool isVertical = way % 2 == 1;
            const auto slider = shownSlider(isVertical ? Qt::Vertical : Qt::Horizontal);
            slider->setLayoutDirection(way < 2 ? Qt::LeftToRight : Qt::RightToLeft);
            slider->setAdmissibleRange(100, 100, true);
            slider->setProperty(qUtf8Printable(mode), true);
            slider->setRange(s_lowest, s_highest);
            slider->mark(10, -10, BVSlider::redBrush());
            slider->setBestValue(5);
            slider->setDistribution(1e300, 1e-300);
            slider->resize(slider->sizeHint().expandedTo(isVertical ? QSize(0, s_length) : QSize(s_length, 0)));
            const QRect lower = slider->handleRect(BVSlider::LowerLimitHandle);
            const QRect upper = slider->handleRect(BVSlider::UpperLimitHandle);
            QVERIFY(slider->rect().contains(lower) && slider->rect().contains(upper));
            const QRect shared = lower.intersected(upper); // the line on which both stand
            QCOMPARE(isVertical ? shared.height() : shared.width(), 1);
            const QImage before = slider->grab().toImage();
            slider->mark(s_lowest, s_highest, BVSlider::greenBrush());
            QVERIFY(slider->grab().toImage() != before);
            QPixmap twice(slider->size() * 2);
            twice.setDevicePixelRatio(2);
            slider->render(&twice);
            const QImage fine = twice.toImage();
            QVERIFY(fine.scaled(slider->size()).scaled(fine.size()) != fine);
            for (const int size : {0, 1, 3}) { // too small for anything
                slider->resize(size, size);
                slider->grab();
            }
        }
    }
}

QTEST_MAIN(tst_BVSlider)
#include "tst_bvslider.moc"
