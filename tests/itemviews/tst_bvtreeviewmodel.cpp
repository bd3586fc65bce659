// SPDX-License-Identifier: MIT
#include "itemviews/BVTreeViewModel.h"

#include <QAbstractItemModelTester>
#include <QRandomGenerator>
#include <QSignalSpy>
#include <QSortFilterProxyModel>
#include <QTest>
#include <QTreeView>

#include <array>
#include <new>

namespace {

constexpr int s_unchecked = Qt::Unchecked;
constexpr int s_partly = Qt::PartiallyChecked;
constexpr int s_checked = Qt::Checked;
constexpr int s_none = -1;

QVector<QVector<ItemData>> texts(const QStringList &columns)
{
    QVector<QVector<ItemData>> values;
    for (const QString &text : columns)
        values.append({{Qt::DisplayRole, text}});
    return values;
}

/// "b(d,e),a" -> top-level items b and a, b with children d and e. An upper-case name makes an item
/// that follows its children's check states.
void build(BVTreeViewItem *parent, const QString &tree)
{
    QVector<BVTreeViewItem *> path{parent};
    BVTreeViewItem *last = nullptr;
    for (const QChar c : tree) {
        if (c == QLatin1Char('(')) {
            path.append(last);
        } else if (c == QLatin1Char(')')) {
            path.removeLast();
        } else if (c.isLetterOrNumber()) {
            last = new BVTreeViewItem(texts({QString(c)}), path.constLast());
            if (c.isUpper())
                last->setFlags(last->flags() | Qt::ItemIsAutoTristate);
        }
    }
}

QString treeText(const QAbstractItemModel &model, const QModelIndex &parent = QModelIndex())
{
    QStringList rows;
    for (int row = 0; row < model.rowCount(parent); ++row) {
        const QModelIndex index = model.index(row, 0, parent);
        const QString below = treeText(model, index);
        rows << index.data().toString() + (below.isEmpty() ? QString() : QStringLiteral("(%1)").arg(below));
    }
    return rows.join(QLatin1Char(','));
}

BVTreeViewItem *find(const BVTreeViewModel &model, QChar name)
{
    for (BVTreeViewItem *item : model.getAllItems()) {
        if (item->text(0) == name)
            return item;
    }
    return nullptr;
}

int checkState(const BVTreeViewItem *item, int column = 0)
{
    const QVariant state = item->data(column, Qt::CheckStateRole);
    return state.isValid() ? state.toInt() : s_none;
}

/// Derives the check state by the rule itself, from the stored values.
int derived(const BVTreeViewItem *item, int column)
{
    if (!(item->flags() & Qt::ItemIsAutoTristate) || item->childCount() == 0)
        return checkState(item, column);
    QSet<int> seen;
    for (const BVTreeViewItem *child : item->children()) {
        const QVariant counts = child->data(column, BVTreeViewModel::CountsForParentCheckRole);
        if (counts.isValid() && !counts.toBool())
            continue;
        const int state = derived(child, column);
        if (state == s_none)
            return s_none;
        seen.insert(state);
        if (state == s_partly || seen.size() == 2)
            return s_partly;
    }
    return seen.isEmpty() ? s_none : *seen.cbegin();
}

/// Records what a model tells: "d<rows>@<column>:<roles>" and "i<count>@<column>".
class Log : public QStringList
{
public:
    explicit Log(BVTreeViewModel &model)
    {
        QObject::connect(&model, &QAbstractItemModel::dataChanged, &m_context,
                         [this](const QModelIndex &first, const QModelIndex &last, const QVector<int> &roles) {
                             QString text = QStringLiteral("d%1").arg(first.row());
                             if (last.row() != first.row())
                                 text += QStringLiteral("-%1").arg(last.row());
                             text += QStringLiteral("@%1:").arg(first.column());
                             for (const int role : roles)
                                 text += QStringLiteral("%1 ").arg(role);
                             append(text.trimmed());
                         });
        QObject::connect(&model, &BVTreeViewModel::itemsChanged, &m_context, [this](const QVector<BVTreeViewItem *> &items, int column) {
            append(QStringLiteral("i%1@%2").arg(items.size()).arg(column));
        });
    }
    QString taken() { return QStringList(std::exchange(static_cast<QStringList &>(*this), {})).join(QLatin1Char(' ')); }

private:
    QObject m_context;
};

/// An item whose texts come from elsewhere, and which sorts by numbers.
class NumberItem : public BVTreeViewItem
{
public:
    explicit NumberItem(int number, BVTreeViewItem *parent)
        : BVTreeViewItem(texts({QString::number(number)}), parent)
    {
    }
    bool operator<(const BVTreeViewItem &other) const override { return text(0).toInt() < other.text(0).toInt(); }
    QVariant data(int column, int role) const override
    {
        return role == Qt::CheckStateRole && childCount() == 0 ? QVariant(m_checkState) : BVTreeViewItem::data(column, role);
    }
    int m_checkState = s_unchecked;
};

/// An item that does something when it goes.
class LastWordItem : public BVTreeViewItem
{
public:
    explicit LastWordItem(BVTreeViewItem *parent)
        : BVTreeViewItem(parent)
    {
        s_living.append(this);
    }
    ~LastWordItem() override
    {
        s_living.removeOne(this);
        if (m_lastWord)
            m_lastWord();
    }
    static inline QVector<LastWordItem *> s_living;
    std::function<void()> m_lastWord;
};

class RefusingItem : public BVTreeViewItem
{
public:
    using BVTreeViewItem::BVTreeViewItem;
    void setData(int, int, const QVariant &) override { throw 1; }
};

class alignas(64) AlignedItem : public BVTreeViewItem
{
public:
    double m_value = 1;
};

/// A model that keeps to itself who listens.
class SecretiveModel : public BVTreeViewModel
{
protected:
    void connectNotify(const QMetaMethod &) override {}
};

} // namespace

class tst_BVTreeViewModel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void derivesCheckState_data();
    void derivesCheckState();
    void pushesCheckStateDown();
    void tellsChanges();
    void tellsWhoeverListens_data();
    void tellsWhoeverListens();
    void tellsMovedColumns();
    void collectsChanges();
    void modesCanBeLeftInAnyOrder();
    void widensItemsAndModel();
    void insertsOnlyFreeItems();
    void takenAndDeletedItemsLeaveTheModel();
    void destructorsMayDelete();
    void allocatesAnyItem();
    void slotsMayChangeTheTree();
    void sortsWholeTreeAtOnce();
    void sortsLikeOperatorLess();
    void disablesBranches();
    void findsItemsInViews();
    void longChainsAreDeleted();
    void randomChanges();

private:
    std::unique_ptr<BVTreeViewModel> m_model;
};

void tst_BVTreeViewModel::init()
{
    qRegisterMetaType<Qt::Orientation>();
    qRegisterMetaType<QList<QPersistentModelIndex>>();
    qRegisterMetaType<QAbstractItemModel::LayoutChangeHint>();
    m_model = std::make_unique<BVTreeViewModel>();
    m_model->setColumnCount(2);
}

void tst_BVTreeViewModel::derivesCheckState_data()
{
    QTest::addColumn<QVector<int>>("children");
    QTest::addColumn<int>("expected");
    const int skipped = 10; // + state: a child that does not count
    QTest::newRow("all unchecked") << QVector<int>{0, 0} << s_unchecked;
    QTest::newRow("all checked") << QVector<int>{2, 2, 2} << s_checked;
    QTest::newRow("both") << QVector<int>{2, 0, 2} << s_partly;
    QTest::newRow("one partly") << QVector<int>{2, 1} << s_partly;
    QTest::newRow("unknown value") << QVector<int>{7} << s_partly;
    QTest::newRow("one without a state") << QVector<int>{2, s_none, 2} << s_none;
    QTest::newRow("mixed before one without a state") << QVector<int>{2, 0, s_none} << s_partly;
    QTest::newRow("mixed after one without a state") << QVector<int>{2, s_none, 0} << s_none;
    QTest::newRow("not counted") << QVector<int>{2, skipped, 2} << s_checked;
    QTest::newRow("without a state and not counted") << QVector<int>{2, skipped + s_none} << s_checked;
    QTest::newRow("none counts") << QVector<int>{skipped, skipped + 2} << s_none;
}

void tst_BVTreeViewModel::derivesCheckState()
{
    QFETCH(QVector<int>, children);
    QFETCH(int, expected);
    build(m_model->invisibleRootItem(), QStringLiteral("A(B)"));
    BVTreeViewItem *inner = find(*m_model, QLatin1Char('B'));
    for (const int state : children) {
        auto *child = new BVTreeViewItem(inner);
        const bool counts = state < 9;
        if (!counts)
            child->setData(0, BVTreeViewModel::CountsForParentCheckRole, false);
        if (state % 10 != s_none && state != 9)
            child->setData(0, Qt::CheckStateRole, state % 10);
    }
    for (int i = 0; i < 2; ++i) { // counted, and from what was counted
        QCOMPARE(checkState(inner), expected);
        QCOMPARE(checkState(inner->parentItem()), expected);
    }
}

void tst_BVTreeViewModel::pushesCheckStateDown()
{
    build(m_model->invisibleRootItem(), QStringLiteral("A(B(d,e),c,f)"));
    for (const char name : {'d', 'e', 'c'})
        find(*m_model, QLatin1Char(name))->setData(0, Qt::CheckStateRole, s_unchecked);
    BVTreeViewItem *top = find(*m_model, QLatin1Char('A'));
    BVTreeViewItem *stateless = find(*m_model, QLatin1Char('f'));
    stateless->setData(0, BVTreeViewModel::CountsForParentCheckRole, false);
    QCOMPARE(checkState(top), s_unchecked);

    QVector<bool> brackets;
    m_model->setActivateBulkItemChangedCallback([&](bool on) { brackets.append(on); });
    top->setData(0, Qt::CheckStateRole, s_checked);
    QCOMPARE(brackets, (QVector<bool>{true, true, false, false}));
    QCOMPARE(checkState(find(*m_model, QLatin1Char('e'))), s_checked);
    QCOMPARE(checkState(stateless), s_none);
    QCOMPARE(checkState(top), s_checked);

    find(*m_model, QLatin1Char('d'))->setData(0, Qt::CheckStateRole, s_unchecked);
    QCOMPARE(checkState(top), s_partly);
    top->setData(0, Qt::CheckStateRole, s_partly); // goes no further
    QCOMPARE(checkState(find(*m_model, QLatin1Char('e'))), s_checked);

    // What the parent stores is Checked already, but its children are not.
    top->setData(0, Qt::CheckStateRole, s_checked);
    find(*m_model, QLatin1Char('d'))->setData(0, Qt::CheckStateRole, s_unchecked);
    Log log(*m_model);
    top->setData(0, Qt::CheckStateRole, s_checked);
    QCOMPARE(checkState(top), s_checked);
    QVERIFY2(log.contains(QStringLiteral("d0@0:10")), qPrintable(log.taken()));

    // Whoever looks in the middle sees what is so, and leaves it so.
    for (const char name : {'d', 'e', 'c'})
        find(*m_model, QLatin1Char(name))->setData(1, Qt::CheckStateRole, s_checked);
    stateless->setData(1, BVTreeViewModel::CountsForParentCheckRole, false);
    const auto look = [&] {
        for (const BVTreeViewItem *item : m_model->getAllItems()) {
            for (const int column : {0, 1})
                QCOMPARE(checkState(item, column), derived(item, column));
        }
    };
    m_model->setActivateBulkItemChangedCallback([&](bool) { look(); });
    connect(m_model.get(), &BVTreeViewModel::itemsChanged, this, look);
    for (const int state : {s_unchecked, s_checked}) {
        find(*m_model, QLatin1Char('B'))->setData(0, Qt::CheckStateRole, state);
        look();
    }

    new RefusingItem({{{Qt::CheckStateRole, s_checked}}}, top);
    QVERIFY_EXCEPTION_THROWN(top->setData(0, Qt::CheckStateRole, s_unchecked), int);
    QVERIFY(top->flags() & Qt::ItemIsAutoTristate);
    QCOMPARE(checkState(top), s_partly);
}

void tst_BVTreeViewModel::tellsChanges()
{
    build(m_model->invisibleRootItem(), QStringLiteral("x,A(B(d))"));
    BVTreeViewItem *leaf = find(*m_model, QLatin1Char('d'));
    QVector<int> written;
    m_model->setItemChangedCallback([&](BVTreeViewItem *, int role) { written.append(role); });
    Log log(*m_model);

    leaf->setText(0, QStringLiteral("D"));
    QCOMPARE(log.taken(), QStringLiteral("d0@0:0 2 i1@0"));
    leaf->setText(0, QStringLiteral("D"));
    QCOMPARE(log.taken(), QString());
    leaf->setToolTip(1, QStringLiteral("t"));
    QCOMPARE(log.taken(), QStringLiteral("d0@1:3 i1@1"));
    leaf->setData(0, Qt::CheckStateRole, s_checked);
    QCOMPARE(log.taken(), QStringLiteral("d0@0:10 i1@0 d0@0:10 i1@0 d1@0:10 i1@0"));
    leaf->setData(-1, Qt::UserRole, 1);
    leaf->setData(BVTreeViewItem::s_maximumColumns, Qt::UserRole, 1);
    leaf->setData(5, Qt::UserRole, 1); // a column that no view has
    QCOMPARE(log.taken(), QStringLiteral("i1@5"));

    m_model->setBlockUpdates(true);
    leaf->setText(0, QStringLiteral("E"));
    m_model->setBlockUpdates(false);
    QCOMPARE(log.taken(), QString());
    QCOMPARE(leaf->text(0), QStringLiteral("E"));
    QCOMPARE(written, (QVector<int>{0, 3, 10, Qt::UserRole, 0}));

    QSignalSpy header(m_model.get(), &QAbstractItemModel::headerDataChanged);
    QVERIFY(m_model->setHeaderData(1, Qt::Horizontal, QStringLiteral("Force")));
    QVERIFY(!m_model->setHeaderData(1, Qt::Vertical, QStringLiteral("Force")));
    QCOMPARE(header.count(), 1);
    QCOMPARE(m_model->headerData(1, Qt::Horizontal).toString(), QStringLiteral("Force"));
}

void tst_BVTreeViewModel::tellsWhoeverListens_data()
{
    QTest::addColumn<bool>("isSecretive");
    QTest::newRow("model") << false;
    QTest::newRow("subclass") << true;
}

void tst_BVTreeViewModel::tellsWhoeverListens()
{
    QFETCH(bool, isSecretive);
    m_model.reset(isSecretive ? new SecretiveModel : new BVTreeViewModel);
    m_model->setColumnCount(1);
    auto *item = new BVTreeViewItem(m_model->invisibleRootItem());
    item->setText(0, QStringLiteral("nobody listens"));
    QSignalSpy byName(m_model.get(), SIGNAL(itemsChanged(QVector<BVTreeViewItem *>, int, QVector<int>)));
    item->setText(0, QStringLiteral("one listens"));
    QCOMPARE(byName.count(), 1);
    QSortFilterProxyModel proxy;
    proxy.setSourceModel(m_model.get());
    QSignalSpy behindProxy(&proxy, &QAbstractItemModel::dataChanged);
    QObject inSlot;
    int heard = 0;
    connect(m_model.get(), &BVTreeViewModel::itemsChanged, &inSlot,
            [&] { connect(m_model.get(), &QAbstractItemModel::dataChanged, &inSlot, [&] { ++heard; }); });
    item->setText(0, QStringLiteral("more listen"));
    QCOMPARE(behindProxy.count(), 1);
    item->setText(0, QStringLiteral("all listen"));
    QCOMPARE(heard, 1);
    m_model->blockSignals(true);
    item->setText(0, QStringLiteral("none hears"));
    QCOMPARE(byName.count(), 3);
}

/// In the middle of telling changes.
void tst_BVTreeViewModel::tellsMovedColumns()
{
    build(m_model->invisibleRootItem(), QStringLiteral("A(b)"));
    QVector<QPair<int, int>> told;
    bool isFirst = true;
    connect(m_model.get(), &QAbstractItemModel::dataChanged, this, [&](const QModelIndex &first, const QModelIndex &last) {
        told.append({first.column(), last.column()});
        if (std::exchange(isFirst, false))
            m_model->insertColumns(0, 1);
    });
    QSignalSpy items(m_model.get(), &BVTreeViewModel::itemsChanged);
    find(*m_model, QLatin1Char('b'))->setData(1, Qt::CheckStateRole, s_checked);
    QCOMPARE(told, (QVector<QPair<int, int>>{{1, 1}, {0, 2}}));
    told.clear();
    isFirst = true;
    m_model->useDelayedUpdate(true);
    m_model->getTopLevelItemFromIndex(0)->setText(1, QStringLiteral("x"));
    m_model->getTopLevelItemFromIndex(0)->setText(2, QStringLiteral("y"));
    m_model->useDelayedUpdate(false);
    QCOMPARE(told, (QVector<QPair<int, int>>{{1, 1}, {0, 3}}));
    for (const QList<QVariant> &arguments : items)
        QCOMPARE(arguments[1].toInt(), -1);

    isFirst = true;
    connect(m_model.get(), &QAbstractItemModel::columnsInserted, this, [&] { m_model->setColumnCount(0); });
    m_model->clear();
    m_model->setHeaderData(6, Qt::Horizontal, QStringLiteral("far"));
    QCOMPARE(m_model->columnCount(), 0);
}

void tst_BVTreeViewModel::collectsChanges()
{
    build(m_model->invisibleRootItem(), QStringLiteral("a,b,c,d,e(f)"));
    Log log(*m_model);
    m_model->useDelayedUpdate(true, 1);
    for (const char name : {'c', 'a', 'b', 'e', 'a'})
        find(*m_model, QLatin1Char(name))->setData(0, Qt::UserRole, QString(QLatin1Char(name)) + QString::number(log.size()));
    find(*m_model, QLatin1Char('a'))->setData(0, Qt::UserRole + 1, 1);
    find(*m_model, QLatin1Char('f'))->setToolTip(1, QStringLiteral("t"));
    QCOMPARE(log.taken(), QString());
    QTRY_VERIFY(!log.isEmpty());
    QCOMPARE(log.taken(), QStringLiteral("d0-2@0:256 257 d4@0:256 257 i4@0 d0@1:3 i1@1"));

    // Rows that move are told first.
    find(*m_model, QLatin1Char('c'))->setData(0, Qt::UserRole, 0);
    m_model->insertRows(0, 1);
    QCOMPARE(log.taken(), QStringLiteral("d2@0:256 i1@0"));
    find(*m_model, QLatin1Char('c'))->setData(0, Qt::UserRole, 1);
    delete m_model->takeTopLevelItem(0);
    QCOMPARE(log.taken(), QStringLiteral("d3@0:256 i1@0"));
    find(*m_model, QLatin1Char('c'))->setData(0, Qt::UserRole, 2);
    m_model->sort(0, Qt::DescendingOrder);
    QCOMPARE(log.taken(), QStringLiteral("d2@0:256 i1@0"));

    find(*m_model, QLatin1Char('c'))->setData(0, Qt::UserRole, 3);
    m_model->sendItemsChangedImmediately(false);
    QCOMPARE(log.taken(), QString());
    m_model->sendItemsChangedImmediately(true);
    QCOMPARE(log.taken(), QStringLiteral("d2@0:256 i1@0"));
    find(*m_model, QLatin1Char('a'))->setData(0, Qt::UserRole, 3);
    QCOMPARE(log.taken(), QStringLiteral("i1@0"));
    m_model->useDelayedUpdate(false);
    QCOMPARE(log.taken(), QStringLiteral("d4@0:256"));
}

void tst_BVTreeViewModel::modesCanBeLeftInAnyOrder()
{
    build(m_model->invisibleRootItem(), QStringLiteral("a"));
    // D, B enter and d, b leave the delayed and the blocked mode.
    const std::tuple<const char *, bool, bool> rows[] = {
        {"Dd", false, false},   {"Bb", false, false},  {"DBb", true, false},   {"BDd", false, true},  {"DBd", false, false},
        {"DBdb", false, false}, {"BDb", false, false}, {"BDbd", false, false}, {"DDd", false, false}, {"BBb", false, false},
        {"db", false, false},   {"DBDd", false, true}, {"BDdb", false, false}, {"Db", false, false},  {"Bd", false, false},
    };
    for (const auto &[calls, delayed, blocked] : rows) {
        for (const char call : QByteArray(calls)) {
            if (call == 'D' || call == 'd')
                m_model->useDelayedUpdate(call == 'D', 0);
            else
                m_model->setBlockUpdates(call == 'B');
        }
        QVERIFY2(m_model->isDelayedUpdateUsed() == delayed && m_model->updatesBlocked() == blocked, calls);
        m_model->getTopLevelItemFromIndex(0)->setData(0, Qt::UserRole, QString::fromLatin1(calls));
        m_model->useDelayedUpdate(false);
        m_model->setBlockUpdates(false);
        QVERIFY2(!m_model->isDelayedUpdateUsed() && !m_model->updatesBlocked(), calls);
    }
}

void tst_BVTreeViewModel::widensItemsAndModel()
{
    build(m_model->invisibleRootItem(), QStringLiteral("a"));
    QSignalSpy inserted(m_model.get(), &QAbstractItemModel::columnsInserted);
    BVTreeViewItem *item = m_model->getTopLevelItemFromIndex(0);
    item->setText(3, QStringLiteral("far"));
    QCOMPARE(item->columnCount(), 4);
    QCOMPARE(m_model->columnCount(), 2);
    QVERIFY(m_model->setHeaderData(3, Qt::Horizontal, 1, BVTreeViewModel::HeaderCheckBoxRole));
    QCOMPARE(m_model->columnCount(), 4);
    QCOMPARE(inserted.count(), 1);
    QCOMPARE(m_model->index(0, 3).data().toString(), QStringLiteral("far"));
    QVERIFY(m_model->insertColumns(1, 2));
    QCOMPARE(m_model->index(0, 5).data().toString(), QStringLiteral("far"));
    m_model->clearHeader();
    QCOMPARE(m_model->columnCount(), 0);
    QCOMPARE(item->text(5), QStringLiteral("far"));
}

void tst_BVTreeViewModel::insertsOnlyFreeItems()
{
    build(m_model->invisibleRootItem(), QStringLiteral("a,b"));
    BVTreeViewItem *owned = m_model->getTopLevelItemFromIndex(0);
    auto *parent = new BVTreeViewItem(texts({QStringLiteral("p")}));
    auto *child = new BVTreeViewItem(texts({QStringLiteral("q")}), parent);
    QSignalSpy inserted(m_model.get(), &QAbstractItemModel::rowsInserted);
    auto *fresh = new BVTreeViewItem(texts({QStringLiteral("n")}));
    child->appendChild(parent); // would be a circle
    m_model->insertTopLevelItem(3, fresh);
    m_model->insertTopLevelItem(-1, fresh);
    m_model->insertTopLevelItems(1, {owned, nullptr, child});
    QCOMPARE(inserted.count(), 0);
    m_model->insertTopLevelItems(1, {nullptr, fresh, owned, child, fresh, parent, m_model->invisibleRootItem()});
    QCOMPARE(inserted.count(), 1);
    QCOMPARE(treeText(*m_model), QStringLiteral("a,n,p(q),b"));
    QCOMPARE(fresh->parentItem(), nullptr);
    QCOMPARE(child->row(), 0);
    QVERIFY(child->inTree(parent) && !parent->inTree(child));
    QVERIFY(!m_model->insertRows(5, 1) && !m_model->insertRows(0, 0) && !m_model->removeRows(3, 2));
    QVERIFY(!m_model->insertRows(0, 1, m_model->index(2, 1)));
    QVERIFY(!m_model->index(0, 0, m_model->index(2, 1)).isValid());
    QVERIFY(m_model->insertRows(1, 2, m_model->index(2, 0)));
    QVERIFY(m_model->removeRows(0, 2));
    QCOMPARE(treeText(*m_model), QStringLiteral("p(q,,),b"));
    QCOMPARE(m_model->childCount(), 5);
}

void tst_BVTreeViewModel::takenAndDeletedItemsLeaveTheModel()
{
    build(m_model->invisibleRootItem(), QStringLiteral("a(b(c)),d,e(f,g)"));
    const std::unique_ptr<BVTreeViewItem> taken(find(*m_model, QLatin1Char('a'))->takeChild(0));
    QCOMPARE(taken->child(0)->model(), nullptr);
    QCOMPARE(taken->row(), -1);
    QVERIFY(!m_model->index(taken.get(), 0).isValid());
    delete find(*m_model, QLatin1Char('f'));
    QCOMPARE(treeText(*m_model), QStringLiteral("a,d,e(g)"));
    QCOMPARE(m_model->childCount(), 4);
    find(*m_model, QLatin1Char('e'))->removeChildren();
    QCOMPARE(m_model->childCount(), 3);
    const BVTreeViewItem copy(*taken);
    QVERIFY(copy.id() > taken->id());
    QCOMPARE(copy.childCount(), 0);
    m_model->clear();
    QCOMPARE(m_model->childCount(), 0);
    m_model->appendTopLevelItem(new BVTreeViewItem(copy));
    QCOMPARE(treeText(*m_model), QStringLiteral("b"));
}

/// What deletes an item may meet others that are on their way out as well.
void tst_BVTreeViewModel::destructorsMayDelete()
{
    const std::function<void()> deletions[] = {
        [&] { m_model->clear(); },
        [&] { m_model.reset(); },
        [&] { m_model->removeRows(0, 1); },
        [&] { m_model->getTopLevelItemFromIndex(0)->removeChildren(); },
        [&] { m_model->removeRows(0, 5, m_model->index(0, 0)); },
        [&] { delete m_model->takeTopLevelItem(0); },
    };
    for (const auto &destroy : deletions) {
        init();
        BVTreeViewModel inner;
        auto *top = new BVTreeViewItem(m_model->invisibleRootItem());
        for (int i = 0; i < 5; ++i)
            new LastWordItem(new LastWordItem(top));
        new LastWordItem(inner.invisibleRootItem());
        static_cast<LastWordItem *>(top->child(2))->m_lastWord = [&] {
            inner.clear();
            QVERIFY(!LastWordItem::s_living.isEmpty());
            delete LastWordItem::s_living.first();
            delete LastWordItem::s_living.last();
        };
        destroy();
        QVERIFY(LastWordItem::s_living.isEmpty());
    }
}

void tst_BVTreeViewModel::allocatesAnyItem()
{
    for (int i = 0; i < 8; ++i) {
        auto *item = new AlignedItem;
        QCOMPARE(quintptr(item) % alignof(AlignedItem), quintptr(0));
        m_model->appendTopLevelItem(item);
        m_model->appendTopLevelItem(new (std::nothrow) BVTreeViewItem);
        m_model->appendTopLevelItem(new (std::nothrow) AlignedItem);
    }
    alignas(BVTreeViewItem) std::array<char, sizeof(BVTreeViewItem)> place;
    auto *placed = new (place.data()) BVTreeViewItem(m_model->invisibleRootItem());
    QCOMPARE(m_model->childCount(), 25);
    placed->~BVTreeViewItem();
    QCOMPARE(m_model->childCount(), 24);
}

void tst_BVTreeViewModel::slotsMayChangeTheTree()
{
    std::unique_ptr<BVTreeViewItem> taken;
    // Each change is made where the model is in the middle of telling another one.
    const std::function<void()> changes[] = {
        [&] { m_model->clear(); },
        [&] { delete m_model->takeTopLevelItem(0); },
        [&] { delete m_model->getTopLevelItemFromIndex(0); },
        [&] { taken.reset(m_model->takeTopLevelItem(0)); },
        [&] { m_model->appendTopLevelItem(m_model->takeTopLevelItem(0)); },
        [&] { m_model->insertRows(0, 40); },
        [&] { m_model->insertColumns(0, 1); },
        [&] { m_model->sort(0, Qt::DescendingOrder); },
        [&] { m_model->useDelayedUpdate(!m_model->isDelayedUpdateUsed()); },
        [&] { m_model.reset(); },
    };
    for (const auto &change : changes) {
        for (int when = 1; when <= 40; ++when) { // the emission, above 20 with delay; each one at 20 and 40
            taken.reset();
            init();
            auto tester = std::make_unique<QAbstractItemModelTester>(m_model.get(), QAbstractItemModelTester::FailureReportingMode::QtTest);
            build(m_model->invisibleRootItem(), QStringLiteral("A(b,c,D(e,f),g)"));
            for (const char name : {'b', 'c', 'e', 'f', 'g'})
                find(*m_model, QLatin1Char(name))->setData(0, Qt::CheckStateRole, s_unchecked);
            int calls = 0;
            const auto disturb = [&] {
                ++calls;
                if (m_model && (calls == when % 20 || (when % 20 == 0 && calls < 30)))
                    change();
            };
            connect(m_model.get(), &QAbstractItemModel::dataChanged, tester.get(), disturb);
            connect(m_model.get(), &BVTreeViewModel::itemsChanged, tester.get(), disturb);
            m_model->useDelayedUpdate(when > 20, 0);
            find(*m_model, QLatin1Char('A'))->setData(0, Qt::CheckStateRole, s_checked);
            if (m_model)
                m_model->useDelayedUpdate(false);
            tester.reset();
            if (!m_model)
                continue;
            for (const BVTreeViewItem *item : m_model->getAllItems()) {
                QCOMPARE(checkState(item), derived(item, 0));
                QVERIFY(item->childCount() == 0 || item->flags() & Qt::ItemIsAutoTristate);
            }
        }
    }
}

void tst_BVTreeViewModel::sortsWholeTreeAtOnce()
{
    build(m_model->invisibleRootItem(), QStringLiteral("b(z,y),c,a(x,w)"));
    QSortFilterProxyModel inner;
    inner.setSourceModel(m_model.get());
    QSortFilterProxyModel outer;
    outer.setSourceModel(&inner);
    const QPersistentModelIndex z(outer.index(0, 1, outer.index(0, 0)));
    QSignalSpy layouts(m_model.get(), &QAbstractItemModel::layoutChanged);
    m_model->sort(0);
    QCOMPARE(treeText(*m_model), QStringLiteral("a(w,x),b(y,z),c"));
    QCOMPARE(treeText(outer), treeText(*m_model));
    QCOMPARE(layouts.count(), 1);
    QCOMPARE(z.sibling(z.row(), 0).data().toString(), QStringLiteral("z"));
    m_model->sort(-1);
    m_model->sort(7);
    QCOMPARE(layouts.count(), 1);

    m_model->setKeepSelectedAfterSorting(false);
    const QPersistentModelIndex first(m_model->index(0, 0));
    m_model->sort(0, Qt::DescendingOrder);
    QCOMPARE(first.row(), 0);
    QCOMPARE(first.data().toString(), QStringLiteral("c"));
    QCOMPARE(m_model->parent(m_model->index(0, 0, m_model->index(1, 0))), m_model->index(1, 0));

    m_model->setKeepSelectedAfterSorting(true);
    const QModelIndex last = m_model->index(2, 0);
    m_model->removeRows(2, 1);
    const QPersistentModelIndex stale(last);
    m_model->sort(0);
    QVERIFY(!stale.isValid());
}

void tst_BVTreeViewModel::sortsLikeOperatorLess()
{
    QVector<BVTreeViewItem *> items;
    QRandomGenerator random(7);
    const QString letters = QStringLiteral("aAbB \u00e4\u00c4\u00e9z09-_.\u4e2d");
    for (int i = 0; i < 300; ++i) {
        QString text;
        for (int n = random.bounded(4); n > 0; --n)
            text += letters[random.bounded(letters.size())];
        items.append(new BVTreeViewItem(texts({QString::number(i), text})));
    }
    m_model->appendTopLevelItems(items);
    for (const Qt::SortOrder order : {Qt::DescendingOrder, Qt::AscendingOrder}) {
        QVector<BVTreeViewItem *> expected = m_model->getTopLevelItems();
        std::stable_sort(expected.begin(), expected.end(), [&](const BVTreeViewItem *a, const BVTreeViewItem *b) {
            const int comparison = QString::localeAwareCompare(a->text(1), b->text(1));
            return order == Qt::AscendingOrder ? comparison < 0 : comparison > 0;
        });
        m_model->sort(1, order);
        QCOMPARE(m_model->sortColumn(), 1);
        QCOMPARE(m_model->getTopLevelItems(), expected);
    }
    m_model->clear();
    for (const int number : {10, 9, 100})
        new NumberItem(number, m_model->invisibleRootItem());
    m_model->sort(0);
    QCOMPARE(treeText(*m_model), QStringLiteral("9,10,100"));
}

void tst_BVTreeViewModel::disablesBranches()
{
    build(m_model->invisibleRootItem(), QStringLiteral("a(b(c)),d"));
    find(*m_model, QLatin1Char('a'))->setDisabled(true);
    QVERIFY(find(*m_model, QLatin1Char('c'))->isDisabled());
    QVERIFY(!find(*m_model, QLatin1Char('d'))->isDisabled());
    const BVTreeViewItem *inserted = new BVTreeViewItem(find(*m_model, QLatin1Char('b')));
    QVERIFY(inserted->isDisabled());
    find(*m_model, QLatin1Char('a'))->setDisabled(false);
    QVERIFY(!inserted->isDisabled());
}

void tst_BVTreeViewModel::findsItemsInViews()
{
    build(m_model->invisibleRootItem(), QStringLiteral("a(b),c"));
    QSortFilterProxyModel proxy;
    proxy.setSourceModel(m_model.get());
    proxy.sort(0, Qt::DescendingOrder);
    QTreeView view;
    view.setModel(&proxy);
    BVTreeViewItem *item = find(*m_model, QLatin1Char('a'));
    QVERIFY(!isItemExpanded(item, &view));
    setItemExpanded(item, &view, true);
    QVERIFY(isItemExpanded(item, &view));
    setCurrentItem(item, &view);
    QCOMPARE(view.currentIndex(), proxy.index(1, 0));
    QVERIFY(isItemSelected(item, &view) && !isItemHidden(item, &view));
    const std::unique_ptr<BVTreeViewItem> taken(m_model->takeTopLevelItem(0));
    QVERIFY(!isItemExpanded(taken.get(), &view) && !isItemSelected(taken.get(), &view));
    setCurrentItem(nullptr, &view);
    QVERIFY(!view.currentIndex().isValid());
}

void tst_BVTreeViewModel::longChainsAreDeleted()
{
    BVTreeViewItem *top = new BVTreeViewItem;
    BVTreeViewItem *last = top;
    for (int i = 0; i < 200000; ++i)
        last = new BVTreeViewItem(last);
    m_model->appendTopLevelItem(top);
    QCOMPARE(m_model->childCount(), 200001);
    m_model->clear();
    QCOMPARE(m_model->childCount(), 0);
}

/// Long runs of everything at once, watched by the model tester, a proxy and a view.
void tst_BVTreeViewModel::randomChanges()
{
    for (quint32 seed = 1; seed <= 6; ++seed) {
        init();
        QSortFilterProxyModel proxy;
        proxy.setSourceModel(m_model.get());
        proxy.sort(0);
        QTreeView view;
        view.setModel(&proxy);
        view.show();
        QAbstractItemModelTester tester(m_model.get(), QAbstractItemModelTester::FailureReportingMode::QtTest);
        QAbstractItemModelTester proxyTester(&proxy, QAbstractItemModelTester::FailureReportingMode::QtTest);
        QRandomGenerator random(seed);
        const auto readAny = [&] {
            const QVector<BVTreeViewItem *> items = m_model->getAllItems();
            for (const BVTreeViewItem *item : items.mid(random.bounded(items.size() + 1), 1)) {
                const int column = random.bounded(2);
                QCOMPARE(checkState(item, column), derived(item, column));
            }
        };
        connect(m_model.get(), &BVTreeViewModel::itemsChanged, this, [&](const QVector<BVTreeViewItem *> &items) {
            for (const BVTreeViewItem *item : items) {
                QCOMPARE(item->model(), m_model.get());
                checkState(random.bounded(2) == 1 && item->parentItem() ? item->parentItem() : item, random.bounded(2));
            }
            readAny();
        });
        connect(m_model.get(), &QAbstractItemModel::dataChanged, this, readAny);
        m_model->setActivateBulkItemChangedCallback([&](bool) { readAny(); });
        BVTreeViewModel other;
        const auto anyItem = [&] {
            const QVector<BVTreeViewItem *> items = m_model->getAllItems();
            return items.isEmpty() || random.bounded(5) == 0 ? m_model->invisibleRootItem() : items[random.bounded(items.size())];
        };
        const auto anyRow = [&] { return m_model->index(anyItem(), 0); };
        const auto write = [&](int role, const QVariant &value) { anyItem()->setData(random.bounded(2), role, value); };
        const std::function<void()> operations[] = {
            [&] { build(anyItem(), QStringLiteral("k,L(m,n)")); },
            [&] { anyItem()->insertChild(0, new BVTreeViewItem(texts({QString::number(random.bounded(99))}))); },
            [&] { (new NumberItem(random.bounded(99), anyItem()))->m_checkState = 2 * random.bounded(2); },
            [&] { m_model->insertRows(random.bounded(2), 1 + random.bounded(3), anyRow()); },
            [&] { delete anyItem()->takeChild(0); },
            [&] { delete anyItem()->child(0); },
            [&] { m_model->removeRows(0, 1 + random.bounded(2), anyRow()); },
            [&] {
                BVTreeViewItem *moved = anyItem()->takeChild(0);
                other.appendTopLevelItem(moved);
                anyItem()->appendChild(moved); // not while it is elsewhere
                anyItem()->appendChild(other.takeTopLevelItem(0));
            },
            [&] { anyItem()->setText(random.bounded(3), QString::number(random.bounded(99))); },
            [&] { write(Qt::CheckStateRole, random.bounded(3)); },
            [&] { write(Qt::CheckStateRole, 2 * random.bounded(2)); },
            [&] { write(Qt::CheckStateRole, QVariant()); },
            [&] { write(BVTreeViewModel::CountsForParentCheckRole, random.bounded(2) == 1); },
            [&] { anyItem()->setFlags(anyItem()->flags() ^ Qt::ItemIsAutoTristate); },
            [&] { *anyItem() = *anyItem(); },
            [&] { anyItem()->setDisabled(random.bounded(2) == 1); },
            [&] {
                m_model->insertColumns(random.bounded(2), 1);
                m_model->setColumnCount(2);
            },
            [&] {
                m_model->setKeepSelectedAfterSorting(random.bounded(2) == 1);
                m_model->sort(random.bounded(2), Qt::SortOrder(random.bounded(2)));
            },
            [&] { m_model->useDelayedUpdate(random.bounded(2) == 1, 0); },
            [&] { m_model->setBlockUpdates(random.bounded(3) == 0); },
            [&] { QCoreApplication::processEvents(); },
            [&] { view.expandAll(); },
        };
        for (int step = 0; step < 1500; ++step) {
            operations[random.bounded(int(std::size(operations)))]();
            for (const BVTreeViewItem *item : m_model->getAllItems()) {
                for (const int column : {0, 1})
                    QCOMPARE(checkState(item, column), derived(item, column));
                QCOMPARE(m_model->item(m_model->index(item, 0)), item);
            }
            QCOMPARE(checkState(m_model->invisibleRootItem()), derived(m_model->invisibleRootItem(), 0));
            if (m_model->childCount() > 20)
                m_model->clear();
        }
    }
}

QTEST_MAIN(tst_BVTreeViewModel)
#include "tst_bvtreeviewmodel.moc"
