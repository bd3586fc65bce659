// SPDX-License-Identifier: MIT
#include "navigation/BVTabBarLayout_p.h"

#include <QTest>

using namespace BVTabBarLayout;

namespace {

/// Tabs whose texts are 100, 60 and 20 px wide at the three levels.
Request request(int count, int width, bool withButtons = true)
{
    Request request;
    request.m_size = QSize(width, 30);
    for (int i = 0; i < count; ++i)
        request.m_tabs.append({{100, 60, 20}, 9, i == 1, withButtons, withButtons});
    return request;
}

QRect box(const QPolygon &polygon)
{
    return QRect(polygon.at(0), polygon.at(2) - QPoint(1, 1));
}

} // namespace

class tst_BVTabBarLayout : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void levels_data();
    void levels();
    void longestTextsGetCut();
    void placesFollowEachOther_data();
    void placesFollowEachOther();
    void scrolling_data();
    void scrolling();
    void hits();
};

void tst_BVTabBarLayout::levels_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("reserved");
    QTest::addColumn<int>("level");
    QTest::addColumn<bool>("scrolls");
    const QVector<Tab> tabs = request(4, 0).m_tabs;
    const int full = contentWidth(tabs, 0);
    const int shortest = contentWidth(tabs, 2);
    QTest::newRow("just fits in full") << full << 0 << 0 << false;
    QTest::newRow("a pixel too narrow") << full - 1 << 0 << 1 << false;
    QTest::newRow("tool buttons take room") << full << 1 << 1 << false;
    QTest::newRow("just fits at the second") << contentWidth(tabs, 1) << 0 << 1 << false;
    QTest::newRow("just fits at the last") << shortest << 0 << 2 << false;
    QTest::newRow("nothing fits") << shortest - 1 << 0 << 2 << true;
    QTest::newRow("no room at all") << 10 << 50 << 2 << true;
}

void tst_BVTabBarLayout::levels()
{
    QFETCH(int, width);
    QFETCH(int, reserved);
    Request asked = request(4, width);
    asked.m_reserved = reserved;
    const Result result = layOut(asked);
    QTEST(result.m_level, "level");
    QTEST(result.m_maximumOffset > 0, "scrolls");
    QCOMPARE(result.m_area.width(), qMax(0, width - reserved));
}

void tst_BVTabBarLayout::longestTextsGetCut()
{
    Request asked = request(3, 0);
    for (int i = 0; i < 3; ++i)
        asked.m_tabs[i].m_textWidths = {100 * (i + 1)};
    asked.m_size.setWidth(contentWidth(asked.m_tabs, 0) - 120);
    const Result result = layOut(asked);
    QCOMPARE(result.m_places.at(0).m_text.width(), 100);
    QCOMPARE(result.m_places.at(1).m_text.width(), result.m_places.at(2).m_text.width());
    QCOMPARE(result.m_maximumOffset, 0);
    asked.m_size.setWidth(50);
    for (const Place &place : layOut(asked).m_places)
        QCOMPARE(place.m_text.width(), s_minimumTextWidth);
}

void tst_BVTabBarLayout::placesFollowEachOther_data()
{
    QTest::addColumn<bool>("rightToLeft");
    QTest::newRow("left to right") << false;
    QTest::newRow("right to left") << true;
}

void tst_BVTabBarLayout::placesFollowEachOther()
{
    QFETCH(bool, rightToLeft);
    Request asked = request(5, 2000);
    asked.m_rightToLeft = rightToLeft;
    asked.m_reserved = 30;
    const Result result = layOut(asked);
    QRect before = rightToLeft ? QRect(2000, 0, 1, 1) : QRect(-1, 0, 1, 1);
    const auto follows = [&](const QRect &rect) {
        const bool is = rightToLeft ? rect.right() < before.left() : rect.left() > before.right();
        before = rect;
        return is;
    };
    for (const Place &place : result.m_places) {
        const QRect tab = place.m_tab;
        QCOMPARE(tab.top(), s_topMargin);
        QCOMPARE(tab.bottom(), 29);
        if (!place.m_icon.isEmpty())
            QVERIFY(tab.contains(place.m_icon) && follows(place.m_icon));
        QVERIFY(tab.contains(place.m_text) && follows(place.m_text));
        QVERIFY(tab.contains(box(place.m_menuButton)) && follows(box(place.m_menuButton)));
        QVERIFY(tab.contains(box(place.m_closeButton)) && follows(box(place.m_closeButton)));
        QVERIFY(!tab.intersects(place.m_image) && follows(place.m_image));
        QVERIFY(result.m_area.contains(tab));
    }
    const Place first = result.m_places.first();
    QCOMPARE(rightToLeft ? 1999 - first.m_tab.right() : first.m_tab.left(), 0);
}

void tst_BVTabBarLayout::scrolling_data()
{
    QTest::addColumn<int>("offset");
    QTest::addColumn<int>("shown");
    QTest::addColumn<QString>("arrows");
    QTest::newRow("at the start") << 0 << -1 << ">";
    QTest::newRow("before the start") << -50 << -1 << ">";
    QTest::newRow("in the middle") << 100 << -1 << "<>";
    QTest::newRow("past the end") << 100000 << -1 << "<";
    QTest::newRow("the first shown") << 100 << 0 << ">";
    QTest::newRow("one in the middle shown") << 0 << 10 << "<>";
    QTest::newRow("the last shown") << 0 << 19 << "<";
    QTest::newRow("one that is not there") << 0 << 99 << ">";
}

void tst_BVTabBarLayout::scrolling()
{
    QFETCH(int, offset);
    QFETCH(int, shown);
    QFETCH(QString, arrows);
    for (const bool rightToLeft : {false, true}) {
        Request asked = request(20, 400);
        asked.m_offset = offset;
        asked.m_shown = shown;
        asked.m_rightToLeft = rightToLeft;
        const Result result = layOut(asked);
        const QRect back = result.m_backArrow;
        const QRect forward = result.m_forwardArrow;
        QCOMPARE(!back.isEmpty(), arrows.contains('<'));
        QCOMPARE(!forward.isEmpty(), arrows.contains('>'));
        if (!back.isEmpty() && !forward.isEmpty())
            QCOMPARE(back.left() < forward.left(), !rightToLeft);
        if (shown < 0 || shown >= 20)
            continue;
        const QRect tab = result.m_places.at(shown).m_tab;
        QVERIFY(result.m_area.contains(tab));
        QVERIFY(!tab.intersects(back) && !tab.intersects(forward));
    }
}

void tst_BVTabBarLayout::hits()
{
    Request asked = request(3, 1000);
    asked.m_tabs[2].m_hasCloseButton = false;
    const Result wide = layOut(asked);
    const Place place = wide.m_places.at(1);
    const auto hit = [](int index, Part part) { return Hit{index, part}; };
    QCOMPARE(hitAt(wide, place.m_tab.topLeft()), hit(1, Part::Tab));
    QCOMPARE(hitAt(wide, box(place.m_closeButton).topLeft()), hit(1, Part::CloseButton));
    QCOMPARE(hitAt(wide, box(place.m_closeButton).bottomRight()), hit(1, Part::CloseButton));
    QCOMPARE(hitAt(wide, box(place.m_menuButton).center()), hit(1, Part::MenuButton));
    QVERIFY(wide.m_places.at(2).m_closeButton.isEmpty());
    QCOMPARE(hitAt(wide, QPoint(place.m_tab.center().x(), 0)), Hit()); // above the tabs
    QCOMPARE(hitAt(wide, place.m_image.center()), Hit());
    QCOMPARE(hitAt(wide, QPoint(999, 10)), Hit());
    asked.m_size.setWidth(120);
    const Result narrow = layOut(asked);
    QCOMPARE(hitAt(narrow, narrow.m_forwardArrow.center()), hit(-1, Part::ForwardArrow));
    QCOMPARE(hitAt(narrow, QPoint(300, 15)), Hit()); // beyond the bar
    QCOMPARE(hitAt(layOut(Request()), QPoint()), Hit());
}

QTEST_GUILESS_MAIN(tst_BVTabBarLayout)
#include "tst_bvtabbarlayout.moc"
