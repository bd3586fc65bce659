// SPDX-License-Identifier: MIT
#include "ResultsModel.h"

#include <BVItemDelegate.h>
#include <BVWidgetStatus.h>

#include <QLocale>
#include <QStringList>

#include <cmath>

namespace {

constexpr double s_near = 0.05; // of the limit

using Status = BVWidgetStatus::Status;

Status statusOf(const BVTreeViewItem *item)
{
    return Status(item->data(ResultsModel::Result, BVWidgetStatus::s_itemRole).toUInt());
}

void setStatus(BVTreeViewItem *item, int column, Status status)
{
    const bool isPlain = status == BVWidgetStatus::Normal;
    if (!isPlain || item->data(column, BVWidgetStatus::s_itemRole).isValid())
        item->setData(column, BVWidgetStatus::s_itemRole, int(status));
}

void setReason(BVTreeViewItem *item, int column, const QString &reason)
{
    if (item->toolTip(column) != reason)
        item->setToolTip(column, reason);
}

const ResultVariable &variableOf(const BVTreeViewItem *item)
{
    const int kind = item->data(ResultsModel::Result, ResultsModel::s_kindRole).toInt();
    return ResultsData::variables()[size_t(kind)];
}

Status judged(ResultVariable::LimitKind kind, double value, double limit)
{
    const double excess = kind == ResultVariable::LowerLimit ? limit - value : value - limit;
    if (excess > 0.0)
        return BVWidgetStatus::NeedInput;
    return excess > -s_near * std::abs(limit) ? BVWidgetStatus::StandardChanged
                                              : BVWidgetStatus::Normal;
}

QString reasonFor(ResultVariable::LimitKind kind, Status status)
{
    const bool isLower = kind == ResultVariable::LowerLimit;
    if (status == BVWidgetStatus::NeedInput)
        return isLower ? ResultsModel::tr("The minimum is below the limit.")
                       : ResultsModel::tr("The maximum is above the limit.");
    if (status == BVWidgetStatus::StandardChanged)
        return isLower ? ResultsModel::tr("The minimum is close to the limit.")
                       : ResultsModel::tr("The maximum is close to the limit.");
    return QString();
}

/// Compares a row's value with its limit.
void judgeRange(BVTreeViewItem *item)
{
    const ResultVariable::LimitKind kind = variableOf(item).limitKind;
    if (kind == ResultVariable::NoLimit)
        return;
    const int column =
        kind == ResultVariable::LowerLimit ? ResultsModel::Minimum : ResultsModel::Maximum;
    const Status status = judged(kind, item->data(column, Qt::EditRole).toDouble(),
                                 item->data(ResultsModel::Limit, Qt::EditRole).toDouble());
    for (const int shown : {int(ResultsModel::Result), column}) {
        setStatus(item, shown, status);
        setReason(item, shown, reasonFor(kind, status));
    }
}

/// Takes over the worst of the rows below.
void judgeParent(BVTreeViewItem *item)
{
    Status worst = BVWidgetStatus::Normal;
    for (const BVTreeViewItem *child : item->children()) {
        const Status status = statusOf(child);
        if (status == BVWidgetStatus::NeedInput || worst == BVWidgetStatus::Normal)
            worst = status;
    }
    setStatus(item, ResultsModel::Result, worst);
    setReason(item, ResultsModel::Result,
              worst == BVWidgetStatus::NeedInput
                  ? ResultsModel::tr("Values below are beyond their limits.")
              : worst == BVWidgetStatus::StandardChanged
                  ? ResultsModel::tr("Values below are close to their limits.")
                  : QString());
}

BVTreeViewItem *rangeItem(const ResultRange &range)
{
    const ResultVariable &variable = ResultsData::variables()[size_t(range.variable)];
    auto *item = new BVTreeViewItem;
    item->setText(ResultsModel::Result, variable.nameText());
    item->setData(ResultsModel::Result, ResultsModel::s_kindRole, range.variable);
    item->setData(ResultsModel::Minimum, Qt::DisplayRole, range.minimum);
    item->setData(ResultsModel::Maximum, Qt::DisplayRole, range.maximum);
    if (variable.limitKind != ResultVariable::NoLimit) {
        item->setData(ResultsModel::Limit, Qt::DisplayRole, variable.limit);
        item->setFlags(item->flags() | Qt::ItemIsEditable);
    }
    item->setData(ResultsModel::Show, Qt::CheckStateRole, Qt::Checked);
    judgeRange(item);
    return item;
}

BVTreeViewItem *stepItem(const ResultStep &step, bool hasStroke)
{
    auto *item = new BVTreeViewItem;
    item->setData(ResultsModel::Result, Qt::DisplayRole, step.position);
    item->setData(ResultsModel::Result, ResultsModel::s_kindRole,
                  hasStroke ? ResultsModel::s_stroke : ResultsModel::s_time);
    item->setFlags(item->flags() | Qt::ItemIsAutoTristate);
    QVector<BVTreeViewItem *> ranges;
    for (const ResultRange &range : step.ranges)
        ranges.append(rangeItem(range));
    item->appendChildren(ranges);
    judgeParent(item);
    return item;
}

BVTreeViewItem *operationItem(const ResultOperation &operation)
{
    auto *item = new BVTreeViewItem;
    item->setText(ResultsModel::Result, operation.name);
    for (int column = 0; column < ResultsModel::ColumnCount; ++column)
        item->setData(column, BVItemDelegate::GroupHeaderRole, true);
    item->setFlags(item->flags() | Qt::ItemIsAutoTristate);
    QVector<BVTreeViewItem *> steps;
    for (const ResultStep &step : operation.steps)
        steps.append(stepItem(step, operation.hasStroke));
    item->appendChildren(steps);
    judgeParent(item);
    return item;
}

int countBeyond(const BVTreeViewItem *item)
{
    if (item->childCount() == 0)
        return statusOf(item) == BVWidgetStatus::NeedInput ? 1 : 0;
    int count = 0;
    for (const BVTreeViewItem *child : item->children())
        count += countBeyond(child);
    return count;
}

} // namespace

ResultsModel::ResultsModel(QObject *parent)
    : BVTreeViewModel(parent)
{
    setColumnCount(ColumnCount);
    const QString titles[] = {tr("Result"), tr("Minimum"), tr("Maximum"), tr("Limit"), tr("Show")};
    for (int column = 0; column < ColumnCount; ++column) {
        const bool isNumber = column >= Minimum && column <= Limit;
        setHeaderData(column, Qt::Horizontal, titles[column]);
        setHeaderData(column, Qt::Horizontal,
                      int(Qt::AlignVCenter | (isNumber ? Qt::AlignRight : Qt::AlignLeft)),
                      Qt::TextAlignmentRole);
    }
    setHeaderData(Limit, Qt::Horizontal, tr("Double-click a limit to change it."), Qt::ToolTipRole);
    useDelayedUpdate(true);
    connect(this, &BVTreeViewModel::itemsChanged, this, &ResultsModel::onItemsChanged);
}

void ResultsModel::setResults(const ResultOperations &operations)
{
    QVector<BVTreeViewItem *> items;
    m_beyond = 0;
    for (const ResultOperation &operation : operations) {
        items.append(operationItem(operation));
        m_beyond += countBeyond(items.constLast());
    }
    m_rows = ResultsData::rowCount(operations);
    clear();
    appendTopLevelItems(items);
    Q_EMIT summaryChanged();
}

QString ResultsModel::summary() const
{
    QLocale locale = QLocale::c();
    locale.setNumberOptions(QLocale::DefaultNumberOptions); // "100,000"
    return tr("%1 rows, %2 values beyond their limits")
        .arg(locale.toString(m_rows), locale.toString(m_beyond));
}

/// Judges rows again whose limits have changed.
void ResultsModel::onItemsChanged(const QVector<BVTreeViewItem *> &items, int column,
                                  const QVector<int> &roles)
{
    if (column != Limit || !(roles.contains(Qt::DisplayRole) || roles.contains(Qt::EditRole)))
        return;
    for (BVTreeViewItem *item : items) {
        m_beyond -= countBeyond(item);
        judgeRange(item);
        m_beyond += countBeyond(item);
        const double usual = variableOf(item).limit;
        const bool isUsual = item->data(Limit, Qt::EditRole).toDouble() == usual;
        setStatus(item, Limit, isUsual ? BVWidgetStatus::Normal : BVWidgetStatus::UserEdit);
        setReason(item, Limit, isUsual ? QString() : tr("You have changed this limit."));
        for (BVTreeViewItem *p = item->parentItem(); p; p = p->parentItem())
            judgeParent(p);
    }
    Q_EMIT summaryChanged();
}
