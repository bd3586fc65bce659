// SPDX-License-Identifier: MIT
#include "layout/BVPanelFloat_p.h"

#include "layout/BVPanelGeometry_p.h"
#include "layout/BVPanelRegistration_p.h"
#include "layout/MainWidget.h"

#include <QDockWidget>
#include <QEvent>
#include <QLayout>
#include <QPainter>
#include <QScrollArea>
#include <QSplitter>

namespace {

/// How a panel wants to grow, to which its content adds.
QSizePolicy policyOf(const QWidget *panel)
{
    QSizePolicy policy = panel->sizePolicy();
    const Qt::Orientations expanding =
        panel->layout() ? panel->layout()->expandingDirections() : Qt::Orientations();
    const auto expanded = [](QSizePolicy::Policy own) {
        return own & QSizePolicy::GrowFlag ? QSizePolicy::Policy(own | QSizePolicy::ExpandFlag)
                                           : own;
    };
    if (expanding & Qt::Horizontal)
        policy.setHorizontalPolicy(expanded(policy.horizontalPolicy()));
    if (expanding & Qt::Vertical)
        policy.setVerticalPolicy(expanded(policy.verticalPolicy()));
    return policy;
}

/// Keeps the place of a panel in its layout: as large as the panel would be.
class PlaceHolder : public QWidget
{
public:
    explicit PlaceHolder(const QWidget *panel)
        : QWidget(panel->parentWidget())
        , m_sizeHint(panel->sizeHint())
        , m_minimumSizeHint(panel->minimumSizeHint())
    {
        setSizePolicy(policyOf(panel));
        setMinimumSize(panel->minimumSize());
        setMaximumSize(panel->maximumSize());
        setGeometry(panel->geometry());
        setVisible(!panel->isHidden());
    }

    QSize sizeHint() const override { return m_sizeHint; }
    QSize minimumSizeHint() const override { return m_minimumSizeHint; }

protected:
    void paintEvent(QPaintEvent * /*event*/) override
    {
        QPainter painter(this);
        QColor color = palette().color(QPalette::WindowText);
        color.setAlpha(60);
        painter.setPen(QPen(color, 1, Qt::DashLine));
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
    }

private:
    QSize m_sizeHint;
    QSize m_minimumSizeHint;
};

/// Whether something other than a layout holds the widget, which could not hold a place for it.
bool isHeldElsewhere(const QWidget *widget)
{
    if (qobject_cast<MainWidget *>(widget->parentWidget()))
        return true; // it floats already
    const auto *area = widget->parentWidget()
                           ? qobject_cast<QScrollArea *>(widget->parentWidget()->parentWidget())
                           : nullptr;
    return area && area->widget() == widget;
}

/// Whether a container can float in the window: a splitter would take it for one of its panes.
bool canHold(const QWidget *window)
{
    return !qobject_cast<const QSplitter *>(window);
}

/// The value with what of it has been set between the widget and its window, which others of the
/// window do not inherit. @p Value is a font or palette.
template <typename Value>
Value inheritedBelow(const QWidget *window, const QWidget *widget,
                     const Value &(QWidget::*valueOf)() const)
{
    decltype(Value().resolve()) mask = 0;
    for (const QWidget *each = widget; each && each != window; each = each->parentWidget())
        mask |= (each->*valueOf)().resolve();
    Value value = (widget->*valueOf)();
    value.resolve(mask);
    return value;
}

/// Lets @p in take the place of @p out in the parent's layout, splitter or dock; @p takeOut takes
/// the other one out of the parent. False, with nothing changed, if the layout cannot do that.
template <typename TakeOut>
bool replace(QWidget *parent, QWidget *out, QWidget *in, const TakeOut &takeOut)
{
    if (auto *splitter = qobject_cast<QSplitter *>(parent)) {
        const QList<int> sizes = splitter->sizes();
        const int index = splitter->indexOf(out);
        takeOut();
        splitter->insertWidget(index, in);
        splitter->setSizes(sizes);
        return true;
    }
    auto *dock = qobject_cast<QDockWidget *>(parent);
    if (dock && dock->widget() == out) {
        takeOut();
        dock->setWidget(in);
        return true;
    }
    QLayout *layout = parent->layout();
    if (layout) {
        const std::unique_ptr<QLayoutItem> item(layout->replaceWidget(out, in));
        if (!item && layout->indexOf(out) >= 0)
            return false;
    }
    const QRect geometry = out->geometry();
    takeOut();
    if (in->parentWidget() != parent)
        in->setParent(parent);
    in->setGeometry(geometry);
    return true;
}

/// Gives the keyboard back to what had it inside a widget that changes its parent.
class FocusKeeper
{
public:
    explicit FocusKeeper(const QWidget *widget)
        : m_focus(widget->window()->focusWidget())
    {
        if (m_focus != widget && !widget->isAncestorOf(m_focus))
            m_focus = nullptr;
    }
    ~FocusKeeper()
    {
        if (m_focus)
            m_focus->setFocus(Qt::ActiveWindowFocusReason);
    }
    FocusKeeper(const FocusKeeper &) = delete;
    FocusKeeper &operator=(const FocusKeeper &) = delete;

private:
    QPointer<QWidget> m_focus;
};

} // namespace

std::unique_ptr<BVPanelFloat> BVPanelFloat::leave(QWidget *panel)
{
    QWidget *window = BVPanelGeometry::hostWindow(panel);
    if (panel->isWindow() || window == panel || isHeldElsewhere(panel) || !canHold(window))
        return nullptr;
    const FocusKeeper focus(panel);
    const QRect rect = BVPanelGeometry::rectInWindow(panel);
    std::unique_ptr<BVPanelFloat> result(new BVPanelFloat(panel, window));
    MainWidget *main = result->m_mainWidget;
    main->setGeometryWithAnimation(rect, 0, false);
    result->m_placeRect = rect;
    result->syncLook();
    const auto takeOut = [&] { main->setContent(panel); };
    if (!replace(panel->parentWidget(), panel, result->m_place, takeOut))
        return nullptr;
    result->watchAncestors();
    result->syncWithPlace();
    main->raise();
    return result;
}

BVPanelFloat::BVPanelFloat(QWidget *panel, QWidget *window)
    : m_panel(panel)
    , m_place(new PlaceHolder(panel))
    , m_mainWidget(new MainWidget(window))
{
    // A pointer that clears itself does so only when all children of the widget are gone.
    connect(m_mainWidget, &QObject::destroyed, this, [this] { m_mainWidget = nullptr; });
    connect(m_place, &QObject::destroyed, this, &BVPanelFloat::onPlaceDestroyed);
    connect(m_panel, &QObject::destroyed, this, &BVPanelFloat::forgetPanel);
    connect(m_mainWidget, &MainWidget::sigAnimationFinished, this, [this](bool returning) {
        if (returning)
            comeBack();
    });
}

BVPanelFloat::~BVPanelFloat()
{
    if (m_panel && m_place && m_mainWidget)
        putBack();
    unwatchAll();
    if (m_place) {
        m_place->disconnect(this);
        delete m_place;
    }
    if (m_mainWidget) { // it cannot go at once, since the panel in it may be going
        m_mainWidget->hide();
        m_mainWidget->deleteLater();
    }
}

void BVPanelFloat::forgetPanel()
{
    unwatchAll();
    m_panel = nullptr;
}

void BVPanelFloat::returnToPlace()
{
    if (m_panel && m_place && m_mainWidget)
        m_mainWidget->setGeometryWithAnimation(placeRect(), s_duration, true);
}

void BVPanelFloat::comeBack()
{
    if (!m_panel || !m_place || !m_mainWidget)
        return;
    putBack();
    end();
}

void BVPanelFloat::putBack()
{
    const FocusKeeper focus(m_panel);
    unwatchAll();
    m_place->disconnect(this);
    const std::unique_ptr<QWidget> place(std::exchange(m_place, nullptr));
    const bool isHidden = place->isHidden();
    QWidget *parent = place->parentWidget();
    m_mainWidget->hide();
    replace(parent, place.get(), m_panel, [&] { place->setParent(nullptr); });
    m_panel->setVisible(!isHidden);
}

/// Lets the main widget go, and tells it. Nothing else afterwards: this may be deleted.
void BVPanelFloat::end()
{
    unwatchAll();
    m_mainWidget->disconnect(this);
    m_mainWidget->hide();
    m_mainWidget->deleteLater(); // its animation may be ending this
    m_mainWidget = nullptr;
    const QPointer<QWidget> panel(m_panel);
    Q_EMIT sigEnded();
    if (panel && !qobject_cast<MainWidget *>(panel->parentWidget())) // it may float again
        BVPanelRegistration::postClosed(panel);
}

MainWidget *BVPanelFloat::mainWidget() const
{
    return m_mainWidget;
}

QWidget *BVPanelFloat::place() const
{
    return m_place;
}

QRect BVPanelFloat::placeRect() const
{
    return BVPanelGeometry::rectInWindow(m_place);
}

void BVPanelFloat::watch(QObject *object)
{
    m_watched.append(object);
    object->installEventFilter(this);
}

void BVPanelFloat::watchAncestors()
{
    unwatchAll();
    watch(m_panel);
    for (QWidget *widget = m_place; widget; widget = widget->parentWidget())
        watch(widget);
}

void BVPanelFloat::unwatchAll()
{
    for (const QPointer<QObject> &object : qAsConst(m_watched)) {
        if (object)
            object->removeEventFilter(this);
    }
    m_watched.clear();
}

bool BVPanelFloat::eventFilter(QObject *watched, QEvent *event)
{
    const QEvent::Type type = event->type();
    if (watched == m_panel) { // shown or hidden by the program
        if (m_place && (type == QEvent::ShowToParent || type == QEvent::HideToParent))
            m_place->setVisible(type == QEvent::ShowToParent);
        else if (type == QEvent::ParentChange)
            onPanelMoved();
        return false;
    }
    if (type == QEvent::ParentChange)
        onAncestorMoved();
    else if (watched == m_place && (type == QEvent::FontChange || type == QEvent::PaletteChange))
        syncLook();
    else if (type == QEvent::Show || type == QEvent::Hide || type == QEvent::EnabledChange ||
             type == QEvent::LayoutDirectionChange)
        syncWithPlace();
    if (type == QEvent::Move || type == QEvent::Resize || type == QEvent::Show)
        onPlaceMoved();
    if (type == QEvent::Show) // a dock becomes a window, or none, without another parent
        checkHost();
    return false;
}

void BVPanelFloat::onAncestorMoved()
{
    if (!m_place || !m_mainWidget)
        return;
    watchAncestors();
    checkHost();
}

void BVPanelFloat::checkHost()
{
    if (!m_place || !m_mainWidget)
        return;
    if (BVPanelGeometry::hostWindow(m_place) != m_mainWidget->parentWidget())
        QMetaObject::invokeMethod(this, &BVPanelFloat::comeBack, Qt::QueuedConnection);
}

/// The panel keeps what it sticks out of its place on each side. A place out of sight, as on
/// another page, does not count.
void BVPanelFloat::onPlaceMoved()
{
    if (!m_place || !m_mainWidget || !m_place->isVisible())
        return;
    const QWidget *window = m_mainWidget->parentWidget();
    const QRect rect = placeRect();
    if (rect == m_placeRect || !window->rect().intersects(rect) ||
        BVPanelGeometry::hostWindow(m_place) != window)
        return;
    m_mainWidget->followPlace(std::exchange(m_placeRect, rect), rect);
}

/// The program has taken the panel elsewhere.
void BVPanelFloat::onPanelMoved()
{
    if (!m_place || !m_mainWidget || m_panel->parentWidget() == m_mainWidget)
        return;
    m_place->disconnect(this);
    delete std::exchange(m_place, nullptr);
    end();
}

void BVPanelFloat::syncWithPlace()
{
    if (!m_place || !m_mainWidget)
        return;
    m_mainWidget->setEnabled(m_place->isEnabled());
    m_mainWidget->setLayoutDirection(m_place->layoutDirection());
    m_mainWidget->setVisible(m_place->isVisible());
}

void BVPanelFloat::syncLook()
{
    if (!m_place || !m_mainWidget)
        return;
    const QWidget *window = m_mainWidget->parentWidget();
    m_mainWidget->setFont(inheritedBelow(window, m_place, &QWidget::font));
    m_mainWidget->setPalette(inheritedBelow(window, m_place, &QWidget::palette));
}

void BVPanelFloat::onPlaceDestroyed()
{
    m_place = nullptr;
    delete m_mainWidget; // and so the panel and this
}
