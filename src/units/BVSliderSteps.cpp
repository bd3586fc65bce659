// SPDX-License-Identifier: MIT
#include "units/BVSliderSteps_p.h"

#include <QAbstractSlider>
#include <QApplication>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>
#include <iterator>

namespace {

constexpr int s_firstKeyCode = 0x01000000; // the toolkit's codes of keys without a character
constexpr int s_lastKeyCode = 0x01ffffff;
constexpr double s_notch = 120.0; // eighths of a degree, of the wheel
constexpr qint64 s_factor = 10;   // of Ctrl; Shift divides by it

struct KeyRow
{
    int key;
    int direction; // towards larger positions
    bool isPage;
    bool mirrors; // in right-to-left layouts
};

// clang-format off
constexpr KeyRow s_keys[] = {
    {Qt::Key_Left,     -1, false, true},
    {Qt::Key_Right,     1, false, true},
    {Qt::Key_Up,        1, false, false},
    {Qt::Key_Down,     -1, false, false},
    {Qt::Key_PageUp,    1, true,  false},
    {Qt::Key_PageDown, -1, true,  false},
};
// clang-format on

} // namespace

BVSliderSteps::BVSliderSteps(const QAbstractSlider &slider)
    : single(slider.singleStep())
    , page(slider.pageStep())
    , rightToLeft(slider.isRightToLeft())
    , inverted(slider.invertedControls())
{
}

bool BVSliderSteps::ofKey(int key, qint64 &distance) const
{
    if (key == Qt::Key_Home || key == Qt::Key_End) {
        distance = key == Qt::Key_Home ? -s_farthest : s_farthest;
        return true;
    }
    const auto *row = std::find_if(std::begin(s_keys), std::end(s_keys),
                                   [key](const KeyRow &one) { return one.key == key; });
    if (row == std::end(s_keys))
        return false;
    const bool isReversed = (row->mirrors && rightToLeft) != inverted;
    const qint64 step = row->isPage ? page : single;
    distance = (isReversed ? -row->direction : row->direction) * step;
    return true;
}

bool BVSliderSteps::ofVirtualKey(int key, Qt::KeyboardModifiers modifiers, qint64 &distance) const
{
    qint64 length = qBound(-s_farthest, qint64(key) * single, s_farthest);
    if (key >= s_firstKeyCode && key <= s_lastKeyCode && !ofKey(key, length))
        return false;
    const bool isBounded = qAbs(length) == s_farthest;
    if (!isBounded && (modifiers & Qt::ControlModifier))
        length = qBound(-s_farthest, length * s_factor, s_farthest);
    if (!isBounded && (modifiers & Qt::ShiftModifier) && length != 0)
        length = qAbs(length) < s_factor ? (length < 0 ? -1 : 1) : length / s_factor;
    distance = length;
    return true;
}

qint64 BVSliderSteps::ofWheel(const QWheelEvent &event, double &rest) const
{
    const QPoint angle = event.angleDelta();
    const bool isUpright = angle.y() != 0;
    const bool isReversed = (event.inverted() != inverted) != !isUpright;
    const double notches = (isUpright ? angle.y() : angle.x()) / s_notch * (isReversed ? -1 : 1);
    if (event.modifiers() & (Qt::ControlModifier | Qt::ShiftModifier)) {
        rest = 0.0;
        return qBound<qint64>(-page, std::lround(notches * page), page);
    }
    if (rest * notches < 0)
        rest = 0.0;
    rest += notches * QApplication::wheelScrollLines() * single;
    const double whole = std::trunc(rest);
    rest -= whole;
    return static_cast<qint64>(qBound(double(-page), whole, double(page)));
}
