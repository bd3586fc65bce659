// SPDX-License-Identifier: MIT
#pragma once

#include <QRect>
#include <QVector>
#include <Qt>

/// Where the arrow keys, Home and End lead among things that lie side by side and below each other.
namespace BVArrowStep {

/// The index of the rectangle that @p key leads to from @p current: for left and right the next one
/// at the same height, for up and down the closest one of the next row, for Home and End the first
/// and last of all, from top to bottom. -1 for other keys and where there is nothing.
int next(const QVector<QRect> &rects, int current, Qt::Key key);

} // namespace BVArrowStep
