// SPDX-License-Identifier: MIT
#include "foundation/BVCheckableContainerWidgetInterface.h"

#include "foundation/BVCheckableContainerInterface.h"

#include <QAbstractButton>

BVCheckableContainerWidgetInterface::BVCheckableContainerWidgetInterface(
    BVCheckableContainerInterface *container)
    : m_container(container)
{
}

void BVCheckableContainerWidgetInterface::setItemText(int index, const QString &text)
{
    if (QAbstractButton *button = m_container->button(index))
        button->setText(text);
}

void BVCheckableContainerWidgetInterface::setItemToolTip(int index, const QString &toolTip)
{
    if (QAbstractButton *button = m_container->button(index))
        button->setToolTip(toolTip);
}

int BVCheckableContainerWidgetInterface::currentIndex() const
{
    return m_container->currentIndex();
}

QWidget *BVCheckableContainerWidgetInterface::getStatusWidget(int index) const
{
    return m_container->button(index);
}

QWidget *BVCheckableContainerWidgetInterface::getStatusWidget() const
{
    return m_container;
}
