// SPDX-License-Identifier: MIT
#pragma once

#include <QPointer>

class BVDragAndDropManager;
class QDropEvent;
struct DragDropInfo;

/// A drop on a manager's view, from the place that it finds to the listeners that hear of it. All
/// who are asked or told may delete the manager and its view.
class BVDropRun
{
public:
    explicit BVDropRun(BVDragAndDropManager *manager);

    void run(QDropEvent *event);

private:
    bool hasView() const;
    bool settleTarget(const QDropEvent *event);
    void refuse(QDropEvent *event);
    void tell(QDropEvent *event);
    void notifyListeners(DragDropInfo info);

    QPointer<BVDragAndDropManager> m_manager;
};
