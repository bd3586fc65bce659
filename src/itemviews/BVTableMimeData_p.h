// SPDX-License-Identifier: MIT
#pragma once

#include "itemviews/BVTableText_p.h"

#include <QMimeData>

/// A table as plain text and as HTML, which is made when it is first asked for.
class BVTableMimeData : public QMimeData
{
public:
    explicit BVTableMimeData(BVTableText table);

    QStringList formats() const override;
    bool hasFormat(const QString &format) const override;

protected:
    QVariant retrieveData(const QString &format, QVariant::Type type) const override;

private:
    BVTableText m_table;
    mutable QString m_html; // empty until it is asked for
};
