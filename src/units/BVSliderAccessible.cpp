// SPDX-License-Identifier: MIT
#include "units/BVSliderAccessible_p.h"

#include <QCoreApplication>
#include <QPointer>

#include <algorithm>
#include <iterator>

namespace {

constexpr BVSlider::Handle s_limits[] = {BVSlider::LowerLimitHandle, BVSlider::UpperLimitHandle};

QString translated(const char *text)
{
    return QCoreApplication::translate("BVSlider", text);
}

QString nameOf(BVSlider::Handle limit)
{
    return limit == BVSlider::LowerLimitHandle ? translated("Lower limit")
                                               : translated("Upper limit");
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
            return nameOf(m_limit);
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
    static const bool s_installed = [] {
        QAccessible::installFactory(sliderInterface);
        return true;
    }();
    Q_UNUSED(s_installed)
}

int BVSliderAccessible::childOf(BVSlider::Handle handle)
{
    const auto *found = std::find(std::begin(s_limits), std::end(s_limits), handle);
    return found == std::end(s_limits) ? -1 : int(found - std::begin(s_limits));
}

BVSlider *BVSliderAccessible::slider() const
{
    return static_cast<BVSlider *>(object());
}

void *BVSliderAccessible::interface_cast(QAccessible::InterfaceType type)
{
    if (type == QAccessible::ValueInterface)
        return static_cast<QAccessibleValueInterface *>(this);
    return QAccessibleWidget::interface_cast(type);
}

int BVSliderAccessible::limitCount() const
{
    return slider()->limitHandlesActive() || slider()->isSpanSlider() ? int(std::size(s_limits))
                                                                      : 0;
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
    const int index = childOf(slider()->focusedHandle());
    if (slider()->hasFocus() && index >= 0 && index < limitCount())
        return child(index);
    return QAccessibleWidget::focusChild();
}

QString BVSliderAccessible::text(QAccessible::Text kind) const
{
    if (kind != QAccessible::Value)
        return QAccessibleWidget::text(kind);
    const BVSlider *shown = slider();
    if (!shown->isSpanSlider())
        return shown->positionToText(shown->sliderPosition());
    return BVSlider::tr("%1 to %2")
        .arg(shown->positionToText(shown->admissibleMinimum()),
             shown->positionToText(shown->admissibleMaximum()));
}

QAccessible::State BVSliderAccessible::state() const
{
    QAccessible::State state = QAccessibleWidget::state();
    state.readOnly = !slider()->isHandleActive(BVSlider::ValueHandle);
    if (childOf(slider()->focusedHandle()) >= 0)
        state.focused = false;
    return state;
}

QVariant BVSliderAccessible::currentValue() const
{
    return slider()->handlePosition(BVSlider::ValueHandle);
}

void BVSliderAccessible::setCurrentValue(const QVariant &value)
{
    bool isNumber = false;
    const int position = value.toInt(&isNumber);
    if (isNumber)
        slider()->moveHandle(BVSlider::ValueHandle, position);
}

QVariant BVSliderAccessible::maximumValue() const
{
    return slider()->handleMaximum(BVSlider::ValueHandle);
}

QVariant BVSliderAccessible::minimumValue() const
{
    return slider()->handleMinimum(BVSlider::ValueHandle);
}

QVariant BVSliderAccessible::minimumStepSize() const
{
    return slider()->singleStep();
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
