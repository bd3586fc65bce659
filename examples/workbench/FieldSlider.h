// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

class BVSlider;
class NumberField;
class QWidget;
struct SetupSlider;

/// Binds a slider to a number field: each follows the other.
///
/// The slider stands at the place nearest to the field's value, at its lower end while there is
/// none; that leaves the value as it is. Only when the slider is moved does its place become the
/// value, with three digits; back at its first place it gives the value that it was given, with all
/// of them. Limits bind the slider, not what is typed.
class FieldSlider : public QObject
{
    Q_OBJECT

public:
    /// The slider belongs to @p parent, as the field's edit does.
    FieldSlider(const SetupSlider &definition, NumberField *field, QWidget *parent);

    BVSlider *slider() const { return m_slider; }

private:
    void setUp();
    void setUpDesign();
    void onMoved(int position);
    double valueAt(int position) const;
    void follow();
    void updateToolTip();

    const SetupSlider &m_definition; // in the table of all
    NumberField *m_field;
    BVSlider *m_slider;
    bool m_moving = false;
    double m_given; // to the field by others than the slider; NaN for none
};
