// SPDX-License-Identifier: MIT
#include "navigation/BVTabBarLayout_p.h"

#include <algorithm>

namespace BVTabBarLayout {

namespace {

constexpr int s_sidePadding = 18;  // px; the status dot stands in it
constexpr int s_buttonPadding = 7; // px between a button and the end of the tab
constexpr int s_buttonGap = 2;     // px between buttons
constexpr int s_gap = 6;           // px between icon, text and buttons
constexpr int s_tabSpacing = 1;    // px between tabs
constexpr int s_imageSpacing = 1;  // px on either side of an image
constexpr int s_noCap = 1 << 24;   // px, no text is as wide

int imageSlot(const Tab &tab)
{
    return tab.m_imageWidth > 0 ? tab.m_imageWidth + 2 * s_imageSpacing : s_tabSpacing;
}

int buttonsWidth(const Tab &tab)
{
    const int count = int(tab.m_hasCloseButton) + int(tab.m_hasMenuButton);
    if (count == 0)
        return s_sidePadding;
    return s_gap + count * s_buttonSize + (count - 1) * s_buttonGap + s_buttonPadding;
}

int iconSlot(const Tab &tab)
{
    return tab.m_hasIcon ? s_iconSize + s_gap : 0;
}

/// The width of a tab without its text and without what comes after it.
int fixedWidth(const Tab &tab)
{
    return s_sidePadding + iconSlot(tab) + buttonsWidth(tab);
}

int textWidth(const Tab &tab, int level, int cap)
{
    return std::min(tab.m_textWidths.value(level), cap);
}

int totalWidth(const QVector<Tab> &tabs, int level, int cap)
{
    int width = 0;
    for (const Tab &tab : tabs)
        width += fixedWidth(tab) + textWidth(tab, level, cap) + imageSlot(tab);
    return width;
}

int levelCount(const QVector<Tab> &tabs)
{
    return tabs.isEmpty() ? 1 : std::max(1, tabs.first().m_textWidths.size());
}

int firstFittingLevel(const QVector<Tab> &tabs, int width)
{
    const int last = levelCount(tabs) - 1;
    for (int level = 0; level < last; ++level) {
        if (totalWidth(tabs, level, s_noCap) <= width)
            return level;
    }
    return last;
}

/// The widest that a text may be for all tabs to fit; never less than what eliding leaves.
int textCap(const QVector<Tab> &tabs, int level, int width)
{
    if (totalWidth(tabs, level, s_noCap) <= width)
        return s_noCap;
    int fits = s_minimumTextWidth;
    int widest = fits;
    for (const Tab &tab : tabs)
        widest = std::max(widest, tab.m_textWidths.value(level));
    while (fits + 1 < widest) {
        const int middle = (fits + widest) / 2;
        (totalWidth(tabs, level, middle) <= width ? fits : widest) = middle;
    }
    return fits;
}

QRect centered(int x, int size, const QRect &tab)
{
    return {x, tab.top() + (tab.height() - size) / 2, size, size};
}

/// Where things stand with the first tab at 0 and the reading direction to the right.
Place placeOf(const Tab &tab, int textWidth, const QRect &rect)
{
    Place place;
    place.m_tab = rect;
    int x = rect.left() + s_sidePadding;
    if (tab.m_hasIcon)
        place.m_icon = centered(x, s_iconSize, rect);
    x += iconSlot(tab);
    place.m_text = QRect(x, rect.top(), textWidth, rect.height());
    x += textWidth + s_gap;
    if (tab.m_hasMenuButton) {
        place.m_menuButton = QPolygon(centered(x, s_buttonSize, rect));
        x += s_buttonSize + s_buttonGap;
    }
    if (tab.m_hasCloseButton)
        place.m_closeButton = QPolygon(centered(x, s_buttonSize, rect));
    if (tab.m_imageWidth > 0)
        place.m_image =
            QRect(rect.right() + 1 + s_imageSpacing, rect.top(), tab.m_imageWidth, rect.height());
    return place;
}

/// Turns places in the reading direction into places on the bar.
class Mapping
{
public:
    Mapping(const QRect &area, int offset, bool rightToLeft)
        : m_area(area)
        , m_shift(area.left() - offset)
        , m_rightToLeft(rightToLeft)
    {
    }

    QRect map(const QRect &rect) const
    {
        if (rect.isEmpty())
            return QRect();
        const QRect shifted = rect.translated(m_shift, 0);
        if (!m_rightToLeft)
            return shifted;
        const int left = m_area.left() + m_area.right() - shifted.right();
        return {QPoint(left, shifted.top()), shifted.size()};
    }
    QPolygon map(const QPolygon &polygon) const
    {
        if (polygon.isEmpty())
            return polygon;
        const QRect box(polygon.at(0), polygon.at(2) - QPoint(1, 1));
        return QPolygon(map(box));
    }
    Place map(const Place &place) const
    {
        return {map(place.m_tab),   map(place.m_icon),        map(place.m_text),
                map(place.m_image), map(place.m_closeButton), map(place.m_menuButton)};
    }

private:
    QRect m_area;
    int m_shift;
    bool m_rightToLeft;
};

QVector<Place> placesOf(const Request &request, int level, int cap)
{
    QVector<Place> places;
    places.reserve(request.m_tabs.size());
    const int height = request.m_size.height() - s_topMargin;
    int x = 0;
    for (const Tab &tab : request.m_tabs) {
        const int text = textWidth(tab, level, cap);
        const QRect rect(x, s_topMargin, fixedWidth(tab) + text, height);
        places.append(placeOf(tab, text, rect));
        x += rect.width() + imageSlot(tab);
    }
    return places;
}

/// The offset nearest to @p offset that shows the tab between the arrows.
int offsetShowing(const QRect &tab, int offset, int width)
{
    const int most = tab.left() - s_arrowWidth;
    const int least = tab.right() + 1 - width + s_arrowWidth;
    return std::min(std::max(offset, least), most);
}

void placeArrows(Result *result, bool rightToLeft)
{
    QRect left(result->m_area.topLeft(), QSize(s_arrowWidth, result->m_area.height()));
    QRect right = left;
    right.moveRight(result->m_area.right());
    if (result->m_offset > 0)
        result->m_backArrow = rightToLeft ? right : left;
    if (result->m_offset < result->m_maximumOffset)
        result->m_forwardArrow = rightToLeft ? left : right;
}

QRect areaOf(const Request &request)
{
    const int width = std::max(0, request.m_size.width() - request.m_reserved);
    const int left = request.m_rightToLeft ? request.m_size.width() - width : 0;
    return {left, 0, width, request.m_size.height()};
}

} // namespace

int contentWidth(const QVector<Tab> &tabs, int level)
{
    return totalWidth(tabs, level, s_noCap);
}

Result layOut(const Request &request)
{
    Result result;
    result.m_area = areaOf(request);
    const int width = result.m_area.width();
    result.m_level = firstFittingLevel(request.m_tabs, width);
    const int cap = textCap(request.m_tabs, result.m_level, width);
    QVector<Place> places = placesOf(request, result.m_level, cap);
    const int total = totalWidth(request.m_tabs, result.m_level, cap);
    result.m_maximumOffset = std::max(0, total - width);
    result.m_offset = request.m_offset;
    if (request.m_shown >= 0 && request.m_shown < places.size())
        result.m_offset = offsetShowing(places.at(request.m_shown).m_tab, result.m_offset, width);
    result.m_offset = qBound(0, result.m_offset, result.m_maximumOffset);
    const Mapping mapping(result.m_area, result.m_offset, request.m_rightToLeft);
    for (Place &place : places)
        place = mapping.map(place);
    result.m_places = std::move(places);
    placeArrows(&result, request.m_rightToLeft);
    return result;
}

Hit hitAt(const Result &layout, const QPoint &point)
{
    if (layout.m_backArrow.contains(point))
        return {-1, Part::BackArrow};
    if (layout.m_forwardArrow.contains(point))
        return {-1, Part::ForwardArrow};
    if (!layout.m_area.contains(point))
        return {};
    for (int index = 0; index < layout.m_places.size(); ++index) {
        const Place &place = layout.m_places.at(index);
        if (!place.m_tab.contains(point))
            continue;
        if (place.m_closeButton.containsPoint(point, Qt::WindingFill))
            return {index, Part::CloseButton};
        if (place.m_menuButton.containsPoint(point, Qt::WindingFill))
            return {index, Part::MenuButton};
        return {index, Part::Tab};
    }
    return {};
}

} // namespace BVTabBarLayout
