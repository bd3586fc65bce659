// SPDX-License-Identifier: MIT
#include "ResultsDelegate.h"

#include "ResultsModel.h"

#include <BVFormatter.h>

ResultsDelegate::ResultsDelegate(QObject *parent)
    : BVItemDelegate(parent)
    , m_time(addFormatter(QStringLiteral("s"), 0))
    , m_stroke(addFormatter(QStringLiteral("mm"), 0))
{
    for (BVFormatter *formatter : {m_time, m_stroke})
        formatter->setCutUnnecessaryDigits(true);
    m_stroke->setSuffix(tr(" stroke"));
    for (const ResultVariable &variable : ResultsData::variables())
        m_formatters.push_back(
            addFormatter(QString::fromLatin1(variable.unit), variable.extraDecimals));
}

BVFormatter *ResultsDelegate::addFormatter(const QString &unit, int extraDecimals)
{
    auto *formatter = new BVFormatter(this);
    formatter->setValueUnit(unit);
    formatter->setAdditionalDecimals(extraDecimals);
    connect(formatter, &BVFormatter::settingsChanged, this,
            [this] { Q_EMIT sizeHintChanged(QModelIndex()); });
    return formatter;
}

BVFormatter *ResultsDelegate::formatterFor(const QModelIndex &index) const
{
    const QModelIndex first = index.sibling(index.row(), ResultsModel::Result);
    const int kind = first.data(ResultsModel::s_kindRole).toInt();
    if (kind == ResultsModel::s_time)
        return m_time;
    if (kind == ResultsModel::s_stroke)
        return m_stroke;
    return m_formatters[size_t(kind)];
}

bool ResultsDelegate::isEditable(const QModelIndex &index) const
{
    return index.column() == ResultsModel::Limit && BVItemDelegate::isEditable(index);
}

void ResultsDelegate::initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const
{
    BVItemDelegate::initStyleOption(option, index);
    if (index.column() >= ResultsModel::Minimum && index.column() <= ResultsModel::Limit)
        option->displayAlignment = Qt::AlignRight | Qt::AlignVCenter;
}
