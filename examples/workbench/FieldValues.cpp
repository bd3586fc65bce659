// SPDX-License-Identifier: MIT
#include "FieldValues.h"

#include <limits>

double FieldValues::noValue()
{
    return std::numeric_limits<double>::min();
}

void FieldValues::setText(int field, const QString &text)
{
    m_texts[size_t(field)] = storableText(text);
}

QString FieldValues::storableText(const QString &text)
{
    QString storable = text.simplified();
    for (int i = storable.size() - 1; i >= 0; --i) {
        const QChar c = storable.at(i);
        const bool inPair = (c.isHighSurrogate() && i + 1 < storable.size() &&
                             storable.at(i + 1).isLowSurrogate()) ||
                            (c.isLowSurrogate() && i > 0 && storable.at(i - 1).isHighSurrogate());
        if (c.category() == QChar::Other_Control || c.unicode() >= 0xfffe ||
            (c.isSurrogate() && !inPair))
            storable.remove(i, 1);
    }
    return storable.simplified();
}

bool FieldValues::operator==(const FieldValues &other) const
{
    return m_numbers == other.m_numbers && m_texts == other.m_texts;
}
