// SPDX-License-Identifier: MIT
#include "itemviews/BVTreeCopying_p.h"

#include "itemviews/TreeViewContextMenu.h"
#include "itemviews/TreeViewCopyHandler.h"

void BVTreeCopying::makeHandler()
{
    if (!m_handler)
        m_handler = new TreeViewCopyHandler(m_view);
}

void BVTreeCopying::enableAll(bool enable)
{
    if (enable)
        makeHandler();
    if (m_handler)
        m_handler->enableCopyAllAction(enable);
}

bool BVTreeCopying::isAllEnabled() const
{
    return m_handler && m_handler->isCopyAllActionEnabled();
}

void BVTreeCopying::enableSelected(bool enable)
{
    if (enable)
        makeHandler();
    if (m_handler)
        m_handler->enableCopySelectedAction(enable);
}

bool BVTreeCopying::isSelectedEnabled() const
{
    return m_handler && m_handler->isCopySelectedActionEnabled();
}

void BVTreeCopying::selectionModelChanged()
{
    if (m_handler)
        m_handler->selectionModelChanged();
}

void BVTreeCopying::showMenu(const QPoint &position) const
{
    TreeViewContextMenu menu(m_view, position);
    if (m_handler)
        m_handler->addCopyActionsToMenu(menu);
    menu.show();
}
