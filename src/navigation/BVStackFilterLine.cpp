// SPDX-License-Identifier: MIT
#include "navigation/BVStackFilterLine_p.h"

#include "controls/BVLineEdit.h"
#include "foundation/BVWidgetStatus.h"
#include "itemviews/BVDragTreeWidget.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QTimer>
#include <QToolButton>
#include <QTreeWidgetItemIterator>

namespace {

constexpr int s_margin = 3; // px

} // namespace

BVStackFilterLine::BVStackFilterLine(BVDragTreeWidget *tree, QWidget *parent)
    : QWidget(parent)
    , m_tree(tree)
    , m_edit(new BVLineEdit(this))
    , m_needInput(new QToolButton(this))
    , m_timer(new QTimer(this))
{
    m_edit->setPlaceholderText(tr("Filter"));
    m_edit->setAccessibleName(tr("Filter"));
    m_edit->setClearButtonEnabled(true);
    m_edit->setMinimumWidth(0);
    m_edit->installEventFilter(this);
    m_needInput->setCheckable(true);
    m_needInput->setAutoRaise(true);
    m_needInput->setIcon(QIcon(QStringLiteral(":/Icons/error.svg")));
    m_needInput->setToolTip(tr("Only entries that need input"));
    m_needInput->setAccessibleName(m_needInput->toolTip());
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(s_margin, 0, s_margin, s_margin);
    layout->setSpacing(s_margin);
    layout->addWidget(m_edit);
    layout->addWidget(m_needInput);
    watch();
}

/// What changes is followed soon, once for many changes.
void BVStackFilterLine::watch()
{
    m_timer->setSingleShot(true);
    connect(m_timer, &QTimer::timeout, this, &BVStackFilterLine::apply);
    connect(m_edit, &QLineEdit::textChanged, this, &BVStackFilterLine::apply);
    connect(m_needInput, &QToolButton::toggled, this, &BVStackFilterLine::apply);
    const QAbstractItemModel *model = m_tree->model();
    connect(model, &QAbstractItemModel::rowsInserted, this, &BVStackFilterLine::schedule);
    connect(model, &QAbstractItemModel::rowsRemoved, this, &BVStackFilterLine::schedule);
    connect(model, &QAbstractItemModel::dataChanged, this, &BVStackFilterLine::schedule);
}

void BVStackFilterLine::schedule()
{
    if (isActive() && !m_timer->isActive())
        m_timer->start(0);
}

void BVStackFilterLine::release()
{
    if (m_tree)
        m_tree->model()->disconnect(this);
    m_timer->stop();
    undo();
}

bool BVStackFilterLine::isActive() const
{
    return m_needInput->isChecked() || !m_edit->text().trimmed().isEmpty();
}

void BVStackFilterLine::apply()
{
    m_timer->stop();
    if (!m_tree)
        return;
    if (!isActive()) {
        undo();
        return;
    }
    QVector<QPersistentModelIndex> closed;
    filterBelow(m_tree->invisibleRootItem(), &closed);
    expand(closed, true);
}

bool BVStackFilterLine::matches(const QTreeWidgetItem *row) const
{
    const auto stati = BVWidgetStatus::Stati(row->data(0, BVWidgetStatus::s_itemRole).toInt());
    if (m_needInput->isChecked() && !BVWidgetStatus::testFlag(stati, BVWidgetStatus::NeedInput))
        return false;
    return row->text(0).contains(m_edit->text().trimmed(), Qt::CaseInsensitive);
}

/// Whether any row below stays. Adds those that have to be opened for that.
bool BVStackFilterLine::filterBelow(QTreeWidgetItem *row, QVector<QPersistentModelIndex> *closed)
{
    bool anyStays = false;
    for (int i = 0; i < row->childCount(); ++i) {
        QTreeWidgetItem *child = row->child(i);
        const bool isInBranch = filterBelow(child, closed);
        const bool stays = isInBranch || matches(child);
        if (isInBranch && !child->isExpanded()) {
            m_opened.insert(child);
            closed->append(m_tree->indexFromItem(child));
        }
        showRow(child, stays);
        anyStays = anyStays || (stays && !child->isHidden());
    }
    return anyStays;
}

void BVStackFilterLine::showRow(QTreeWidgetItem *row, bool show)
{
    if (show && m_hidden.remove(row))
        row->setHidden(false);
    else if (!show && !row->isHidden()) {
        m_hidden.insert(row);
        row->setHidden(true);
    }
}

/// Slots may remove rows.
void BVStackFilterLine::expand(const QVector<QPersistentModelIndex> &rows, bool expand)
{
    for (const QPersistentModelIndex &row : rows)
        if (m_tree && row.isValid())
            m_tree->setExpanded(row, expand);
}

void BVStackFilterLine::undo()
{
    if (!m_tree)
        return;
    QVector<QPersistentModelIndex> opened;
    for (QTreeWidgetItemIterator i(m_tree); *i; ++i) {
        showRow(*i, true);
        if (m_opened.contains(*i))
            opened.append(m_tree->indexFromItem(*i));
    }
    m_hidden.clear();
    m_opened.clear();
    expand(opened, false);
}

void BVStackFilterLine::focusTree()
{
    if (!m_tree)
        return;
    m_tree->setFocus(Qt::OtherFocusReason);
    if (m_tree->currentItem() && !m_tree->currentItem()->isHidden())
        m_tree->scrollToItem(m_tree->currentItem());
}

bool BVStackFilterLine::eventFilter(QObject *watched, QEvent *event)
{
    if (watched != m_edit || event->type() != QEvent::KeyPress)
        return QWidget::eventFilter(watched, event);
    switch (static_cast<QKeyEvent *>(event)->key()) {
    case Qt::Key_Escape:
        if (m_edit->text().isEmpty())
            return false;
        m_edit->clear();
        return true;
    case Qt::Key_Down:
    case Qt::Key_Return:
    case Qt::Key_Enter:
        focusTree();
        return true;
    default:
        return false;
    }
}
