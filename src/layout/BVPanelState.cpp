// SPDX-License-Identifier: MIT
#include "layout/BVPanelState_p.h"

#include <QDataStream>

namespace {

constexpr quint32 s_magic = 0x42567031; // "BVp1"
constexpr int s_limit = 1 << 24;        // px; no widget is larger

bool isPlausible(const QRect &rect)
{
    // The corners first: the size of a rectangle that is too large overflows.
    for (const int edge : {rect.left(), rect.top(), rect.right(), rect.bottom()}) {
        if (edge <= -s_limit || edge >= s_limit)
            return false;
    }
    return !rect.isEmpty();
}

bool isPlausible(const BVPanelState &state)
{
    if (!state.floating)
        return !state.enlarged;
    return isPlausible(state.rect) && (!state.enlarged || isPlausible(state.lastRect));
}

} // namespace

QByteArray BVPanelState::toBytes() const
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setVersion(QDataStream::Qt_5_15);
    stream << s_magic << floating << enlarged << lastWasEmbedded << rect << lastRect;
    return bytes;
}

bool BVPanelState::fromBytes(const QByteArray &bytes)
{
    QDataStream stream(bytes);
    stream.setVersion(QDataStream::Qt_5_15);
    quint32 magic = 0;
    BVPanelState state;
    stream >> magic >> state.floating >> state.enlarged >> state.lastWasEmbedded >> state.rect >>
        state.lastRect;
    if (stream.status() != QDataStream::Ok || !stream.atEnd() || magic != s_magic)
        return false;
    if (!isPlausible(state))
        return false;
    *this = state;
    return true;
}
