// SPDX-License-Identifier: MIT
#include "ProcessSetup.h"

#include "SetupFields.h"

#include <QStringList>

#include <limits>

ProcessSetup::ProcessSetup()
    : m_numbers(size_t(SetupFields::count()), noValue())
    , m_texts(size_t(SetupFields::count()))
{
}

double ProcessSetup::noValue()
{
    return std::numeric_limits<double>::min();
}

void ProcessSetup::setText(int field, const QString &text)
{
    m_texts[size_t(field)] = storableText(text);
}

void ProcessSetup::setTitle(const QString &title)
{
    m_title = storableText(title);
}

void ProcessSetup::setSource(const QString &source)
{
    m_source = storableText(source);
}

QStringList ProcessSetup::missingFields() const
{
    QStringList names;
    for (int i = 0; i < SetupFields::count(); ++i) {
        const SetupField &field = SetupFields::field(i);
        const bool missing =
            field.kind == SetupField::Text ? text(i).isEmpty() : number(i) == noValue();
        if (missing)
            names << field.labelText();
    }
    return names;
}

QString ProcessSetup::storableText(const QString &text)
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

bool ProcessSetup::operator==(const ProcessSetup &other) const
{
    return m_numbers == other.m_numbers && m_texts == other.m_texts && m_title == other.m_title &&
           m_source == other.m_source;
}
