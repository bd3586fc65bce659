// SPDX-License-Identifier: MIT
#include "foundation/RegisterDragAndDropWidgetEvent.h"
#include "itemviews/DragAndDropBaseFilter.h"
#include "style/StyleSheetHandler.h"

#include "DragRows.h"
#include "XdoTool.h"

#include <QApplication>
#include <QDropEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QTest>

#include <memory>

/// A label that shows the rows that are dropped on it.
struct Bin : Brimvale::DragAndDropBaseFilter
{
    bool accepts(const QWidget *, const QMimeData &, const DragDropInfo &) const override { return true; }
    void drop(QWidget *widget, QDropEvent *, const DragDropInfo &info) override
    {
        static_cast<QLabel *>(widget)->setText(DragTree::namesOf(info.draggedIndexes));
    }
};

/// Rows dragged between two trees, and within one, with the pointer and keys from outside.
class tst_TreeDragWindow : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
    void moves_data();
    void moves();
    void escape();
    void otherWidget();
    void viewDies();

private:
    bool drag(const QPoint &to, const std::function<bool()> &step);
    static QString rowsOf(const BVTreeViewItem *parent);
    QString rows() const;
    void moveRows(DragTree *tree);

    std::unique_ptr<QWidget> m_window;
    DragTree *m_trees[2] = {};
    QLabel *m_bin = nullptr;
};

void tst_TreeDragWindow::initTestCase()
{
    qApp->setStyle("Fusion");
    qApp->setStyleSheet(Brimvale::StyleSheetHandler::load());
}

void tst_TreeDragWindow::init()
{
    m_window = std::make_unique<QWidget>();
    m_trees[0] = new DragTree("a,b,c!(d),e");
    m_trees[1] = new DragTree("p,q!,r");
    m_bin = new QLabel("empty");
    auto *layout = new QHBoxLayout(m_window.get());
    for (int i = 0; i < 2; ++i) {
        layout->addWidget(m_trees[i]->m_view);
        BVDragAndDropManager *manager = m_trees[i]->m_manager;
        manager->setSecondTreeView(m_trees[1 - i]->m_view);
        manager->setDragAndDropInfoText("Drop rows to move them");
        connect(manager, &BVDragAndDropManager::sigDropEvent, this, [this, i] { moveRows(m_trees[i]); });
    }
    layout->addWidget(m_bin);
    m_window->resize(800, 400);
    QVERIFY(XdoTool::showActive(m_window.get()));
}

void tst_TreeDragWindow::cleanup()
{
    for (DragTree *&tree : m_trees)
        delete std::exchange(tree, nullptr);
    m_window.reset();
}

/// What an owner does: takes the rows out of one tree and puts them into the other.
void tst_TreeDragWindow::moveRows(DragTree *tree)
{
    const DragDropInfo info = tree->m_manager->getDragAndDropInfo();
    auto *source = static_cast<BVTreeViewModel *>(info.source->model());
    const QModelIndex dragged = info.draggedIndexes.value(0);
    const auto itemOf = [](BVTreeViewModel *model, const QModelIndex &index) {
        return index.isValid() ? model->item(index) : model->invisibleRootItem();
    };
    BVTreeViewItem *parent = itemOf(source, dragged.parent());
    BVTreeViewItem *target = itemOf(&tree->m_model, info.dropParent());
    const bool isBehind = parent == target && dragged.row() < info.dropRow();
    const int row = info.dropRow() < 0 ? target->childCount() : info.dropRow() - isBehind;
    target->insertChild(row, parent->takeChild(dragged.row()));
}

/// "a(b),c" for the children.
QString tst_TreeDragWindow::rowsOf(const BVTreeViewItem *parent)
{
    QStringList names;
    for (int row = 0; row < parent->childCount(); ++row) {
        const BVTreeViewItem *child = parent->child(row);
        names << child->text(0) + (child->childCount() ? '(' + rowsOf(child) + ')' : QString());
    }
    return names.join(',');
}

QString tst_TreeDragWindow::rows() const
{
    return rowsOf(m_trees[0]->m_model.invisibleRootItem()) + " | " + rowsOf(m_trees[1]->m_model.invisibleRootItem());
}

/// Drags the row b of the first tree to a point of the window, where the step is tried.
bool tst_TreeDragWindow::drag(const QPoint &to, const std::function<bool()> &step)
{
    const QPoint from = m_trees[0]->m_view->viewport()->mapTo(m_window.get(), m_trees[0]->at("b"));
    return XdoTool::dragNatively(m_window.get(), from, to, step);
}

void tst_TreeDragWindow::moves_data()
{
    QTest::addColumn<QString>("target"); // a row, or the key that moves b
    QTest::addColumn<double>("height");
    QTest::addColumn<QString>("expected");
    QTest::newRow("above a row of the other tree") << "q" << 0.0 << "a,c(d),e | p,b,q,r";
    QTest::newRow("onto a row of the other tree") << "q" << 0.5 << "a,c(d),e | p,q(b),r";
    QTest::newRow("below a row of the other tree") << "r" << 0.9 << "a,c(d),e | p,q,r,b";
    QTest::newRow("within the tree") << "e" << 0.9 << "a,c(d),e,b | p,q,r";
    QTest::newRow("up") << "alt+Up" << 0.0 << "b,a,c(d),e | p,q,r";
    QTest::newRow("into the other tree") << "alt+Right" << 0.0 << "a,c(d),e | p,q,r,b";
}

void tst_TreeDragWindow::moves()
{
    QFETCH(const QString, target);
    QFETCH(const double, height);
    if (target.startsWith("alt")) {
        m_trees[0]->m_view->setFocus();
        m_trees[0]->select("b");
        QVERIFY(XdoTool::pressKey(target));
    } else {
        DragTree *tree = m_trees[target == "e" ? 0 : 1];
        const QPoint to = tree->m_view->viewport()->mapTo(m_window.get(), tree->at(target, height));
        QVERIFY(drag(to, [&] { return tree->m_manager->getDropIndex() == tree->cell(target); }));
    }
    QFETCH(const QString, expected);
    QTRY_COMPARE(rows(), expected);
    for (const DragTree *tree : m_trees)
        QVERIFY(!tree->m_manager->getDropIndex().isValid());
}

void tst_TreeDragWindow::escape()
{
    DragTree *tree = m_trees[1];
    tree->m_manager->setUsePreview(true);
    tree->m_manager->setUseMoveVisualizationLine(true);
    QWidget *viewport = tree->m_view->viewport();
    const auto mark = [viewport] { return viewport->grab().toImage(); };
    QVERIFY(XdoTool::movePointer(m_window.get(), QPoint(2, 2)));
    const QImage before = mark();
    const QPoint to = viewport->mapTo(m_window.get(), tree->at("r", 0.9));
    const QRgb line = QColor(0x2f, 0x65, 0x99).rgb();
    QVERIFY(drag(to, [&] {
        const int y = tree->m_view->visualRect(tree->cell("r")).bottom() + 1;
        return mark().pixel(viewport->width() / 2, y) == line && XdoTool::pressKey("Escape");
    }));
    QTRY_VERIFY(!tree->m_manager->getDropIndex().isValid());
    QVERIFY(XdoTool::movePointer(m_window.get(), QPoint(2, 2)));
    QTRY_VERIFY(mark() == before);
    QCOMPARE(rows(), QString("a,b,c(d),e | p,q,r"));
}

void tst_TreeDragWindow::otherWidget()
{
    Bin bin;
    Brimvale::RegisterDragAndDropWidgetEvent registration(m_bin, &bin, false);
    QApplication::sendEvent(m_trees[0]->m_view, &registration);
    QVERIFY(drag(m_bin->geometry().center(), [] { return true; }));
    QTRY_COMPARE(m_bin->text(), QString("b"));
    QCOMPARE(rows(), QString("a,b,c(d),e | p,q,r"));
}

void tst_TreeDragWindow::viewDies()
{
    const QPoint to = m_trees[1]->m_view->viewport()->mapTo(m_window.get(), m_trees[1]->at("r"));
    QVERIFY(drag(to, [this] {
        delete m_trees[0]->m_view;
        return !m_trees[1]->m_manager->getDropIndex().isValid();
    }));
    QCOMPARE(rows(), QString("a,b,c(d),e | p,q,r"));
    QVERIFY(XdoTool::clickAt(m_trees[1]->m_view->viewport(), m_trees[1]->at("q"))); // the pointer works as before
    QTRY_VERIFY(m_trees[1]->m_view->selectionModel()->isSelected(m_trees[1]->cell("q")));
}

QTEST_MAIN(tst_TreeDragWindow)

#include "tst_treedrag_window.moc"
