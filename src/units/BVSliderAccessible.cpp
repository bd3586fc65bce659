// SPDX-License-Identifier: MIT
#include "units/BVSliderAccessible_p.h"

#include <QPointer>

#include <algorithm>
#include <iterator>

namespace {

constexpr BVSlider::Handle s_limits[] = {BVSlider::LowerLimitHandle, BVSlider::UpperLimitHandle};

/// The name of a limit, behind that of its slider if that has one.
QString nameOf(BVSlider::Handle limit, const QString &slider)
{
    const bool isLower = limit == BVSlider::LowerLimitHandle;
    if (slider.isEmpty())
        return isLower ? BVSlider::tr("Lower limit") : BVSlider::tr("Upper limit");
    return (isLower ? BVSlider::tr("%1, lower limit") : BVSlider::tr("%1, upper limit"))
        .arg(slider);
}

bool isThere(const BVSlider *slider, BVSlider::Handle handle)
{
    return BVSliderAccessible::childOf(handle) < 0 || slider->limitHandlesActive() ||
           slider->isSpanSlider();
}

QStringList actionsOf(const BVSlider *slider, BVSlider::Handle handle)
{
    if (!slider || !slider->isHandleActive(handle))
        return QStringList();
    return {QAccessibleActionInterface::increaseAction(),
            QAccessibleActionInterface::decreaseAction()};
}

void step(BVSlider *slider, BVSlider::Handle handle, const QString &action)
{
    if (!actionsOf(slider, handle).contains(action))
        return;
    qint64 step = slider->singleStep();
    if (action == QAccessibleActionInterface::decreaseAction())
        step = -step;
    const qint64 target = slider->handlePosition(handle) + step;
    slider->moveHandle(
        handle, static_cast<int>(qBound<qint64>(slider->minimum(), target, slider->maximum())));
}

/// A limit handle of a slider, which has no widget of its own.
class LimitAccessible :
    public QAccessibleInterface,
    public QAccessibleValueInterface,
    public QAccessibleActionInterface
{
public:
    LimitAccessible(BVSlider *slider, BVSlider::Handle limit)
        : m_slider(slider)
        , m_limit(limit)
    {
    }

    bool isValid() const override { return m_slider; }
    QObject *object() const override { return nullptr; }
    QWindow *window() const override { return parent() ? parent()->window() : nullptr; }

    QAccessibleInterface *parent() const override
    {
        return QAccessible::queryAccessibleInterface(m_slider);
    }

    int childCount() const override { return 0; }
    QAccessibleInterface *child(int /*index*/) const override { return nullptr; }
    int indexOfChild(const QAccessibleInterface * /*child*/) const override { return -1; }
    QAccessibleInterface *childAt(int /*x*/, int /*y*/) const override { return nullptr; }

    QRect rect() const override
    {
        const QRect area = m_slider ? m_slider->handleRect(m_limit) : QRect();
        return area.isEmpty() ? QRect() : QRect(m_slider->mapToGlobal(area.topLeft()), area.size());
    }

    QAccessible::Role role() const override { return QAccessible::Slider; }

    QAccessible::State state() const override
    {
        QAccessible::State state;
        if (!m_slider)
            return state;
        state.focusable = m_slider->isHandleActive(m_limit);
        state.focused = m_slider->hasFocus() && m_slider->focusedHandle() == m_limit;
        state.disabled = !m_slider->isEnabled();
        state.readOnly = m_slider->isLocked();
        state.invisible = !m_slider->isVisible() || m_slider->handleRect(m_limit).isEmpty();
        return state;
    }

    QString text(QAccessible::Text kind) const override
    {
        if (m_slider && kind == QAccessible::Name)
            return nameOf(m_limit, parent() ? parent()->text(QAccessible::Name) : QString());
        if (m_slider && kind == QAccessible::Value)
            return m_slider->positionToText(m_slider->handlePosition(m_limit));
        return QString();
    }

    void setText(QAccessible::Text /*kind*/, const QString & /*text*/) override {}

    void *interface_cast(QAccessible::InterfaceType type) override
    {
        if (type == QAccessible::ValueInterface)
            return static_cast<QAccessibleValueInterface *>(this);
        if (type == QAccessible::ActionInterface)
            return static_cast<QAccessibleActionInterface *>(this);
        return nullptr;
    }

    QVariant currentValue() const override
    {
        return m_slider ? m_slider->handlePosition(m_limit) : QVariant();
    }

    void setCurrentValue(const QVariant &value) override
    {
        bool isNumber = false;
        const int position = value.toInt(&isNumber);
        if (m_slider && isNumber)
            m_slider->moveHandle(m_limit, position);
    }

    QVariant minimumValue() const override
    {
        return m_slider ? m_slider->handleMinimum(m_limit) : QVariant();
    }

    QVariant maximumValue() const override
    {
        return m_slider ? m_slider->handleMaximum(m_limit) : QVariant();
    }

    QVariant minimumStepSize() const override
    {
        return m_slider ? m_slider->singleStep() : QVariant();
    }

    QStringList actionNames() const override
    {
        QStringList names = actionsOf(m_slider, m_limit);
        if (!names.isEmpty())
            names << setFocusAction();
        return names;
    }

    void doAction(const QString &name) override
    {
        if (m_slider && name == setFocusAction()) {
            m_slider->setFocusedHandle(m_limit);
            m_slider->setFocus(Qt::OtherFocusReason);
        } else {
            step(m_slider, m_limit, name);
        }
    }

    QStringList keyBindingsForAction(const QString & /*name*/) const override
    {
        return QStringList();
    }

private:
    QPointer<BVSlider> m_slider;
    BVSlider::Handle m_limit;
};

QAccessibleInterface *sliderInterface(const QString &key, QObject *object)
{
    if (key != QLatin1String("BVSlider"))
        return nullptr;
    auto *slider = qobject_cast<BVSlider *>(object);
    return slider ? new BVSliderAccessible(slider) : nullptr;
}

} // namespace

BVSliderAccessible::BVSliderAccessible(BVSlider *slider)
    : QAccessibleWidget(slider, QAccessible::Slider)
{
}

BVSliderAccessible::~BVSliderAccessible()
{
    for (const QAccessible::Id id : m_limits) {
        if (id != 0)
            QAccessible::deleteAccessibleInterface(id);
    }
}

void BVSliderAccessible::install()
{
    // The toolkit forgets it with each application object, and refuses to keep it twice.
    QAccessible::installFactory(sliderInterface);
}

void BVSliderAccessible::announceFocus(BVSlider *slider, BVSlider::Handle handle)
{
    if (!QAccessible::isActive() || !isThere(slider, handle))
        return;
    QAccessibleEvent event(slider, QAccessible::Focus);
    event.setChild(childOf(handle));
    QAccessible::updateAccessibility(&event);
}

void BVSliderAccessible::announceValue(BVSlider *slider, BVSlider::Handle handle)
{
    if (!QAccessible::isActive() || !isThere(slider, handle))
        return;
    QAccessibleValueChangeEvent event(slider, slider->handlePosition(handle));
    event.setChild(childOf(handle));
    QAccessible::updateAccessibility(&event);
}

int BVSliderAccessible::childOf(BVSlider::Handle handle)
{
    const auto *found = std::find(std::begin(s_limits), std::end(s_limits), handle);
    return found == std::end(s_limits) ? -1 : int(found - std::begin(s_limits));
}

BVSlider *BVSliderAccessible::slider() const
{
    return qobject_cast<BVSlider *>(object());
}

void *BVSliderAccessible::interface_cast(QAccessible::InterfaceType type)
{
    if (type == QAccessible::ValueInterface)
        return static_cast<QAccessibleValueInterface *>(this);
    return QAccessibleWidget::interface_cast(type);
}

int BVSliderAccessible::limitCount() const
{
    return slider() && isThere(slider(), s_limits[0]) ? int(std::size(s_limits)) : 0;
}

int BVSliderAccessible::childCount() const
{
    return limitCount() + QAccessibleWidget::childCount();
}

QAccessibleInterface *BVSliderAccessible::child(int index) const
{
    const int limits = limitCount();
    if (index < 0 || index >= limits)
        return QAccessibleWidget::child(index - limits);
    QAccessible::Id &id = m_limits[index];
    if (id == 0)
        id = QAccessible::registerAccessibleInterface(
            new LimitAccessible(slider(), s_limits[index]));
    return QAccessible::accessibleInterface(id);
}

int BVSliderAccessible::indexOfChild(const QAccessibleInterface *child) const
{
    for (int index = 0; index < limitCount(); ++index) {
        if (child == this->child(index))
            return index;
    }
    const int index = QAccessibleWidget::indexOfChild(child);
    return index < 0 ? index : index + limitCount();
}

QAccessibleInterface *BVSliderAccessible::childAt(int x, int y) const
{
    for (int index = 0; index < limitCount(); ++index) {
        if (child(index)->rect().contains(x, y))
            return child(index);
    }
    return QAccessibleWidget::childAt(x, y);
}

QAccessibleInterface *BVSliderAccessible::focusChild() const
{
    const int index = slider() ? childOf(slider()->focusedHandle()) : -1;
    if (index >= 0 && slider()->hasFocus() && index < limitCount())
        return child(index);
    return QAccessibleWidget::focusChild();
}

QString BVSliderAccessible::text(QAccessible::Text kind) const
{
    const BVSlider *shown = slider();
    if (kind != QAccessible::Value || !shown)
        return QAccessibleWidget::text(kind);
    if (!shown->isSpanSlider())
        return shown->positionToText(shown->sliderPosition());
    return BVSlider::tr("%1 to %2")
        .arg(shown->positionToText(shown->handlePosition(BVSlider::LowerLimitHandle)),
             shown->positionToText(shown->handlePosition(BVSlider::UpperLimitHandle)));
}

QAccessible::State BVSliderAccessible::state() const
{
    QAccessible::State state = QAccessibleWidget::state();
    if (!slider())
        return state;
    state.readOnly = !slider()->isHandleActive(BVSlider::ValueHandle);
    if (childOf(slider()->focusedHandle()) >= 0)
        state.focused = false;
    return state;
}

QVariant BVSliderAccessible::currentValue() const
{
    return slider() ? slider()->handlePosition(BVSlider::ValueHandle) : QVariant();
}

void BVSliderAccessible::setCurrentValue(const QVariant &value)
{
    bool isNumber = false;
    const int position = value.toInt(&isNumber);
    if (isNumber && slider())
        slider()->moveHandle(BVSlider::ValueHandle, position);
}

QVariant BVSliderAccessible::maximumValue() const
{
    return slider() ? slider()->handleMaximum(BVSlider::ValueHandle) : QVariant();
}

QVariant BVSliderAccessible::minimumValue() const
{
    return slider() ? slider()->handleMinimum(BVSlider::ValueHandle) : QVariant();
}

QVariant BVSliderAccessible::minimumStepSize() const
{
    return slider() ? slider()->singleStep() : QVariant();
}

QStringList BVSliderAccessible::actionNames() const
{
    return QAccessibleWidget::actionNames() + actionsOf(slider(), BVSlider::ValueHandle);
}

void BVSliderAccessible::doAction(const QString &name)
{
    if (name == increaseAction() || name == decreaseAction())
        step(slider(), BVSlider::ValueHandle, name);
    else
        QAccessibleWidget::doAction(name);
}
