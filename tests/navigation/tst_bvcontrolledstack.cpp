// SPDX-License-Identifier: MIT
#include "itemviews/BVContainerListControl.h"
#include "itemviews/BVDragTreeWidget.h"
#include "navigation/BVControlledStackItem.h"
#include "navigation/BVControlledStackWidget.h"
#include "navigation/BVControlledStackWidgetInterface.h"
#include "navigation/BVStackControllerWidget.h"
#include "navigation/BVStackedWidget.h"

#include <QLabel>
#include <QLayout>
#include <QSignalSpy>
#include <QTest>

#include <functional>
#include <memory>

using Item = BVControlledStackItem;
using Stack = BVControlledStackWidget;
using Status = BVWidgetStatus;

Q_DECLARE_METATYPE(QTreeWidgetItem *)

namespace {

/// A stack with these entries, each with a page of the same name:
///     a
///       b
///         c
///       d
///     e
struct Fixture
{
    Fixture()
    {
        for (const char *name : {"a", "b", "c", "d", "e"})
            pages.append(new QLabel(name));
        a = named(stack.addItem(pages[0]), "a");
        e = named(stack.addItem(pages[4]), "e");
        d = named(a->addItem(pages[3]), "d");
        b = named(stack.addItem(pages[1], pages[0], 0), "b");
        c = named(stack.addItem(pages[2], 1, -1), "c");
        QObject::connect(&stack, QOverload<Item *, Item *>::of(&Stack::currentChanged), &stack,
                         [this](Item *item, Item *previous) { log.append(nameOf(item) + '<' + nameOf(previous)); });
        QObject::connect(&stack, QOverload<int>::of(&Stack::currentChanged), &stack, [this](int index) { log.append(QString::number(index)); });
        QObject::connect(&stack, &Stack::itemToggled, &stack,
                         [this](Item *item, int state) { log.append(nameOf(item) + '=' + QString::number(state)); });
        QObject::connect(&stack, &Stack::itemTextChanged, &stack, [this](Item *item) { log.append("text " + nameOf(item)); });
    }

    static Item *named(Item *item, const QString &name)
    {
        item->setText(name);
        return item;
    }
    static QString nameOf(const Item *item) { return item ? item->getText() : QString("-"); }
    QString takeLog()
    {
        const QString text = log.join(' ');
        log.clear();
        return text;
    }
    /// The entries in depth-first order, each with as many dots in front as there are above it.
    /// Looked up both ways.
    QString order() const
    {
        QStringList names;
        for (Item *item : stack.getDFSItems()) {
            QString name = nameOf(item);
            for (const Item *above = item->parent(); above; above = above->parent())
                name.prepend('.');
            const bool isFound = stack.itemAtDFSIndex(names.size()) == item && stack.getDFSIndex(item) == names.size();
            names.append(isFound ? name : "?");
        }
        return names.join(' ');
    }
    QString page() const
    {
        const auto *label = qobject_cast<QLabel *>(stack.stackedWidget()->currentWidget());
        return label ? label->text() : QString("-");
    }
    BVDragTreeWidget *tree() const { return controller.tree(); }

    BVStackControllerWidget controller{nullptr, nullptr, true};
    Stack stack{&controller};
    QVector<QPointer<QLabel>> pages;
    Item *a, *b, *c, *d, *e;
    QStringList log;
};

} // namespace

class tst_BVControlledStack : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { qRegisterMetaType<QTreeWidgetItem *>(); }
    void init() { m_fixture = std::make_unique<Fixture>(); }
    void cleanup() { m_fixture.reset(); }

    void currentEntry();
    void removing();
    void changesInSlots_data();
    void changesInSlots();
    void pagesDeletedElsewhere();
    void moving_data();
    void moving();
    void movingKeepsState();
    void checkableItems_data();
    void checkableItems();
    void toggles();
    void firstStateOfGroups();
    void partlyCheckedGroup();
    void statesThatFollow_data();
    void statesThatFollow();
    void textsAndToggles();
    void status();
    void rolesAndDots();
    void startPage_data();
    void startPage();
    void deselection();
    void groupHeaders();
    void selectionAndMarks();
    void layoutEntries();
    void rowsChangedByTheUser();
    void rowsGoneUnderTheUser();
    void goingOutOfTurn();
    void oneStackAtATime();

private:
    std::unique_ptr<Fixture> m_fixture;
};

void tst_BVControlledStack::currentEntry()
{
    Fixture &f = *m_fixture;
    QCOMPARE(f.order(), QString("a .b ..c .d e"));
    QCOMPARE(f.stack.currentIndex(), -1);
    f.stack.setCurrentIndex(3);
    QCOMPARE(f.takeLog(), QString("d<- 3"));
    QCOMPARE(f.page(), QString("d"));
    f.stack.setCurrentIndex(5); // past the end
    Item *group = Fixture::named(f.stack.addItem(nullptr), "group");
    group->setCurrent();
    QCOMPARE(f.takeLog(), QString("group<d 5"));
    QCOMPARE(f.page(), QString("d"));
    f.stack.setCurrentIndex(-1);
    QCOMPARE(f.takeLog(), QString("-<group"));

    QTreeWidgetItem *note = f.b->addChildItem(nullptr, "note");
    f.tree()->setCurrentItem(note);
    QCOMPARE(f.takeLog(), QString("b<- 1"));
    QCOMPARE(f.order(), QString("a .b ..c .d e group"));
    QCOMPARE(f.b->itemCount(), 1);
    f.b->setEnabled(false);
    f.c->setCurrent();
    QCOMPARE(f.stack.getCurrentItem(), f.b);
}

void tst_BVControlledStack::removing()
{
    Fixture &f = *m_fixture;
    f.c->setCurrent();
    f.takeLog();
    QSignalSpy counts(&f.stack, &Stack::widgetCountChanged);
    f.stack.removeItem(f.pages[1]);
    QCOMPARE(f.order(), QString("a .d e"));
    QCOMPARE(f.takeLog(), QString("d<c 1"));
    QCOMPARE(f.page(), QString("d"));
    QVERIFY(f.d->isSelected());
    QCOMPARE(counts.size(), 1);
    QVERIFY(!f.b->treeItem() && !f.b->stackWidget());
    f.b->setText("gone"); // still there, without effect
    f.stack.removeItem(f.b);
    QPointer<QLabel> kept(qobject_cast<QLabel *>(f.d->removeContainerWidget()));
    f.stack.removeItem(f.d);
    f.stack.addItem(f.pages[2]); // on its way out, but for this
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!f.pages[1] && f.pages[2] && kept && !kept->parent());
    delete kept;

    f.stack.clear();
    QCOMPARE(f.stack.itemCount(true) + f.tree()->topLevelItemCount(), 0);
    QCOMPARE(f.stack.stackedWidget()->count(), 0);
}

void tst_BVControlledStack::changesInSlots_data()
{
    QTest::addColumn<int>("change");
    QTest::addColumn<QString>("order");
    QTest::addColumn<QString>("log");
    QTest::newRow("the new entry goes") << 0 << "a .b ..c e"
                                        << "d<- e<d e<d";
    QTest::newRow("another one becomes current") << 1 << "a .b ..c .d e"
                                                 << "d<- b<d 1";
    QTest::newRow("entries before it go") << 2 << "e"
                                          << "";
    QTest::newRow("all go") << 3 << ""
                            << "";
    QTest::newRow("the page is deleted") << 4 << "a .b ..c .d e"
                                         << "d<- 3";
    QTest::newRow("an entry comes before it") << 5 << "- a .b ..c .d e"
                                              << "d<- 4";
}

void tst_BVControlledStack::changesInSlots()
{
    Fixture &f = *m_fixture;
    QFETCH(int, change);
    bool isDone = false;
    connect(&f.stack, QOverload<Item *, Item *>::of(&Stack::currentChanged), &f.stack, [&] {
        if (std::exchange(isDone, true))
            return;
        switch (change) {
        case 0:
            f.stack.removeItem(f.d);
            break;
        case 1:
            f.stack.setCurrentIndex(1);
            break;
        case 2:
            f.stack.removeItem(f.a);
            break;
        case 3:
            f.stack.clear();
            break;
        case 4:
            delete f.pages[3];
            break;
        case 5:
            Fixture::named(f.stack.addItem(nullptr, 0), "-");
            break;
        }
    });
    f.stack.setCurrentIndex(3);
    QTEST(f.order(), "order");
    if (change != 0 && change != 2 && change != 3)
        QTEST(f.takeLog(), "log");
    const Item *current = f.stack.getCurrentItem();
    QCOMPARE(f.stack.currentIndex(), f.stack.getDFSIndex(current));
    if (current && current->getContainerWidget())
        QCOMPARE(f.page(), current->getText());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    f.stack.clear();
}

void tst_BVControlledStack::pagesDeletedElsewhere()
{
    Fixture &f = *m_fixture;
    f.e->setCurrent();
    Status::setStatus(f.pages[4], Status::NeedInput, true);
    QSignalSpy counts(&f.stack, &Stack::widgetCountChanged);
    delete f.pages[4];
    QVERIFY(!f.e->getContainerWidget());
    QCOMPARE(f.e->getBVWidgetStatus(), Status::Stati());
    QCOMPARE(counts.size(), 1);
    QCOMPARE(counts[0][0].toInt(), 4);
    f.e->setContainerWidget(f.pages[2]); // from c
    QVERIFY(!f.c->getContainerWidget());
    QCOMPARE(Item::itemFromWidget(f.pages[2]), f.e);
    QCOMPARE(f.page(), QString("c"));
    f.e->setContainerWidget(&f.stack);
    QCOMPARE(f.e->getContainerWidget(), f.pages[2].data());
}

void tst_BVControlledStack::moving_data()
{
    QTest::addColumn<int>("move");
    QTest::addColumn<QString>("order");
    QTest::newRow("index down") << 0 << "e a .b ..c .d";
    QTest::newRow("index out of range") << 1 << "a .b ..c .d e";
    QTest::newRow("below another") << 2 << "a .b ..c ..d e";
    QTest::newRow("in front below another") << 3 << "a .b ..e ..c .d";
    QTest::newRow("to the top level") << 4 << "a .d e b .c";
    QTest::newRow("not below itself") << 5 << "a .b ..c .d e";
    QTest::newRow("children of a") << 6 << "a e .b ..c .d";
    QTest::newRow("sort") << 7 << "e a .d .b ..c";
    QTest::newRow("group in place of the first") << 8 << "g .b ..c .e a .d";
    QTest::newRow("group at the end") << 9 << "a .b ..c e g .d";
    QTest::newRow("out of the group") << 10 << "a b .c d e";
    QTest::newRow("added at index") << 11 << "a .b ..n ..c .d e";
    QTest::newRow("into the group at the front") << 12 << "a .e .b ..c .d";
}

void tst_BVControlledStack::moving()
{
    Fixture &f = *m_fixture;
    QFETCH(int, move);
    switch (move) {
    case 0:
        f.a->setIndex(1);
        break;
    case 1:
        f.a->setIndex(2);
        break;
    case 2:
        f.d->setParent(f.b, -1);
        break;
    case 3:
        f.stack.addChildItem(f.b, f.e, 0);
        break;
    case 4:
        f.b->setParent(nullptr, 7);
        break;
    case 5:
        f.a->setParent(f.c, 0);
        break;
    case 6:
        f.a->reparentChildren(f.e, -1);
        break;
    case 7:
        f.e->setUserOrder(-1);
        f.d->setUserOrder(3);
        f.b->setUserOrder(4);
        f.stack.sortItems();
        break;
    case 8:
        Fixture::named(f.stack.createGroup(-1, {4, 2, 1}), "g");
        break;
    case 9:
        Fixture::named(f.stack.createGroup(7, {3, 99}), "g");
        break;
    case 10:
        f.stack.removeAllItemsFromGroup(0);
        break;
    case 11:
        Fixture::named(f.stack.addItemAtDfsIndex(nullptr, 2), "n");
        break;
    case 12:
        f.stack.addToGroup(0, {4}, true);
        break;
    }
    QTEST(f.order(), "order");
}

void tst_BVControlledStack::movingKeepsState()
{
    Fixture &f = *m_fixture;
    f.stack.setCheckableItems(Stack::AllItemsCheckable);
    f.c->setChecked(true);
    f.a->setExpandedAll(true);
    f.c->setCurrent();
    f.takeLog();
    f.b->setParent(f.e);
    QCOMPARE(f.order(), QString("a .d e .b ..c"));
    QVERIFY(f.b->isExpanded() && f.c->isCurrent() && f.c->checked() && f.b->checked());
    QCOMPARE(f.page(), QString("c"));
    QCOMPARE(f.e->getCheckState(), Qt::Checked); // follows what is below
    QCOMPARE(f.a->getCheckState(), Qt::Unchecked);
    f.e->setBold(true);
    f.a->setBold(true);
    QCOMPARE(f.takeLog(), QString());
}

void tst_BVControlledStack::checkableItems_data()
{
    QTest::addColumn<Stack::CheckableItems>("mode");
    QTest::addColumn<QString>("checkable"); // c, or t if by groups, of a b c d e
    QTest::newRow("none") << Stack::NoCheckableItems << "-----";
    QTest::newRow("top level") << Stack::TopLevelItemsCheckable << "c---c";
    QTest::newRow("children") << Stack::ChildItemsCheckable << "-ccc-";
    QTest::newRow("groups") << Stack::GroupItemsCheckable << "ttcc-";
    QTest::newRow("kept") << Stack::KeepCheckableFlags << "-----";
    QTest::newRow("all") << Stack::AllItemsCheckable << "ttccc";
}

void tst_BVControlledStack::checkableItems()
{
    Fixture &f = *m_fixture;
    QFETCH(Stack::CheckableItems, mode);
    const auto text = [&] {
        QString flags;
        for (const Item *item : {f.a, f.b, f.c, f.d, f.e})
            flags += !item->isCheckable() ? '-' : item->flags() & Qt::ItemIsAutoTristate ? 't' : 'c';
        return flags;
    };
    QSignalSpy changes(f.tree(), &QTreeWidget::itemChanged);
    f.stack.setCheckableItems(mode);
    QTEST(text(), "checkable");
    QCOMPARE(changes.size(), 0);
    QCOMPARE(f.controller.headerWidget()->property("alignRight").isValid(), mode != Stack::NoCheckableItems);
    f.e->addItem(nullptr);
    QCOMPARE(f.e->isCheckable(), QVector<int>({1, 3, 5}).contains(mode));
    f.e->clear();
    QTEST(text(), "checkable");
    f.stack.setCheckableItems(Stack::NoCheckableItems);
    QVERIFY(!f.c->treeItem()->data(0, Qt::CheckStateRole).isValid()); // no box
}

void tst_BVControlledStack::toggles()
{
    Fixture &f = *m_fixture;
    f.e->treeItem()->setCheckState(0, Qt::Checked); // nobody sees it
    f.e->treeItem()->setCheckState(0, Qt::Unchecked);
    f.stack.setCheckableItems(Stack::AllItemsCheckable);
    f.d->setBold(true);
    f.d->setChecked(true);
    QCOMPARE(f.takeLog(), QString());
    f.d->treeItem()->setCheckState(0, Qt::Unchecked);
    QCOMPARE(f.takeLog(), QString("d=0 a=0"));
    f.e->treeItem()->setCheckState(0, Qt::Checked); // the first one is the user's
    QCOMPARE(f.takeLog(), QString("e=2"));
    QCOMPARE(f.e->treeItem()->data(0, Item::ReportedCheckStateRole).toInt(), int(Qt::Checked));
    f.e->setChecked(false);
    QCOMPARE(f.takeLog(), QString("e=0"));

    // A slot that does not agree, one that changes the row, and one that removes it.
    int reports = 0;
    connect(&f.stack, &Stack::itemToggled, &f.stack, [&](Item *item) {
        item->setMarked(true);
        if (++reports == 1)
            item->setChecked(false);
        else if (reports == 3)
            f.stack.removeItem(item);
    });
    f.e->setChecked(true);
    QCOMPARE(f.takeLog(), QString("e=2 e=0"));
    f.d->setChecked(true);
    QCOMPARE(f.takeLog().left(3), QString("d=2"));
    QCOMPARE(f.order(), QString("a .b ..c e"));
}

void tst_BVControlledStack::firstStateOfGroups()
{
    Fixture &f = *m_fixture;
    f.stack.setCheckableItems(Stack::AllItemsCheckable);
    f.a->setChecked(true); // with all below
    QVERIFY(f.b->checked() && f.c->checked() && f.d->checked());
    QCOMPARE(f.takeLog(), QString());
    f.a->addChildItem(nullptr, "note"); // has no state
    f.c->treeItem()->setCheckState(0, Qt::Unchecked);
    QCOMPARE(f.takeLog(), QString("c=0 b=0 a=1"));

    Fixture other;
    other.stack.setCheckableItems(Stack::AllItemsCheckable);
    other.c->setChecked(true); // those above follow
    QCOMPARE(other.a->getCheckState(), Qt::PartiallyChecked);
    QCOMPARE(other.takeLog(), QString());
    other.d->setChecked(true);
    QCOMPARE(other.takeLog(), QString("a=2"));
}

void tst_BVControlledStack::partlyCheckedGroup()
{
    Fixture &f = *m_fixture;
    f.stack.setCheckableItems(Stack::AllItemsCheckable);
    f.a->treeItem()->setCheckState(0, Qt::Checked);
    QCOMPARE(f.takeLog(), QString("c=2 b=2 d=2 a=2"));
    f.d->treeItem()->setCheckState(0, Qt::Unchecked);
    QCOMPARE(f.takeLog(), QString("d=0 a=1"));
    f.a->treeItem()->setCheckState(0, Qt::Checked); // as the row itself was checked before
    QCOMPARE(f.takeLog(), QString("d=2 a=2"));
}

void tst_BVControlledStack::statesThatFollow_data()
{
    QTest::addColumn<int>("change");
    QTest::addColumn<QString>("states"); // of all entries
    QTest::newRow("set before the mode") << 0 << "22220";
    QTest::newRow("a mode without groups") << 1 << "22220";
    QTest::newRow("one without a box") << 2 << "22200";
    QTest::newRow("the last one removed") << 3 << "2220";
    QTest::newRow("the last one moved") << 4 << "22222";
    QTest::newRow("a group partly checked") << 5 << "00000";
    QTest::newRow("no such state") << 6 << "00002";
}

/// They are not reported, then or with another change.
void tst_BVControlledStack::statesThatFollow()
{
    Fixture &f = *m_fixture;
    QFETCH(int, change);
    if (change > 0)
        f.stack.setCheckableItems(Stack::AllItemsCheckable);
    if (change < 5) {
        f.c->setChecked(true);
        f.d->setChecked(change != 2);
    }
    f.takeLog();
    const std::function<void()> changes[] = {
        [&] { f.stack.setCheckableItems(Stack::AllItemsCheckable); },
        [&] { f.stack.setCheckableItems(Stack::TopLevelItemsCheckable); },
        [&] { f.d->setCheckable(false); },
        [&] { f.stack.removeItem(f.c); },
        [&] { f.c->setParent(f.e); },
        [&] { f.a->setCheckState(Qt::PartiallyChecked); },
        [&] { f.e->setCheckState(Qt::CheckState(3)); },
    };
    changes[change]();
    QString states;
    for (Item *item : f.stack.getDFSItems()) {
        item->setBold(true);
        states += QString::number(item->getCheckState());
    }
    QTEST(states, "states");
    QCOMPARE(f.takeLog(), QString());
    f.stack.setCheckableItems(Stack::CheckableItems(7));
    QVERIFY(f.stack.checkableItems() <= Stack::AllItemsCheckable);
}

void tst_BVControlledStack::textsAndToggles()
{
    Fixture &f = *m_fixture;
    f.stack.setCheckableItems(Stack::AllItemsCheckable);
    f.e->setChecked(true);
    f.e->treeItem()->setText(0, "x");
    QCOMPARE(f.takeLog(), QString("text x"));
    f.tree()->blockSignals(true);
    f.e->treeItem()->setCheckState(0, Qt::Unchecked);
    f.tree()->blockSignals(false);
    f.e->treeItem()->setText(0, "y");
    QCOMPARE(f.takeLog(), QString("text y"));
    QCOMPARE(f.stack.getItemByText("y"), f.e);
}

void tst_BVControlledStack::status()
{
    Fixture &f = *m_fixture;
    QSignalSpy changes(f.tree(), &QTreeWidget::itemChanged);
    f.c->setBVWidgetStatus(Status::NeedInput);
    f.c->setBVWidgetStatus(Status::NeedInput);
    QCOMPARE(changes.size(), 1);
    QCOMPARE(f.c->treeItem()->data(0, 280).toInt(), int(Status::NeedInput));

    Status::setStatus(f.pages[4], Status::UserEdit | Status::NeedInput);
    QCOMPARE(f.e->getBVWidgetStatus(), Status::UserEdit | Status::NeedInput);
    QCOMPARE(changes.size(), 2);
    QCOMPARE(f.stack.needInputItems(), QList<Item *>({f.c, f.e}));
    for (Item *expected : {f.c, f.e, f.c}) {
        QVERIFY(f.stack.goToNextNeedingInput());
        QCOMPARE(f.stack.getCurrentItem(), expected);
    }

    BVControlledStackWidgetInterface interface(&f.stack);
    interface.setBvStatus(4, Status::UserEdit, false);
    interface.setBvStatus(2, Status::Stati());
    for (const int index : {-1, 5})
        interface.setBvStatus(index, Status::UserEdit, true);
    QCOMPARE(f.e->getBVWidgetStatus(), Status::Stati(Status::NeedInput));
    QVERIFY(interface.getBvStatus(4, Status::NeedInput) && !interface.getBvStatus(2));
    QVERIFY(!interface.getBvStatus(5) && !interface.getBvStatus(-1, Status::NeedInput));
    f.e->setCurrent();
    QVERIFY(interface.BVWidgetInterface::isNeedInputStatus());
    QVERIFY(!f.stack.goToNextNeedingInput());
}

void tst_BVControlledStack::rolesAndDots()
{
    Fixture &f = *m_fixture;
    const QTreeWidgetItem *row = f.e->treeItem();
    f.e->setBold(true);
    f.e->setItalic(true);
    f.e->setMarked(true);
    f.e->setShowAsHeader(true);
    f.e->setUserOrder(7);
    for (const int role : {283, 284, 285, 300})
        QCOMPARE(row->data(0, role), QVariant(true));
    QCOMPARE(row->data(0, 452), QVariant(7));
    f.e->setShowAsHeader(false);
    f.e->clearUserOrder();
    QVERIFY(!row->data(0, 300).isValid() && !row->data(0, 452).isValid());
    QCOMPARE(row->data(0, 454).value<Item *>(), f.e);
    QCOMPARE(f.pages[4]->property("BVControlledStackItemWidgetProperty").value<Item *>(), f.e);

    for (const int dot : {0, 1, 2, 3})
        QCOMPARE(f.e->addChildItem(nullptr, "note", dot)->icon(0).isNull(), dot == 0 || dot == 3);
    QCOMPARE(row->child(1)->icon(0).cacheKey(), f.e->addChildItem(row->child(0), "note", 1)->icon(0).cacheKey());
    const QImage image = row->child(2)->icon(0).pixmap(16).toImage();
    QVERIFY(qRed(image.pixel(8, 8)) > 200 && qGreen(image.pixel(8, 8)) < 100);
    QVERIFY(!f.e->addChildItem(f.a->treeItem(), "note"));
}

void tst_BVControlledStack::startPage_data()
{
    QTest::addColumn<int>("threshold");
    QTest::addColumn<int>("pages");
    QTest::addColumn<bool>("isStartPage");
    QTest::newRow("no threshold") << -1 << 0 << false;
    QTest::newRow("empty") << 0 << 0 << true;
    QTest::newRow("a page") << 0 << 1 << false;
    QTest::newRow("not more than two") << 2 << 2 << true;
    QTest::newRow("more than two") << 2 << 3 << false;
}

void tst_BVControlledStack::startPage()
{
    QFETCH(int, threshold);
    QFETCH(int, pages);
    QFETCH(bool, isStartPage);
    Fixture &f = *m_fixture;
    f.stack.clear();
    auto *start = new QWidget;
    f.stack.setStartPage(start, threshold);
    for (int i = 0; i < pages + 1; ++i)
        f.stack.addItem(new QWidget);
    f.stack.removeItem(0);
    QCOMPARE(!start->isHidden(), isStartPage);
    QCOMPARE(f.stack.stackedWidget()->isHidden(), isStartPage);
    f.stack.showStartPage(!isStartPage);
    QCOMPARE(f.stack.stackedWidget()->isHidden(), !isStartPage);
    f.stack.setStartPage(nullptr, isStartPage ? 0 : 100);
    QCOMPARE(f.stack.stackedWidget()->isHidden(), !isStartPage); // stored only
    f.stack.updateMargins(true, false);
    QCOMPARE(f.stack.layout()->contentsMargins(), QMargins(0, 6, 0, 0));
}

void tst_BVControlledStack::deselection()
{
    Fixture &f = *m_fixture;
    const QWidget *pages = f.stack.stackedWidget();
    f.stack.setDeselectionOfCurrentEnabled(true);
    QVERIFY(pages->isHidden() && f.tree()->isDeselectionEnabled());
    f.stack.setCurrentIndex(0);
    QVERIFY(!pages->isHidden());
    auto *start = new QWidget;
    f.stack.setStartPage(start, 0);
    QVERIFY(!pages->isHidden() && start->isHidden());
    f.takeLog();
    f.stack.setCurrentIndex(-1);
    QVERIFY(pages->isHidden() && !start->isHidden());
    QCOMPARE(f.takeLog(), QString("-<a -1"));
    f.stack.addItem(new QWidget, 0); // the last word is not that of the number of pages
    QVERIFY(pages->isHidden());
    f.stack.setDeselectionOfCurrentEnabled(false);
    QVERIFY(!pages->isHidden() && start->isHidden());
}

void tst_BVControlledStack::groupHeaders()
{
    Fixture &f = *m_fixture;
    QVERIFY(f.tree()->rootIsDecorated());
    f.stack.setShowTopLevelItemsAsGroupHeader(true);
    QVERIFY(f.a->isShownAsHeader() && f.e->isShownAsHeader() && !f.b->isShownAsHeader());
    QVERIFY(f.tree()->isTopLevelSeparatorShown() && !f.tree()->rootIsDecorated());
    f.b->setParent(nullptr);
    f.e->setParent(f.b);
    QVERIFY(f.b->isShownAsHeader() && !f.e->isShownAsHeader());
    f.stack.setShowTopLevelItemsAsGroupHeader(false);
    QVERIFY(!f.a->isShownAsHeader() && f.tree()->rootIsDecorated());
    f.a->clear();
    f.b->clear();
    QVERIFY(!f.tree()->rootIsDecorated());
    QVERIFY(!f.stack.isInGroup(1));
    f.stack.createGroup(0, {1});
    QVERIFY(f.stack.isInGroup(1) && !f.stack.isInGroup(0) && !f.stack.isInGroup(9));
}

void tst_BVControlledStack::selectionAndMarks()
{
    Fixture &f = *m_fixture;
    f.controller.listControl()->enableMultiSelection(true);
    QSignalSpy selections(&f.stack, &Stack::itemSelectionChanged);
    f.stack.setSelectedElementsByDfsIndex({4, 3, 77});
    QCOMPARE(selections.size(), 1);
    QCOMPARE(selections[0][0].value<Item *>(), f.d);
    QCOMPARE(f.stack.getDfsIndexOfSelectedElements(), QList<int>({3, 4}));
    QCOMPARE(f.stack.getIndexOfSelectedElements(), QList<int>({1, 1}));
    f.stack.setSelectedElementsByDfsIndex({});
    QVERIFY(!f.stack.hasSelection());

    f.stack.setItemMarked(1, true);
    f.stack.setItemMarked(2, true);
    f.stack.setItemMarked(3, true, true);
    QVERIFY(!f.stack.isItemMarked(1) && !f.stack.isItemMarked(2) && f.stack.isItemMarked(3));
    f.stack.clearMarkedItems();
    QVERIFY(!f.d->isMarked());

    f.stack.setHoverItem(f.c);
    QVERIFY(f.c->isHover() && f.stack.getHoverItem() == f.c);
    f.c->setHover(false, QColor());
    QVERIFY(!f.stack.getHoverItem());
}

void tst_BVControlledStack::layoutEntries()
{
    Fixture &f = *m_fixture;
    Item *item = f.stack.addLayoutItem("key", 0);
    auto *label = new QLabel("x");
    item->setupLayoutItem(label);
    QCOMPARE(f.stack.getLayoutItem("key"), item);
    QCOMPARE(f.stack.getLayoutItems(), QList<Item *>({item}));
    QCOMPARE(Stack::getLayoutItemData(item), QVariant("key"));
    QCOMPARE(label->parentWidget(), item->getContainerWidget());
    QVERIFY(!f.stack.addLayoutItem("key") && !f.stack.addLayoutItem(QVariant()));
    QVERIFY(!Stack::getLayoutItemData(f.a).isValid() && !f.stack.getLayoutItem("other"));
}

void tst_BVControlledStack::rowsChangedByTheUser()
{
    Fixture &f = *m_fixture;
    BVContainerListControl *list = f.controller.listControl();
    f.e->setCurrent();
    QList<Item *> dropped;
    connect(&f.stack, &Stack::itemDropped, &f.stack, [&](Item *target) { dropped << target; });
    list->moveUp();
    QCOMPARE(f.order(), QString("e a .b ..c .d"));
    QCOMPARE(dropped, QList<Item *>({nullptr}));
    QCOMPARE(f.stack.getDfsIndexOfSelectedElements(), QList<int>({0}));
    connect(&f.stack, &Stack::itemDragEnter, &f.stack, [&](Item *, bool *may) { *may = false; });
    list->moveDown();
    QCOMPARE(f.order(), QString("e a .b ..c .d"));

    f.takeLog();
    connect(&f.stack, QOverload<int>::of(&Stack::currentChanged), &f.stack, [&] { f.stack.removeItem(f.b); });
    list->removeSelected();
    QCOMPARE(f.order(), QString("a .d"));
    QCOMPARE(f.takeLog(), QString("a<e 0"));
    QCOMPARE(f.page(), QString("a"));
    f.tree()->clear();
    QCOMPARE(f.stack.itemCount(true), 0);
    QCOMPARE(f.stack.stackedWidget()->count(), 0);
}

/// Slots remove the rows that the user is just selecting and checking.
void tst_BVControlledStack::rowsGoneUnderTheUser()
{
    Fixture &f = *m_fixture;
    const auto remains = [] { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); };
    f.stack.setCheckableItems(Stack::AllItemsCheckable);
    f.a->setExpandedAll(true);
    QWidget window;
    f.controller.setParent(&window);
    f.controller.resize(300, 400);
    window.show();
    f.a->setCurrent();
    bool isDone = false;
    connect(&f.stack, &Stack::itemSelectionChanged, &f.stack, [&](Item *item) {
        if (!std::exchange(isDone, true))
            f.stack.removeItem(item);
    });
    QTest::keyClick(f.tree(), Qt::Key_Down);
    QCOMPARE(f.order(), QString("a .d e"));
    remains();
    QTest::keyClick(f.tree(), Qt::Key_Down);
    QVERIFY(f.stack.getCurrentItem());
    f.stack.clear();
    remains();

    f.named(f.stack.addItem(nullptr), "x")->setCurrent();
    f.stack.addItem(nullptr);
    connect(&f.stack, &Stack::itemToggled, &f.stack, [&](Item *item) { f.stack.removeItem(item); });
    QTest::keyClick(f.tree(), Qt::Key_Space);
    remains();
    QCOMPARE(f.stack.itemCount(), 1);
    QTest::keyClick(f.tree(), Qt::Key_Space);
    remains();
    QCOMPARE(f.stack.itemCount(), 0);
    f.controller.setParent(nullptr);
}

void tst_BVControlledStack::goingOutOfTurn()
{
    auto controller = std::make_unique<BVStackControllerWidget>(nullptr, nullptr, false);
    auto stack = std::make_unique<Stack>(controller.get());
    Item *item = stack->addItem(new QWidget);
    item->addItem(new QWidget)->setCurrent();
    stack->setDeselectionOfCurrentEnabled(true);
    controller.reset();
    QVERIFY(!item->treeItem() && stack->stackedWidget()->isHidden());
    QCOMPARE(stack->itemCount(), 0);
    QVERIFY(!stack->addItem(nullptr) && !stack->getHoverItem());
    stack->setCheckableItems(Stack::AllItemsCheckable);
    stack->setCurrentIndex(-1);

    controller = std::make_unique<BVStackControllerWidget>(nullptr, nullptr, false);
    stack = std::make_unique<Stack>(controller.get());
    stack->addItem(new QWidget);
    connect(stack.get(), QOverload<Item *, Item *>::of(&Stack::currentChanged), this, [&] { stack.reset(); });
    stack->setCurrentIndex(0);
    QVERIFY(!stack);
    QCOMPARE(controller->tree()->topLevelItemCount(), 0);

    stack = std::make_unique<Stack>(controller.get());
    stack->setCheckableItems(Stack::AllItemsCheckable);
    item = stack->addItem(nullptr)->addItem(nullptr);
    connect(stack.get(), &Stack::itemToggled, this, [&] { stack.reset(); });
    item->treeItem()->setCheckState(0, Qt::Checked);
    QVERIFY(!stack);
}

void tst_BVControlledStack::oneStackAtATime()
{
    Fixture &f = *m_fixture;
    f.e->setCurrent();
    f.stack.setNeedInputShortcutEnabled(true);
    f.takeLog();
    auto next = std::make_unique<Stack>(&f.controller);
    QCOMPARE(f.controller.getControlledStack(), next.get());
    QCOMPARE(f.tree()->topLevelItemCount(), 0);
    QVERIFY(!f.stack.controller() && !f.stack.addItem(nullptr) && f.controller.actions().isEmpty());
    QCOMPARE(f.takeLog(), QString());
    Item *item = next->addItem(new QWidget);
    item->setCurrent();
    f.stack.setCurrentIndex(0);
    f.stack.clear();
    f.controller.setControlledStack(&f.stack);
    QCOMPARE(f.controller.getControlledStack(), next.get());
    QCOMPARE(next->getCurrentItem(), item);
    next.reset();
    QVERIFY(!f.controller.getControlledStack());
}

QTEST_MAIN(tst_BVControlledStack)

#include "tst_bvcontrolledstack.moc"
