// SPDX-License-Identifier: MIT
#include "units/BVSpinBoxSize_p.h"

#include <QLineEdit>
#include <QStyleOptionSpinBox>

namespace {

constexpr int s_maxCharacters = 18; // of a number
constexpr int s_cursorWidth = 2;    // px, for the text cursor to blink in

int characterCount(BVDoubleSpinBox::InputFieldSize size)
{
    constexpr int counts[] = {s_maxCharacters, 6, 10, 16};
    return counts[qBound<int>(0, size, BVDoubleSpinBox::FieldLarge)];
}

} // namespace

BVSpinBoxSize::BVSpinBoxSize(const BVDoubleSpinBox &box, const QLineEdit &edit)
    : m_box(box)
    , m_edit(edit)
{
}

bool BVSpinBoxSize::isOutgrownBy(const QString &number) const
{
    return m_box.isFitText() || (m_box.inputFieldWidth() == BVDoubleSpinBox::FieldDefault &&
                                 qMin(number.size(), s_maxCharacters) > m_characters);
}

QSize BVSpinBoxSize::size(const QStyleOptionSpinBox &option)
{
    const QString affixes = m_box.prefix() + m_box.suffix() + m_box.specialValueText();
    if (m_size.isValid() && affixes == m_affixes && option.frame == m_hasFrame &&
        option.buttonSymbols == m_symbols)
        return m_size;
    m_affixes = affixes;
    m_hasFrame = option.frame;
    m_symbols = option.buttonSymbols;
    const QMargins lock = m_edit.textMargins();
    const int width = widthOfText() + s_cursorWidth + lock.left() + lock.right();
    const QSize contents(width, m_edit.sizeHint().height());
    m_size = m_box.style()->sizeFromContents(QStyle::CT_SpinBox, &option, contents, &m_box);
    return m_size;
}

int BVSpinBoxSize::widthOfText()
{
    const QFontMetrics metrics(m_box.fontMetrics());
    m_characters = characterCount(m_box.inputFieldWidth());
    if (m_box.isFitText())
        return metrics.horizontalAdvance(m_edit.text() + QLatin1Char(' '));
    if (m_box.inputFieldWidth() != BVDoubleSpinBox::FieldDefault)
        return metrics.horizontalAdvance(QLatin1Char('0')) * m_characters;
    int width = metrics.horizontalAdvance(m_box.specialValueText());
    m_characters = 0;
    for (const double value : {m_box.minimum(), m_box.maximum(), m_box.value()}) {
        const QString shown = m_box.getFormatter()->textFromValue(value, false);
        const QString number = shown.left(s_maxCharacters);
        const QString text = m_box.prefix() + number + m_box.suffix() + QLatin1Char(' ');
        m_characters = qMax(m_characters, number.size());
        width = qMax(width, metrics.horizontalAdvance(text));
    }
    return width;
}
