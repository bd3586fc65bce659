// SPDX-License-Identifier: MIT
#pragma once

#include "units/BVDoubleSpinBox.h"

#include <QSize>
#include <QString>

class QLineEdit;
class QStyleOptionSpinBox;

/// How large a spin box wants to be, measured when it is asked for and kept until it is forgotten.
class BVSpinBoxSize
{
public:
    BVSpinBoxSize(const BVDoubleSpinBox &box, const QLineEdit &edit);

    void forget() { m_size = QSize(); }
    /// Whether a number with more characters than were measured is to be shown.
    bool isOutgrownBy(const QString &number) const;
    QSize size(const QStyleOptionSpinBox &option);

private:
    int widthOfText();

    const BVDoubleSpinBox &m_box;
    const QLineEdit &m_edit;
    QSize m_size;      // invalid if it is to be measured
    QString m_affixes; // for which it was measured, as the next two
    bool m_hasFrame = true;
    QAbstractSpinBox::ButtonSymbols m_symbols = QAbstractSpinBox::UpDownArrows;
    int m_characters = 0; // of the number
};
