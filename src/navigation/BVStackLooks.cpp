// SPDX-License-Identifier: MIT
#include "navigation/BVStackLooks_p.h"

#include "navigation/BVStackControllerWidget.h"

#include "platform/PropertyChangeFilter.h"

#include <QTreeWidget>
#include <QVariant>

void BVStackLooks::decorateRoot(QTreeWidget *tree, bool topLevelAsHeader)
{
    bool decorated = false;
    for (int i = 0; !topLevelAsHeader && !decorated && i < tree->topLevelItemCount(); ++i)
        decorated = tree->topLevelItem(i)->childCount() > 0;
    if (tree->rootIsDecorated() != decorated)
        tree->setRootIsDecorated(decorated);
}

void BVStackLooks::alignHeader(const BVStackControllerWidget &controller, bool hasCheckBoxes)
{
    QWidget *header = controller.headerWidget();
    if (!header)
        return;
    const bool alignRight = hasCheckBoxes && !controller.isHeaderAlignmentFixed();
    header->setProperty("alignRight", alignRight ? QVariant(true) : QVariant());
    PropertyChangeFilter::repolish(header);
}
