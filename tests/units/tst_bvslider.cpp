// SPDX-License-Identifier: MIT
#include "TestRows.h"
#include "TestSupport.h"
#include "foundation/VirtualSliderEvent.h"
#include "units/BVFormatter.h"
#include "units/BVSlider.h"

#include <QAccessible>
#include <QSignalSpy>
#include <QStyleOptionSlider>
#include <QtTest>
#include <QtWidgets>

#include <memory>

namespace {

constexpr int s_lowest = std::numeric_limits<int>::min();
constexpr int s_highest = std::numeric_limits<int>::max();
constexpr int s_length = 219; // px, so that a horizontal track has 200 pixels
constexpr int s_throttleTime = 60; // ms

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

QStyleOptionSlider optionOf(const BVSlider &slider)
{
    struct Opened : BVSlider
    {
        using BVSlider::initStyleOption;
    };
    QStyleOptionSlider option;
    (slider.*(&Opened::initStyleOption))(&option);
    return option;
}

void moveMouse(QWidget *widget, const QPoint &position)
{
    QMouseEvent event(QEvent::MouseMove, position, widget->mapToGlobal(position), Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(widget, &event);
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
    void admissibleRange_data();
    void admissibleRange();
    void press_data();
    void press();
    void limitDrag();
    void limitDragVertical();
    void escapeBringsBack();
    void handleStaysAdmissible();
    void keys_data();
    void keys();
    void tabGoesThroughHandles();
    void virtualSlider_data();
    void virtualSlider();
    void wheelNeedsFocus();
    void values_data();
    void values();
    void refusedUserRanges();
    void texts();
    void spanSlider();
    void lock();
    void accessibility();
    void slotsMayDelete();
    void painting_data();
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
    row("at the left margin", false, false, false, false, 8, 0);
    row("behind it", false, false, false, false, 9, 1);
    row("middle", false, false, false, false, 108, 100);
    row("before the right margin", false, false, false, false, s_length - 12, 199);
    row("in the right margin", false, false, false, false, s_length - 5, 200);
    row("far left", false, false, false, false, s_lowest, 0);
    row("far right", false, false, false, false, s_highest, 200);
    row("extended, at the left margin", false, true, false, false, 6, 0);
    row("extended, at the right margin", false, true, false, false, s_length - 6, 200);
    row("extended, before it", false, true, false, false, s_length - 8, 198);
    row("right to left", false, false, true, false, s_length - 9, 0);
    row("right to left, behind it", false, false, true, false, s_length - 10, 1);
    row("inverted", false, false, false, true, s_length - 10, 1);
    row("both", false, false, true, true, 9, 1);
    row("vertical, top", true, false, false, false, 8, 200);
    row("vertical, bottom", true, false, false, false, s_length - 8, 0);
    row("vertical, before it", true, true, false, false, s_length - 10, 2);
    row("vertical, inverted", true, false, false, true, 10, 2);
}

void tst_BVSlider::pixelToPosition()
{
    const auto [vertical, extended, rightToLeft, inverted, pixel, position] = fetched<bool, bool, bool, bool, int, int>("vertical", "extended", "rightToLeft", "inverted", "pixel", "position");
    const auto slider = shownSlider(vertical ? Qt::Vertical : Qt::Horizontal);
    slider->setExtended(extended);
    slider->setLayoutDirection(rightToLeft ? Qt::RightToLeft : Qt::LeftToRight);
    slider->setInvertedAppearance(inverted);
    QCOMPARE(slider->pixelPosToValue(pixel), position);
    QCOMPARE(slider->pixelPosToValue(vertical ? QPoint(0, pixel) : QPoint(pixel, 0)), position);
}

void tst_BVSlider::handlePixels_data()
{
    const Table<Qt::Orientation, int, int, QString> row("orientation", "minimum", "maximum", "sheet");
    row("horizontal", Qt::Horizontal, 0, 200, QString());
    row("vertical", Qt::Vertical, -5, 5, QString());
    row("all", Qt::Horizontal, s_lowest, s_highest, QString());
    row("one", Qt::Vertical, 7, 7, QString());
    row("sheet", Qt::Horizontal, 0, 1000,
        QStringLiteral("QSlider{padding:9px} QSlider::groove{height:4px;margin:0 6px;border:1px solid red} QSlider::handle{width:12px;border:2px solid blue;margin:-8px 0}"));
}

void tst_BVSlider::handlePixels()
{
    const auto [orientation, minimum, maximum, sheet] = fetched<Qt::Orientation, int, int, QString>("orientation", "minimum", "maximum", "sheet");
    const auto slider = shownSlider(orientation);
    slider->setStyleSheet(sheet);
    slider->setRange(minimum, maximum);
    QStyleOptionSlider option = optionOf(*slider);
    for (const int value : {minimum, minimum / 2 + maximum / 2, maximum}) {
        option.sliderPosition = value;
        const QPoint middle = slider->style()->subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderHandle, slider.get()).center();
        QCOMPARE(slider->valueToPixelPos(value), orientation == Qt::Horizontal ? middle.x() : middle.y());
    }
}

void tst_BVSlider::admissibleRange_data()
{
    // From 10..150 and the value 100.
    const Table<int, int, int, int, int, int> row("minimum", "maximum", "newMinimum", "newMaximum", "value", "signalCount");
    row("unchanged", 10, 150, 10, 150, 100, 0);
    row("narrower around the value", 50, 120, 50, 120, 100, 1);
    row("above the value", 110, 150, 110, 150, 110, 1);
    row("below the value", 10, 90, 10, 90, 90, 1);
    row("maximum below the minimum", 10, 5, 10, 10, 10, 1);
    row("minimum above the maximum", 160, 150, 150, 150, 150, 1);
    row("both crossed", 90, 80, 80, 80, 80, 1);
    row("beyond the range", s_lowest, s_highest, s_lowest, s_highest, 100, 1);
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
}
