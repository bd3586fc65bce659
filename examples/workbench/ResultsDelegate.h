// SPDX-License-Identifier: MIT
#pragma once

#include <BVItemDelegate.h>

#include <vector>

/// Shows and edits each result in the unit that the user has chosen for its quantity.
class ResultsDelegate : public BVItemDelegate
{
    Q_OBJECT

public:
    explicit ResultsDelegate(QObject *parent = nullptr);

    BVFormatter *formatterFor(const QModelIndex &index) const override;
    /// Only limits are.
    bool isEditable(const QModelIndex &index) const override;

protected:
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override;

private:
    BVFormatter *addFormatter(const QString &unit, int extraDecimals);

    std::vector<BVFormatter *> m_formatters; // by variable; children of this
    BVFormatter *m_time;
    BVFormatter *m_stroke;
};
