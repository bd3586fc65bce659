// SPDX-License-Identifier: MIT
#include "FieldSlider.h"

#include "NumberField.h"
#include "SetupFields.h"

#include <BVFormatter.h>
#include <BVSlider.h>

#include <QSignalBlocker>

#include <limits>

namespace {

constexpr int s_digits = 3; // that a place on the slider is good for
constexpr int s_pages = 10; // that the keys go through from end to end
constexpr double s_none = std::numeric_limits<double>::quiet_NaN();

double rounded(double value)
{
    return QString::number(value, 'g', s_digits).toDouble();
}

} // namespace

FieldSlider::FieldSlider(const SetupSlider &definition, NumberField *field, QWidget *parent)
    : QObject(parent)
    , m_definition(definition)
    , m_field(field)
    , m_slider(new BVSlider(parent))
    , m_given(s_none)
{
    setUp();
    field->addControl(m_slider);
    connect(m_slider, &BVSlider::valueChanged, this, &FieldSlider::onMoved);
    connect(m_slider, &BVSlider::admissibleRangeChanged, this, &FieldSlider::updateToolTip);
    connect(m_slider->getFormatter(), &BVFormatter::settingsChanged, this,
            &FieldSlider::updateToolTip);
    connect(field, &NumberField::valueChanged, this, &FieldSlider::follow);
    follow();
}

void FieldSlider::setUp()
{
    const SetupField &field = m_field->field();
    m_slider->getFormatter()->setValueUnit(field.unitText());
    m_slider->setRange(0, m_definition.steps);
    m_slider->setPageStep(m_definition.steps / s_pages);
    m_slider->setUserRange(m_definition.minimum, m_definition.maximum,
                           m_definition.kind == SetupSlider::Logarithmic ? BVSlider::Logarithmic
                                                                         : BVSlider::Linear);
    m_slider->setExtended(true);
    m_slider->setAccessibleName(field.labelText());
    m_slider->setObjectName(field.keyText() + QStringLiteral("Slider"));
    if (m_definition.kind == SetupSlider::Design)
        setUpDesign();
    if (m_definition.kind == SetupSlider::Admissible)
        m_slider->setAdmissibleRange(m_slider->valueToPosition(m_definition.lower),
                                     m_slider->valueToPosition(m_definition.upper), true);
}

void FieldSlider::setUpDesign()
{
    const int lower = m_slider->valueToPosition(m_definition.lower);
    const int upper = m_slider->valueToPosition(m_definition.upper);
    m_slider->setIsDVValueSlider(true);
    m_slider->setDistribution((upper + lower) / 2.0, (upper - lower) / 2.0);
    m_slider->setBestValue(m_slider->valueToPosition(m_definition.best));
}

void FieldSlider::onMoved(int position)
{
    m_moving = true;
    m_field->setValue(valueAt(position));
    m_moving = false;
}

double FieldSlider::valueAt(int position) const
{
    const bool isGiven = position == m_slider->valueToPosition(m_given) &&
                         m_given >= m_slider->positionToValue(m_slider->minimum()) &&
                         m_given <= m_slider->positionToValue(m_slider->maximum());
    return isGiven ? m_given : rounded(m_slider->positionToValue(position));
}

void FieldSlider::follow()
{
    const bool hasValue = m_field->value() != FieldValues::noValue();
    const double value = hasValue ? m_field->value() : s_none;
    if (!m_moving)
        m_given = value;
    {
        const QSignalBlocker blocker(m_slider); // or the value would become that of the place
        m_slider->setValue(m_slider->valueToPosition(value));
    }
    updateToolTip();
}

void FieldSlider::updateToolTip()
{
    const auto text = [this](int position) { return m_slider->positionToText(position); };
    if (m_definition.kind == SetupSlider::Admissible)
        m_slider->setToolTip(
            tr("Admissible: from %1 to %2. Drag the triangles to change that.")
                .arg(text(m_slider->admissibleMinimum()), text(m_slider->admissibleMaximum())));
    else if (m_definition.kind == SetupSlider::Design)
        m_slider->setToolTip(tr("The curve shows what is usual, the green mark what is best: %1.")
                                 .arg(text(m_slider->valueToPosition(m_definition.best))));
}
