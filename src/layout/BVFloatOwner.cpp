// SPDX-License-Identifier: MIT
#include "layout/BVFloatOwner_p.h"

#include "layout/BVPanelFloat_p.h"
#include "layout/ResizeWidgetPlaceHolder.h"
#include "layout/ResizeableWidgetHandle.h"

#include <QVBoxLayout>

#include <algorithm>

BVFloatOwner *BVFloatOwner::of(QWidget *widget)
{
    auto *owner = widget->findChild<BVFloatOwner *>(QString(), Qt::FindDirectChildrenOnly);
    return owner ? owner : new BVFloatOwner(widget);
}

BVFloatOwner::BVFloatOwner(QWidget *widget)
    : QObject(widget)
{
}

BVFloatOwner::~BVFloatOwner() = default;

QWidget *BVFloatOwner::widget() const
{
    return static_cast<QWidget *>(parent());
}

void BVFloatOwner::attach(ResizeableWidgetHandle *handle)
{
    m_handles.append(handle);
}

void BVFloatOwner::detach(ResizeableWidgetHandle *handle)
{
    const auto isGone = [handle](const QPointer<ResizeableWidgetHandle> &each) {
        return !each || each == handle;
    };
    m_handles.erase(std::remove_if(m_handles.begin(), m_handles.end(), isGone), m_handles.end());
    if (m_handles.isEmpty() && m_float)
        m_float->comeBack();
}

BVPanelFloat *BVFloatOwner::panelFloat() const
{
    return m_float && m_float->mainWidget() ? m_float.get() : nullptr;
}

bool BVFloatOwner::leavePlace()
{
    const QPointer<BVFloatOwner> self(this);
    tell(false); // those to whom the end of the last time has not come yet
    if (!self)
        return false;
    if (!panelFloat()) {
        m_float = BVPanelFloat::leave(widget());
        if (!m_float)
            return false;
        connect(m_float.get(), &BVPanelFloat::sigEnded, this, &BVFloatOwner::onFloatEnded);
        addPlaceHolder();
        tell(true);
    }
    return self && panelFloat();
}

void BVFloatOwner::addPlaceHolder()
{
    auto *holder = new ResizeWidgetPlaceHolder(m_float->place());
    holder->standFor(widget());
    auto *layout = new QVBoxLayout(m_float->place());
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(holder);
    connect(holder, &ResizeWidgetPlaceHolder::sigCloseRequested, m_float.get(),
            &BVPanelFloat::returnToPlace, Qt::QueuedConnection);
}

void BVFloatOwner::onFloatEnded()
{
    m_float.reset();
    tell(false);
}

/// Stops where one of the handles changes that again, or deletes this.
void BVFloatOwner::tell(bool floating)
{
    const QPointer<BVFloatOwner> self(this);
    const QVector<QPointer<ResizeableWidgetHandle>> handles = m_handles;
    for (const QPointer<ResizeableWidgetHandle> &handle : handles) {
        if (!self || bool(panelFloat()) != floating)
            return;
        if (handle && m_handles.contains(handle))
            handle->tellFloating(floating);
    }
}
