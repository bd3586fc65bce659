// SPDX-License-Identifier: MIT
#include "navigation/BVArrowStep_p.h"

#include <optional>
#include <tuple>

namespace {

/// How far away things are; the first number counts first.
using Distance = std::tuple<int, int>;
using OptionalDistance = std::optional<Distance>;

OptionalDistance sideways(const QRect &from, const QRect &to)
{
    const bool isSameRow = to.top() <= from.bottom() && to.bottom() >= from.top();
    const int way = to.left() - from.right();
    return isSameRow && way > 0 ? OptionalDistance({way, 0}) : std::nullopt;
}

OptionalDistance downwards(const QRect &from, const QRect &to)
{
    const int way = to.top() - from.bottom();
    const int aside = qAbs(to.left() - from.left());
    return way > 0 ? OptionalDistance({way, aside}) : std::nullopt;
}

OptionalDistance distance(const QRect &from, const QRect &to, Qt::Key key)
{
    switch (key) {
    case Qt::Key_Left:
        return sideways(to, from);
    case Qt::Key_Right:
        return sideways(from, to);
    case Qt::Key_Up:
        return downwards(to, from);
    case Qt::Key_Down:
        return downwards(from, to);
    case Qt::Key_Home:
        return Distance{to.top(), to.left()};
    case Qt::Key_End:
        return Distance{-to.top(), -to.left()};
    default:
        return std::nullopt;
    }
}

} // namespace

int BVArrowStep::next(const QVector<QRect> &rects, int current, Qt::Key key)
{
    if (current < 0 || current >= rects.size())
        return -1;
    int next = -1;
    OptionalDistance least;
    for (int i = 0; i < rects.size(); ++i) {
        const OptionalDistance way = distance(rects[current], rects[i], key);
        if (way && (!least || *way < *least)) {
            next = i;
            least = way;
        }
    }
    return next;
}
