// SPDX-License-Identifier: MIT
#include "navigation/BVControlledStackWidgetInterface.h"

#include "navigation/BVControlledStackItem.h"
#include "navigation/BVControlledStackWidget.h"

BVControlledStackWidgetInterface::BVControlledStackWidgetInterface(BVControlledStackWidget *stack)
    : m_stack(stack)
{
}

BVControlledStackWidgetInterface::~BVControlledStackWidgetInterface() = default;

int BVControlledStackWidgetInterface::currentIndex() const
{
    return m_stack ? m_stack->currentIndex() : -1;
}

void BVControlledStackWidgetInterface::setCurrentIndex(int index)
{
    if (m_stack)
        m_stack->setCurrentIndex(index);
}

void BVControlledStackWidgetInterface::setItemText(int index, const QString &text)
{
    if (m_stack)
        m_stack->setItemText(index, text);
}

void BVControlledStackWidgetInterface::setItemToolTip(int index, const QString &toolTip)
{
    if (m_stack)
        m_stack->setItemToolTip(index, toolTip);
}

QWidget *BVControlledStackWidgetInterface::getStatusWidget(int index) const
{
    return m_stack ? m_stack->getStatusWidget(index) : nullptr;
}

BVWidgetStatus::Stati BVControlledStackWidgetInterface::getBvStatus(int index) const
{
    const BVControlledStackItem *item = m_stack ? m_stack->itemAtDFSIndex(index) : nullptr;
    return item ? item->getBVWidgetStatus() : BVWidgetStatus::Stati();
}

bool BVControlledStackWidgetInterface::getBvStatus(int index, BVWidgetStatus::Status status) const
{
    return BVWidgetStatus::testFlag(getBvStatus(index), status);
}

void BVControlledStackWidgetInterface::setBvStatus(int index, BVWidgetStatus::Stati stati)
{
    BVControlledStackItem *item = m_stack ? m_stack->itemAtDFSIndex(index) : nullptr;
    if (!item || item->getBVWidgetStatus() == stati)
        return;
    item->setBVWidgetStatus(stati);
    onStatusChanged();
}

void BVControlledStackWidgetInterface::setBvStatus(int index, BVWidgetStatus::Status status,
                                                   bool on)
{
    setBvStatus(index, BVWidgetStatus::setFlag(getBvStatus(index), status, on));
}
