// SPDX-License-Identifier: MIT
#include "foundation/BVCursorTable.h"

namespace {

constexpr Qt::CursorShape s_shapes[] = {
    Qt::ArrowCursor,   Qt::IBeamCursor,    Qt::ForbiddenCursor,  Qt::SizeHorCursor,
    Qt::SizeVerCursor, Qt::OpenHandCursor, Qt::ClosedHandCursor, Qt::WaitCursor,
    Qt::SizeHorCursor, Qt::SizeVerCursor,  Qt::SizeFDiagCursor,  Qt::SizeBDiagCursor,
};
static_assert(sizeof(s_shapes) / sizeof(*s_shapes) ==
              size_t(BVCursorTable::Cursor::ResizeRising) + 1);

} // namespace

QCursor BVCursorTable::cursor(Cursor cursor)
{
    return QCursor(s_shapes[static_cast<size_t>(cursor)]);
}
