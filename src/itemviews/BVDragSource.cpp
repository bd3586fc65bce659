// SPDX-License-Identifier: MIT
#include "itemviews/BVDragSource_p.h"

#include "itemviews/BVDragAndDropManager.h"

#include <QDrag>
#include <QMimeData>

namespace {

constexpr int s_pictureOffset = 12; // px, of the dragged picture from the pointer

/// The pointer's place in the picture: outside, so that the target stays in sight.
QPoint hotSpotOf(const QPixmap &picture, bool hasPreview)
{
    const int previewHeight =
        hasPreview ? qRound(picture.height() / picture.devicePixelRatio()) : 0;
    return -QPoint(s_pictureOffset, s_pictureOffset + previewHeight);
}

QList<QPersistentModelIndex> persistent(const QModelIndexList &indexes)
{
    QList<QPersistentModelIndex> list;
    for (const QModelIndex &index : indexes)
        list.append(index);
    return list;
}

} // namespace

QPointer<BVDragAndDropManager> BVDragSource::s_running;

BVDragSource::BVDragSource(BVDragAndDropManager *manager)
    : m_manager(manager)
{
}

BVDragSource *BVDragSource::running()
{
    return s_running ? s_running->m_source.get() : nullptr;
}

DragDropInfo BVDragSource::runningInfo()
{
    DragDropInfo info;
    if (const BVDragSource *source = running()) {
        info.source = source->view();
        info.draggedIndexes = source->draggedIndexes();
    }
    return info;
}

QTreeView *BVDragSource::view() const
{
    return m_manager->getTreeView();
}

QModelIndexList BVDragSource::draggedIndexes() const
{
    QModelIndexList list;
    for (const QModelIndex &index : m_draggedIndexes) {
        if (index.isValid())
            list.append(index);
    }
    return list;
}

bool BVDragSource::prepare(const QModelIndexList &rows, QMimeData *mime)
{
    const QPointer<BVDragAndDropManager> guard(m_manager);
    const QList<QPersistentModelIndex> kept = persistent(rows);
    QPixmap pixmap = m_manager->renderToPixmap(rows);
    QModelIndexList dragged;
    Q_EMIT m_manager->sigPrepareDrag(rows, *mime, pixmap, dragged);
    if (!guard || !view())
        return false;
    m_draggedIndexes = dragged.isEmpty() ? kept : persistent(dragged);
    m_pixmap = pixmap;
    return true;
}

void BVDragSource::run(const std::function<void()> &drag)
{
    const QPointer<BVDragAndDropManager> guard(m_manager);
    s_running = m_manager;
    drag();
    s_running = nullptr;
    if (!guard)
        return;
    m_draggedIndexes.clear();
    m_pixmap = QPixmap();
    m_manager->endDrag();
}

void BVDragSource::runWithMouse(const QModelIndexList &rows)
{
    auto mime = std::make_unique<QMimeData>();
    if (!prepare(rows, mime.get()))
        return;
    auto *drag = new QDrag(view());
    drag->setParent(nullptr); // the view may die before the drag, which the toolkit deletes
    drag->setMimeData(mime.release());
    drag->setPixmap(m_pixmap);
    drag->setHotSpot(hotSpotOf(m_pixmap, m_manager->getUsePreview()));
    const auto watch = QObject::connect(view(), &QObject::destroyed, [] { QDrag::cancel(); });
    run([drag] { drag->exec(Qt::CopyAction | Qt::MoveAction | Qt::LinkAction); });
    QObject::disconnect(watch);
}
