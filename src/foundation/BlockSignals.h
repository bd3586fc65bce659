// SPDX-License-Identifier: MIT
#pragma once

#include "BVWidgetsExport.h"

#include <QPointer>
#include <QVector>

#include <initializer_list>

class QObject;

/// Blocks the signals of several objects until the end of a scope, then puts each back as it was.
///
/// Null is ignored, and an object may be deleted meanwhile. For one object that stays,
/// QSignalBlocker does.
class BVWIDGETS_EXPORT BlockSignals
{
public:
    BlockSignals(std::initializer_list<QObject *> objects);
    ~BlockSignals();
    BlockSignals(const BlockSignals &) = delete;
    BlockSignals &operator=(const BlockSignals &) = delete;

private:
    struct Blocked
    {
        QPointer<QObject> m_object;
        bool m_wasBlocked = false;
    };

    QVector<Blocked> m_blocked;
};
