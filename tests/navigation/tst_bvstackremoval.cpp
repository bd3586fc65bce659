// SPDX-License-Identifier: MIT
#include "itemviews/BVContainerListControl.h"
#include "itemviews/BVDragTreeWidget.h"
#include "navigation/BVControlledStackItem.h"
#include "navigation/BVControlledStackWidget.h"
#include "navigation/BVControlledTabWidget.h"
#include "navigation/BVStackControllerWidget.h"
#include "navigation/BVStackedWidget.h"

#include <QFocusEvent>
#include <QLabel>
#include <QTest>

#include <functional>
#include <memory>

using Item = BVControlledStackItem;
using Stack = BVControlledStackWidget;

namespace {

/// Entries with pages: a with b below it and c below that, and e. The first one is current.
struct Fixture
{
    Fixture()
    {
        a = stack->addItem(new QLabel);
        b = a->addItem(new QLabel);
        c = b->addItem(new QLabel);
        e = stack->addItem(new QLabel);
        stack->setCurrentIndex(0);
    }
    BVDragTreeWidget *tree() const { return controller->tree(); }

    QPointer<BVStackControllerWidget> controller = new BVStackControllerWidget;
    std::unique_ptr<BVStackControllerWidget> owner{controller};
    std::unique_ptr<Stack> stack = std::make_unique<Stack>(controller);
    Item *a, *b, *c, *e;
};

struct Named
{
    const char *name;
    std::function<void(Fixture &)> execute;
};

const Named s_removals[] = {
    {"remove selected", [](Fixture &f) { f.controller->listControl()->removeSelected(); }},
    {"remove all selected",
     [](Fixture &f) {
         f.controller->enableMultiSelection(true);
         f.tree()->selectAll();
         f.controller->listControl()->removeSelected();
     }},
    {"remove top level", [](Fixture &f) { f.controller->listControl()->removeTopLevelItem(0); }},
    {"delete row", [](Fixture &f) { delete f.a->treeItem(); }},
    {"remove entry", [](Fixture &f) { f.stack->removeItem(f.a); }},
    {"clear stack", [](Fixture &f) { f.stack->clear(); }},
    {"take page", [](Fixture &f) { delete f.a->removeContainerWidget(); }},
    {"delete page", [](Fixture &f) { delete f.a->getContainerWidget(); }},
    {"clear tree",
     [](Fixture &f) {
         f.stack->setCurrentIndex(-1); // the toolkit tells of it amid its own call
         if (f.controller)
             f.tree()->clear();
     }},
    {"choose another", [](Fixture &f) { f.stack->setCurrentIndex(3); }},
};

const Named s_slots[] = {
    {"deletes the stack", [](Fixture &f) { f.stack.reset(); }},
    {"deletes the controller", [](Fixture &f) { f.owner.reset(); }},
    {"clears the stack", [](Fixture &f) { f.stack->clear(); }},
    {"removes the first row", [](Fixture &f) { delete f.tree()->topLevelItem(0); }},
    {"removes the last row",
     [](Fixture &f) {
         if (f.e->treeItem())
             f.stack->removeItem(f.e);
     }},
    {"adds in front", [](Fixture &f) { f.stack->addItem(new QLabel, 0); }},
};

void flush()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
}

} // namespace

class tst_BVStackRemoval : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void changesInSlots_data();
    void changesInSlots();
    void toldOnce_data();
    void toldOnce();
    void rowsOutsideTheTree();
    void rescuedPage();
    void widgetsOfOthers();
    void controllerForTheNext();
    void focusMakesNoneCurrent();
};

void tst_BVStackRemoval::changesInSlots_data()
{
    QTest::addColumn<int>("removal");
    QTest::addColumn<int>("slot");
    QTest::addColumn<bool>("isCount");
    for (int removal = 0; removal < int(std::size(s_removals)); ++removal)
        for (int slot = 0; slot < int(std::size(s_slots)); ++slot)
            for (const bool isCount : {false, true})
                QTest::addRow("%s, a slot of the %s %s", s_removals[removal].name, isCount ? "count" : "current entry", s_slots[slot].name)
                    << removal << slot << isCount;
}

void tst_BVStackRemoval::changesInSlots()
{
    QFETCH(int, removal);
    QFETCH(int, slot);
    QFETCH(bool, isCount);
    Fixture f;
    bool isDone = false;
    const auto change = [&] {
        if (!std::exchange(isDone, true))
            s_slots[slot].execute(f);
    };
    if (isCount)
        connect(f.stack.get(), &Stack::widgetCountChanged, this, change);
    else
        connect(f.stack.get(), QOverload<Item *, Item *>::of(&Stack::currentChanged), this, change);
    s_removals[removal].execute(f);
    flush();
    int pages = 0;
    const QList<Item *> items = f.stack ? f.stack->getDFSItems() : QList<Item *>();
    for (const Item *item : items) {
        QCOMPARE(item->treeItem()->treeWidget(), f.tree());
        pages += item->getContainerWidget() ? 1 : 0;
    }
    if (f.stack)
        QCOMPARE(f.stack->stackedWidget()->count(), pages);
}

void tst_BVStackRemoval::toldOnce_data()
{
    QTest::addColumn<int>("removal");
    for (int removal = 0; removal + 1 < int(std::size(s_removals)); ++removal)
        QTest::addRow("%s", s_removals[removal].name) << removal;
}

/// And at once.
void tst_BVStackRemoval::toldOnce()
{
    QFETCH(int, removal);
    Fixture f;
    QVector<int> counts;
    connect(f.stack.get(), &Stack::widgetCountChanged, this, [&](int count) { counts << count; });
    s_removals[removal].execute(f);
    QCOMPARE(counts.isEmpty() ? -1 : counts.last(), f.stack->stackedWidget()->count());
    const int told = counts.size();
    flush();
    QCOMPARE(counts.size(), told);
}

void tst_BVStackRemoval::rowsOutsideTheTree()
{
    for (const bool isInOther : {false, true}) {
        Fixture f;
        QTreeWidget other;
        std::unique_ptr<QTreeWidgetItem> row(f.tree()->takeTopLevelItem(0));
        if (isInOther)
            other.addTopLevelItem(row.get());
        f.stack.reset();
        flush();
        QVERIFY(!Item::itemFromTreeItem(row.get()));
        QCOMPARE(row->childCount(), 1);
    }
}

void tst_BVStackRemoval::rescuedPage()
{
    Fixture f;
    const QPointer<QWidget> page(f.b->getContainerWidget());
    Item *item = nullptr;
    connect(f.stack.get(), &Stack::widgetCountChanged, this, [&] {
        if (!item)
            item = f.stack->addItem(page);
    });
    f.stack->removeItem(f.b);
    flush();
    QVERIFY(page);
    QCOMPARE(item->getContainerWidget(), page.data());
}

void tst_BVStackRemoval::widgetsOfOthers()
{
    Fixture f;
    QWidget *const pages = f.stack->stackedWidget();
    QVERIFY(!f.stack->addItem(pages)->getContainerWidget());
    f.a->setupLayoutItem(pages);
    f.stack->setStartPage(pages, 9);
    QVERIFY(!f.stack->startPage());
    BVControlledTabWidget inside;
    inside.setParent(f.a->getContainerWidget());
    inside.setStack(f.stack.get());
    QVERIFY(!inside.stack() && pages->parent() == f.stack.get());

    QWidget *page = f.c->getContainerWidget();
    f.stack->setStartPage(page, -1);
    QVERIFY(!f.c->getContainerWidget() && f.stack->startPage() == page && page->isHidden());
    f.e->setContainerWidget(page);
    QVERIFY(!f.stack->startPage());
    f.a->setupLayoutItem(page);
    QVERIFY(!f.e->getContainerWidget() && f.a->getContainerWidget()->isAncestorOf(page));
    inside.setParent(nullptr);
}

void tst_BVStackRemoval::controllerForTheNext()
{
    for (const bool isReplaced : {false, true}) {
        Fixture f;
        f.stack->setShowTopLevelItemsAsGroupHeader(true);
        f.stack->setCheckableItems(Stack::AllItemsCheckable);
        f.stack->setDeselectionOfCurrentEnabled(true);
        f.stack->setHeaderLabel("Parts");
        if (!isReplaced)
            f.stack.reset();
        const Stack next(f.controller);
        QVERIFY(!f.tree()->isTopLevelSeparatorShown() && !f.tree()->isDeselectionEnabled());
        QVERIFY(!f.controller->headerWidget()->property("alignRight").isValid());
        QCOMPARE(f.controller->getHeaderLabel(), QString());
    }
}

void tst_BVStackRemoval::focusMakesNoneCurrent()
{
    BVStackControllerWidget controller;
    Stack stack(&controller);
    stack.addItem(nullptr);
    QFocusEvent focus(QEvent::FocusIn, Qt::TabFocusReason);
    QCoreApplication::sendEvent(controller.tree(), &focus);
    QVERIFY(!stack.getCurrentItem());
    QTest::keyClick(controller.tree(), Qt::Key_Down);
    QCOMPARE(stack.currentIndex(), 0);
}

QTEST_MAIN(tst_BVStackRemoval)

#include "tst_bvstackremoval.moc"
