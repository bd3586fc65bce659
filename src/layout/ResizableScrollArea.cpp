// SPDX-License-Identifier: MIT
#include "layout/ResizableScrollArea.h"

#include "layout/BVHandleAccessible_p.h"
#include "layout/BVPanelGeometry_p.h"

#include <QEvent>
#include <QLayout>

#include <functional>
#include <utility>

namespace {

using Handle = BVResizableWidgetHandle;
using BVPanelGeometry::plausible;

/// Stands between the viewport and a scroll bar, where the area places it.
class AreaHandle : public Handle
{
public:
    AreaHandle(Position position, QWidget *area, std::function<void()> place)
        : Handle(position, area)
        , m_place(std::move(place))
    {
    }

protected:
    void showEvent(QShowEvent *event) override
    {
        Handle::showEvent(event);
        m_place();
    }

private:
    std::function<void()> m_place;
};

/// The first size, in the directions where it is none the second.
QSize orElse(const QSize &size, const QSize &other)
{
    return QSize(size.width() < 0 ? other.width() : size.width(),
                 size.height() < 0 ? other.height() : size.height());
}

bool isInLayout(const QWidget *widget)
{
    const QWidget *parent = widget->parentWidget();
    return parent && parent->layout();
}

} // namespace

ResizableScrollArea::ResizableScrollArea(QWidget *parent)
    : QScrollArea(parent)
{
    setFrameShape(QFrame::NoFrame);
    setWidgetResizable(true);
    viewport()->setAutoFillBackground(false);
    useResizeHandle(true);
}

ResizableScrollArea::~ResizableScrollArea() = default;

void ResizableScrollArea::setWidget(QWidget *widget)
{
    if (!widget)
        return;
    const bool fills = widget->autoFillBackground();
    QScrollArea::setWidget(widget);
    widget->setAutoFillBackground(
        fills); // the toolkit would hide the surface that the area lies on
}

bool ResizableScrollArea::hasResizeHandle() const
{
    return m_handle;
}

void ResizableScrollArea::useResizeHandle(bool on)
{
    if (on == hasResizeHandle())
        return;
    if (on) {
        m_handle = new AreaHandle(m_position, this, [this] { placeHandle(); });
        connect(m_handle, &Handle::sigMoveStarted, this, &ResizableScrollArea::onMoveStarted);
        connect(m_handle, &Handle::sigMoveAbout, this, &ResizableScrollArea::onMoveAbout);
        connect(m_handle, &Handle::sigMoveCanceled, this, [this] { takeOn(m_userSizeAtPress); });
        connect(m_handle, &Handle::sigToggleRequested, this,
                &ResizableScrollArea::onToggleRequested);
        m_handle->setVisible(true);
    } else {
        m_handle->hide();
        m_handle->deleteLater(); // it may be what asks for this
        m_handle = nullptr;
    }
    updatePlace();
}

BVResizableWidgetHandle *ResizableScrollArea::resizeHandle() const
{
    return m_handle;
}

void ResizableScrollArea::setHandlePosition(Handle::Position position)
{
    if (!BVPanelGeometry::isPosition(position) || position == m_position)
        return;
    m_position = position;
    if (m_handle)
        m_handle->setPosition(position);
    updatePlace();
}

void ResizableScrollArea::setUserSize(const QSize &size)
{
    const QSize smallest = minimumSizeHint().expandedTo(minimumSize());
    const QSize target = size.expandedTo(smallest).boundedTo(maximumSize());
    takeOn(QSize(size.width() < 0 ? -1 : target.width(), size.height() < 0 ? -1 : target.height()));
}

void ResizableScrollArea::unsetUserSize()
{
    takeOn(QSize());
}

QSize ResizableScrollArea::contentSize() const
{
    if (!widget())
        return edges();
    QSize content = widget()->sizeHint();
    if (widget()->hasHeightForWidth())
        content.setHeight(widget()->heightForWidth(contentsRect().width()));
    return content.expandedTo(widget()->minimumSize()).boundedTo(widget()->maximumSize()) + edges();
}

QSize ResizableScrollArea::sizeHint() const
{
    const QMargins margins = viewportMargins();
    return orElse(m_userSize, QScrollArea::sizeHint() + QSize(margins.left() + margins.right(),
                                                              margins.top() + margins.bottom()));
}

/// What stands around the viewport and the scroll bars.
QSize ResizableScrollArea::edges() const
{
    const QMargins margins = viewportMargins();
    return size() - contentsRect().size() +
           QSize(margins.left() + margins.right(), margins.top() + margins.bottom());
}

bool ResizableScrollArea::event(QEvent *event)
{
    const bool isHandled = QScrollArea::event(event);
    if (event->type() == QEvent::Resize) {
        placeHandle();
        if (m_handle)
            BVHandleAccessible::announceValue(m_handle);
    }
    return isHandled;
}

void ResizableScrollArea::resizeEvent(QResizeEvent *event)
{
    QScrollArea::resizeEvent(event); // of the viewport, also when a scroll bar comes or goes
    placeHandle();
}

void ResizableScrollArea::resizeAbout(const QSize &growth)
{
    resizeAlongHandle(size() + BVPanelGeometry::alongHandle(m_position, plausible(growth)));
}

void ResizableScrollArea::onMoveStarted()
{
    m_userSizeAtPress = m_userSize;
    m_wanted = size();
}

void ResizableScrollArea::onMoveAbout(const QSize &growth)
{
    m_wanted = plausible(m_wanted + BVPanelGeometry::alongHandle(m_position, plausible(growth)));
    resizeAlongHandle(m_wanted);
}

void ResizableScrollArea::onToggleRequested()
{
    const QSize content = contentSize().boundedTo(maximumSize());
    const BVPanelGeometry::HandlePlace &place = BVPanelGeometry::handlePlace(m_position);
    const bool isFull = (!place.dragsWidth || width() >= content.width()) &&
                        (!place.dragsHeight || height() >= content.height());
    if (isFull)
        unsetUserSize();
    else
        resizeAlongHandle(content);
}

/// The size in the directions of the handle, but not beyond what the content fills; the others
/// stay.
void ResizableScrollArea::resizeAlongHandle(const QSize &wanted)
{
    const QSize size = wanted.boundedTo(contentSize().expandedTo(this->size()));
    const BVPanelGeometry::HandlePlace &place = BVPanelGeometry::handlePlace(m_position);
    setUserSize(QSize(place.dragsWidth ? qMax(0, size.width()) : m_userSize.width(),
                      place.dragsHeight ? qMax(0, size.height()) : m_userSize.height()));
}

void ResizableScrollArea::takeOn(const QSize &userSize)
{
    if (userSize == m_userSize)
        return;
    const QSize former = std::exchange(m_userSize, userSize);
    updateGeometry();
    if (isInLayout(this)) {
        parentWidget()->layout()->activate(); // the next step of a drag begins at the true size
    } else {
        const QSize usual(former.width() < 0 ? width() : sizeHint().width(),
                          former.height() < 0 ? height() : sizeHint().height());
        const BVPanelGeometry::HandlePlace &place = BVPanelGeometry::handlePlace(m_position);
        setGeometry(BVPanelGeometry::resized(geometry(), orElse(userSize, usual),
                                             place.widthSign < 0, place.heightSign < 0));
    }
    Q_EMIT sigUserSizeChanged(userSize);
}

/// Leaves the handle a strip of its own.
void ResizableScrollArea::updatePlace()
{
    const BVPanelGeometry::HandlePlace &place = BVPanelGeometry::handlePlace(m_position);
    const int across = m_handle && !place.dragsHeight ? Handle::s_thickness : 0;
    const int along = m_handle && place.dragsHeight ? Handle::s_thickness : 0;
    setViewportMargins(place.widthSign < 0 ? across : 0, place.heightSign < 0 ? along : 0,
                       place.widthSign < 0 ? 0 : across, place.heightSign < 0 ? 0 : along);
    setSizePolicy(m_handle && place.dragsWidth ? QSizePolicy::Maximum : QSizePolicy::Expanding,
                  m_handle && place.dragsHeight ? QSizePolicy::Maximum : QSizePolicy::Expanding);
    placeHandle();
}

void ResizableScrollArea::placeHandle()
{
    if (!m_handle)
        return;
    const QRect inner = viewport()->geometry().marginsAdded(viewportMargins());
    const QRect place = BVPanelGeometry::handleRect(m_position, inner.size(), Handle::s_thickness);
    m_handle->setGeometry(place.translated(inner.topLeft()));
}
