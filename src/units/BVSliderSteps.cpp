// SPDX-License-Identifier: MIT
#include "units/BVSliderSteps_p.h"

#include <algorithm>
#include <iterator>

namespace {

constexpr int s_firstKeyCode = 0x1000000; // the toolkit's codes of keys without a character
constexpr qint64 s_factor = 10;           // of Ctrl; Shift divides by it

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

qint64 BVSliderSteps::ofVirtualKey(int key, Qt::KeyboardModifiers modifiers) const
{
    qint64 distance = 0;
    if (key < s_firstKeyCode || !ofKey(key, distance))
        distance = qBound(-s_farthest, qint64(key) * single, s_farthest);
    if (qAbs(distance) == s_farthest)
        return distance;
    if (modifiers & Qt::ControlModifier)
        distance = qBound(-s_farthest, distance * s_factor, s_farthest);
    if (!(modifiers & Qt::ShiftModifier) || distance == 0)
        return distance;
    const qint64 small = distance / s_factor;
    return small != 0 ? small : (distance < 0 ? -1 : 1);
}
