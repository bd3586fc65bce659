// SPDX-License-Identifier: MIT
#include "navigation/BVStackLayout.h"
#include "navigation/BVStackedWidget.h"

#include "TestSupport.h"

#include <QBoxLayout>
#include <QTest>

namespace {

struct Page : QWidget
{
    explicit Page(const QSize &hint)
        : m_hint(hint)
    {
    }
    QSize sizeHint() const override { return m_hint; }
    QSize minimumSizeHint() const override { return m_hint / 2; }
    QSize m_hint;
};

/// One step: "a" appends page a, "1a" inserts it at 1, "#1" chooses, "-1" takes, "!a" deletes.
void play(QWidget *parent, BVStackLayout *layout, const QString &step)
{
    auto *page = parent->findChild<QWidget *>(step.right(1));
    if (step.startsWith('#'))
        return layout->setCurrentItemByIndex(step.midRef(1).toInt());
    if (step.startsWith('-'))
        return delete layout->takeAt(step.midRef(1).toInt());
    if (step.startsWith('!'))
        return delete page;
    if (!page)
        (page = new QWidget)->setObjectName(step.right(1));
    layout->insertWidget(step.size() == 1 ? -1 : step.leftRef(1).toInt(), page);
}

/// The names of the pages, the current one in brackets.
QString shown(const BVStackLayout *layout)
{
    QString text;
    for (int i = 0; i < layout->count(); ++i)
        text += QString(i == layout->indexOfCurrentItem() ? "[%1]" : "%1").arg(layout->itemAt(i)->widget()->objectName());
    return text;
}

} // namespace

class tst_BVStackLayout : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { muteOffscreenWarnings(); }
    void currentItem_data();
    void currentItem();
    void placesItems_data();
    void placesItems();
    void refusesBadItems();
    void stackedWidgetAsksForTheCurrentPageOnly();
};

void tst_BVStackLayout::currentItem_data()
{
    QTest::addColumn<QString>("steps");
    QTest::addColumn<QString>("result");
    QTest::newRow("the first inserted, not the first in place") << "a 0b"
                                                                << "b[a]";
    QTest::newRow("none was chosen before") << "#-1 a b"
                                            << "ab";
    QTest::newRow("a wrong index is no choice") << "#7 #-2 a"
                                                << "[a]";
    QTest::newRow("a large index appends") << "a b 9c"
                                           << "[a]bc";
    QTest::newRow("taken: the last, not a neighbour") << "a b c d #1 -1"
                                                      << "ac[d]";
    QTest::newRow("another taken") << "a b c -2 -5"
                                   << "[a]b";
    QTest::newRow("deleted elsewhere") << "a b c #0 !a"
                                       << "b[c]";
    QTest::newRow("emptied and filled again") << "a -0 b"
                                              << "[b]";
    QTest::newRow("emptied and filled after a choice") << "a b #1 -0 -0 c"
                                                       << "c";
    QTest::newRow("moved within the layout") << "a b c 0c"
                                             << "c[a]b";
}

void tst_BVStackLayout::currentItem()
{
    QFETCH(QString, steps);
    QWidget parent;
    auto *layout = new BVStackLayout(true, &parent);
    for (const QString &step : steps.split(' '))
        play(&parent, layout, step);
    QTEST(shown(layout), "result");
}

void tst_BVStackLayout::placesItems_data()
{
    QTest::addColumn<int>("current");
    QTest::addColumn<bool>("hide");
    QTest::addColumn<QSize>("hint");
    for (const bool hide : {false, true}) {
        QTest::addRow("none, %d", hide) << -1 << hide << QSize(0, 0);
        QTest::addRow("a widget, %d", hide) << 0 << hide << QSize(44, 26);
        QTest::addRow("a layout, %d", hide) << 1 << hide << QSize(34, 16);
        QTest::addRow("a spacer, %d", hide) << 2 << hide << QSize(54, 66);
    }
}

void tst_BVStackLayout::placesItems()
{
    QFETCH(int, current);
    QFETCH(bool, hide);
    const QRect rect(0, 0, 200, 100);
    QWidget window;
    window.resize(rect.size());
    auto *layout = new BVStackLayout(hide, &window);
    layout->setContentsMargins(1, 2, 3, 4);
    auto *nested = new QVBoxLayout;
    nested->setContentsMargins(0, 0, 0, 0);
    nested->addWidget(new Page(QSize(30, 10)));
    layout->addWidget(new Page(QSize(40, 20)));
    layout->addItem(nested);
    layout->addItem(new QSpacerItem(50, 60));
    window.show();

    // Each item was current once, so all know the size of the contents rectangle.
    const QRect contents = rect.adjusted(1, 2, -3, -4);
    const QRect outside(-196, -94, 196, 94);
    for (const int index : {0, 1, 2, current}) {
        layout->setCurrentItemByIndex(index);
        if (index == current)
            QTEST(layout->sizeHint(), "hint"); // also of a page that was hidden up to here
        QTRY_COMPARE(layout->geometry(), rect);
    }
    for (int i = 0; i < 3; ++i) {
        QLayoutItem *item = i == 1 ? nested->itemAt(0) : layout->itemAt(i);
        QCOMPARE(item->geometry(), i == current ? contents : outside);
    }
    QCOMPARE(nested->geometry(), current == 1 ? contents : outside);
    QCOMPARE(layout->itemAt(0)->widget()->isHidden(), hide && current != 0);
}

void tst_BVStackLayout::refusesBadItems()
{
    QWidget window;
    BVStackLayout layout(&window);
    layout.insertWidget(0, &window);
    layout.insertWidget(0, nullptr);
    layout.insertItem(0, nullptr);
    layout.insertItem(0, &layout);
    QCOMPARE(layout.count(), 0);
}

void tst_BVStackLayout::stackedWidgetAsksForTheCurrentPageOnly()
{
    QWidget window;
    auto *box = new QVBoxLayout(&window);
    auto *stack = new BVStackedWidget;
    box->setContentsMargins(0, 0, 0, 0);
    box->addWidget(stack);
    QCOMPARE(stack->sizeHint(), stack->QFrame::sizeHint());
    stack->addWidget(new Page(QSize(40, 20)));
    stack->addWidget(new Page(QSize(90, 70)));
    stack->widget(0)->setMinimumHeight(30);
    window.show();
    QCOMPARE(stack->minimumSizeHint(), QSize(20, 10));
    QCOMPARE(box->sizeHint(), QSize(40, 30));
    stack->setCurrentIndex(1);
    QCOMPARE(box->sizeHint(), QSize(90, 70));
}

QTEST_MAIN(tst_BVStackLayout)
#include "tst_bvstacklayout.moc"
