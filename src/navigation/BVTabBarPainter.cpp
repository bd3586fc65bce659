// SPDX-License-Identifier: MIT
#include "navigation/BVTabBarPainter_p.h"

#include "foundation/BVStatusColor.h"

#include "navigation/BVTabBarParts_p.h"

#include <QPainter>
#include <QPainterPath>

using BVTabBarLayout::Part;
using Look = BVTabPictures::Look;

namespace {

constexpr double s_cornerRadius = 4.0;     // px, of a tab's upper corners
constexpr double s_buttonRadius = 3.0;     // px
constexpr int s_statusPlace = 4;           // px from the start of the tab to the status dot
constexpr int s_statusSize = 8;            // px, with its rim, which sets it off from any fill
constexpr double s_statusRim = 1.5;        // px
constexpr double s_disabledOpacity = 0.45; // of icons and images
constexpr int s_stripHeight = 2;           // px
constexpr int s_markHeight = 3;            // px
constexpr double s_focusInset = 2.5;       // px between the edge of the tab and its focus frame
constexpr int s_chevronWidth = 4;          // px
constexpr int s_chevronHeight = 8;         // px
constexpr QRgb s_brightRim = qRgb(0xf5, 0xf5, 0xf5);
constexpr QRgb s_darkRim = qRgb(0x24, 0x24, 0x24);

struct Fills
{
    BVTabBarGradient m_plain;
    BVTabBarGradient m_hovered;
    BVTabBarGradient m_disabled;
};

constexpr Fills s_brightFills = {BVTabBarGradient::Tab, BVTabBarGradient::HoveredTab,
                                 BVTabBarGradient::DisabledTab};
constexpr Fills s_darkFills = {BVTabBarGradient::DarkTab, BVTabBarGradient::HoveredDarkTab,
                               BVTabBarGradient::DarkTab};

QString closeIcon(bool isDark)
{
    return isDark ? QStringLiteral(":/Icons/close-light.svg")
                  : QStringLiteral(":/Icons/Shared/x_13.svg");
}

QString menuIcon(bool isDark, bool isEnabled, bool isHovered, bool isPressed)
{
    if (isDark)
        return QStringLiteral(":/Icons/chevron-down-light.svg");
    if (!isEnabled)
        return QStringLiteral(":/Style/QtWidgets/QComboBox/combobox_down_disabled.svg");
    if (isPressed)
        return QStringLiteral(":/Style/QtWidgets/QComboBox/combobox_down_pressed.svg");
    return isHovered ? QStringLiteral(":/Style/QtWidgets/QComboBox/combobox_down_hover.svg")
                     : QStringLiteral(":/Style/QtWidgets/QComboBox/combobox_down.svg");
}

/// The tab's shape, @p inset px within its rectangle on all sides but the lower.
QPainterPath tabShape(const QRect &rect, double inset)
{
    const QRectF box = QRectF(rect).adjusted(inset, inset, -inset, 0);
    const double size = 2 * s_cornerRadius;
    QPainterPath path(box.bottomLeft());
    path.arcTo(QRectF(box.left(), box.top(), size, size), 180, -90);
    path.arcTo(QRectF(box.right() - size, box.top(), size, size), 90, -90);
    path.lineTo(box.bottomRight());
    return path;
}

QColor translucent(QRgb rgb, int alpha)
{
    QColor color(rgb);
    color.setAlpha(alpha);
    return color;
}

} // namespace

BVTabBarPainter::BVTabBarPainter(const BVAnimatedTabBar *bar, BVTabBarParts *parts,
                                 QPainter *painter)
    : m_bar(bar)
    , m_parts(parts)
    , m_painter(painter)
    , m_layout(parts->m_geometry.layout())
{
}

void BVTabBarPainter::paint(const QRect &clip)
{
    m_painter->setRenderHint(QPainter::Antialiasing);
    paintBackground();
    m_painter->setClipRect(m_layout.m_area);
    const QRect visible = clip & m_layout.m_area;
    for (int index = 0; index < m_layout.m_places.size(); ++index) {
        const BVTabBarLayout::Place &place = m_layout.m_places.at(index);
        if ((place.m_tab | place.m_image).intersects(visible))
            paintTab(index);
    }
    m_painter->setClipping(false);
    paintBaseLine();
    m_painter->setClipping(true);
    paintFocus();
    const Part hovered = m_parts->m_hover.part();
    const bool rightToLeft = m_bar->isRightToLeft();
    paintArrow(m_layout.m_backArrow, !rightToLeft, hovered == Part::BackArrow);
    paintArrow(m_layout.m_forwardArrow, rightToLeft, hovered == Part::ForwardArrow);
}

QBrush BVTabBarPainter::brush(BVTabBarGradient gradient) const
{
    const int height = m_bar->height();
    QBrush made(gradientOf(gradient, height, height - BVTabBarLayout::s_topMargin));
    if (!isBarHigh(gradient))
        made.setTransform(QTransform::fromTranslate(0, BVTabBarLayout::s_topMargin));
    return made;
}

void BVTabBarPainter::fillShape(const QRect &rect, const QBrush &brush, double strength)
{
    const double opacity = m_painter->opacity();
    m_painter->setOpacity(opacity * strength);
    m_painter->fillPath(tabShape(rect, 0.5), brush);
    m_painter->setOpacity(opacity);
}

bool BVTabBarPainter::isEnabled(const BVTab &tab) const
{
    return m_bar->isEnabled() && tab.isEnabled();
}

/// A disabled tab's buttons work while it is current.
bool BVTabBarPainter::canUseButtons(int index) const
{
    const BVTabList &tabs = m_parts->m_tabs;
    return isEnabled(tabs.at(index)) || (m_bar->isEnabled() && index == tabs.current());
}

double BVTabBarPainter::contentOpacity(const BVTab &tab) const
{
    const double present =
        m_parts->m_animation.strength(tab.m_id, BVTabBarAnimation::Present, true);
    return isEnabled(tab) ? present : present * s_disabledOpacity;
}

QColor BVTabBarPainter::textColor(const BVTab &tab) const
{
    const BVStatusColor &colors = BVStatusColor::colors();
    if (tab.m_darkStyle)
        return isEnabled(tab) ? QColor(Qt::white) : colors.disabledForDarkBackground();
    return isEnabled(tab) ? colors.forLightBackground(BVWidgetStatus::Normal)
                          : colors.disabledForLightBackground();
}

void BVTabBarPainter::paintBackground()
{
    m_painter->fillRect(m_bar->rect(), brush(BVTabBarGradient::Bar));
}

/// A line below all tabs; the current one stands open towards its page.
void BVTabBarPainter::paintBaseLine()
{
    QRegion line(0, m_bar->height() - 1, m_bar->width(), 1);
    const QRect current = m_layout.m_places.value(m_parts->m_tabs.current()).m_tab;
    line -= current & m_layout.m_area;
    for (const QRect &piece : line)
        m_painter->fillRect(piece, QColor(BVTabBarColors::s_line));
}

void BVTabBarPainter::paintTab(int index)
{
    const BVTab &tab = m_parts->m_tabs.at(index);
    m_painter->setOpacity(
        m_parts->m_animation.strength(tab.m_id, BVTabBarAnimation::Present, true));
    paintShape(index);
    paintMark(index);
    paintStatus(index);
    paintContent(index);
    paintButtons(index);
    paintImage(index);
    m_painter->setOpacity(1.0);
}

void BVTabBarPainter::paintShape(int index)
{
    const BVTab &tab = m_parts->m_tabs.at(index);
    const BVTabBarAnimation &animation = m_parts->m_animation;
    const double current = animation.strength(tab.m_id, BVTabBarAnimation::Current,
                                              index == m_parts->m_tabs.current());
    const double hovered =
        animation.strength(tab.m_id, BVTabBarAnimation::Hovered, index == m_parts->m_hover.index());
    const Fills &fills = tab.m_darkStyle ? s_darkFills : s_brightFills;
    const QRect rect = m_layout.m_places.at(index).m_tab;
    if (current < 1.0)
        fillShape(rect, brush(isEnabled(tab) ? fills.m_plain : fills.m_disabled), 1.0);
    if (current < 1.0 && hovered > 0.0 && isEnabled(tab))
        fillShape(rect, brush(fills.m_hovered), hovered);
    if (current > 0.0)
        fillCurrent(rect, tab.m_darkStyle, current);
    m_painter->strokePath(tabShape(rect, 0.5), QColor(BVTabBarColors::s_line));
}

/// The current tab has a strip along its upper edge.
void BVTabBarPainter::fillCurrent(const QRect &rect, bool isDark, double strength)
{
    const QColor dark(BVTabBarColors::s_dark);
    const QColor bright(BVTabBarColors::s_bright);
    fillShape(rect, isDark ? bright : dark, strength);
    fillShape(rect.adjusted(0, s_stripHeight, 0, 0),
              isDark ? QBrush(dark) : brush(BVTabBarGradient::CurrentTab), strength);
}

void BVTabBarPainter::paintMark(int index)
{
    if (index != m_parts->m_tabs.marked())
        return;
    QRect mark = m_layout.m_places.at(index).m_tab.adjusted(1, 0, -1, 0);
    mark.setTop(mark.bottom() + 1 - s_markHeight);
    const bool isDark = m_parts->m_tabs.at(index).m_darkStyle;
    m_painter->fillRect(mark, QColor(isDark ? BVTabBarColors::s_bright : BVTabBarColors::s_dark));
}

void BVTabBarPainter::paintStatus(int index)
{
    const BVTab &tab = m_parts->m_tabs.at(index);
    const auto status = BVWidgetStatus::getDominantStatusFromFlag(tab.m_status);
    if (status == BVWidgetStatus::Normal)
        return;
    const QRect rect = m_layout.m_places.at(index).m_tab;
    const int x = m_bar->isRightToLeft() ? rect.right() + 1 - s_statusPlace - s_statusSize
                                         : rect.left() + s_statusPlace;
    const int y = rect.top() + (rect.height() - s_statusSize) / 2;
    const BVStatusColor &colors = BVStatusColor::colors();
    m_painter->setPen(QPen(QColor(tab.m_darkStyle ? s_darkRim : s_brightRim), s_statusRim));
    m_painter->setBrush(tab.m_darkStyle ? colors.forDarkBackground(status)
                                        : colors.forLightBackground(status));
    m_painter->drawEllipse(QRectF(x, y, s_statusSize, s_statusSize));
}

void BVTabBarPainter::paintContent(int index)
{
    const BVTab &tab = m_parts->m_tabs.at(index);
    const BVTabBarLayout::Place &place = m_layout.m_places.at(index);
    if (!place.m_icon.isEmpty()) {
        const double opacity = m_painter->opacity();
        m_painter->setOpacity(contentOpacity(tab));
        m_parts->m_pictures.draw(m_painter, tab.shownIcon(), place.m_icon,
                                 tab.isIconTinted() ? Look::Bright : Look::Own);
        m_painter->setOpacity(opacity);
    }
    m_painter->setPen(textColor(tab));
    m_painter->drawText(place.m_text, Qt::AlignVCenter | Qt::TextSingleLine | Qt::TextDontClip,
                        m_parts->m_geometry.shownText(index));
}

void BVTabBarPainter::paintButtons(int index)
{
    const BVTab &tab = m_parts->m_tabs.at(index);
    const BVTabBarLayout::Place &place = m_layout.m_places.at(index);
    const bool isUsable = canUseButtons(index);
    const bool isHovered = isUsable && index == m_parts->m_hover.index();
    const Part part = m_parts->m_hover.part();
    const bool menuHovered = isHovered && part == Part::MenuButton;
    const bool menuPressed = tab.m_state.testFlag(BVTab::MenuPressed);
    const double opacity = m_painter->opacity();
    m_painter->setOpacity(isUsable ? opacity : opacity * s_disabledOpacity);
    paintButton(tab, place.m_closeButton, closeIcon(tab.m_darkStyle),
                isHovered && part == Part::CloseButton, tab.m_state.testFlag(BVTab::ClosePressed));
    paintButton(tab, place.m_menuButton,
                menuIcon(tab.m_darkStyle, isUsable, menuHovered, menuPressed), menuHovered,
                menuPressed);
    m_painter->setOpacity(opacity);
}

void BVTabBarPainter::paintButton(const BVTab &tab, const QPolygon &polygon, const QString &icon,
                                  bool isHovered, bool isPressed)
{
    if (polygon.isEmpty())
        return;
    const QRect rect(polygon.at(0), polygon.at(2) - QPoint(1, 1));
    if (isHovered || isPressed) {
        const QColor light = translucent(BVTabBarColors::s_bright, isPressed ? 60 : 110);
        const QBrush bright = isPressed ? brush(BVTabBarGradient::PressedButton)
                                        : QBrush(translucent(qRgb(255, 255, 255), 150));
        m_painter->setPen(isPressed ? QPen(QColor(BVTabBarColors::s_line)) : QPen(Qt::NoPen));
        m_painter->setBrush(tab.m_darkStyle ? QBrush(light) : bright);
        m_painter->drawRoundedRect(QRectF(rect).adjusted(0.5, 0.5, -0.5, -0.5), s_buttonRadius,
                                   s_buttonRadius);
    }
    m_parts->m_pictures.draw(m_painter, icon, rect);
}

void BVTabBarPainter::paintImage(int index)
{
    const BVTab &tab = m_parts->m_tabs.at(index);
    const QRect place = m_layout.m_places.at(index).m_image;
    if (place.isEmpty())
        return;
    const bool isMirrored = m_parts->m_areImagesMirrored != m_bar->isRightToLeft();
    m_parts->m_pictures.draw(m_painter, tab.shownImage(m_parts->m_geometry.imageAfterTabs()), place,
                             isMirrored ? Look::Mirrored : Look::Own);
}

void BVTabBarPainter::paintFocus()
{
    const int index = m_parts->m_tabs.current();
    if (!m_bar->hasFocus() || index < 0)
        return;
    const QRectF rect(m_layout.m_places.at(index).m_tab);
    m_painter->setPen(textColor(m_parts->m_tabs.at(index)));
    m_painter->setBrush(Qt::NoBrush);
    m_painter->drawRoundedRect(
        rect.adjusted(s_focusInset, s_focusInset, -s_focusInset, -s_focusInset), 2, 2);
}

void BVTabBarPainter::paintArrow(const QRect &rect, bool pointsLeft, bool isHovered)
{
    if (rect.isEmpty())
        return;
    m_painter->fillRect(
        rect, brush(isHovered ? BVTabBarGradient::HoveredTab : BVTabBarGradient::ScrollArrow));
    const int edge = rect.center().x() < m_layout.m_area.center().x() ? rect.right() : rect.left();
    m_painter->fillRect(edge, rect.top(), 1, rect.height(), QColor(BVTabBarColors::s_line));
    const QPointF middle = QRectF(rect).center();
    const double tip = pointsLeft ? -s_chevronWidth / 2.0 : s_chevronWidth / 2.0;
    const QPointF points[] = {middle + QPointF(-tip, -s_chevronHeight / 2.0),
                              middle + QPointF(tip, 0),
                              middle + QPointF(-tip, s_chevronHeight / 2.0)};
    const QColor color = BVStatusColor::colors().forLightBackground(BVWidgetStatus::Normal);
    m_painter->setPen(QPen(color, 1.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    m_painter->drawPolyline(points, 3);
}
