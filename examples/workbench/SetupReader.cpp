// SPDX-License-Identifier: MIT
#include "SetupReader.h"

#include "OperationKinds.h"
#include "SetupFields.h"
#include "SetupFile.h"
#include "SetupFileNames.h"

#include <UnitConverter.h>

#include <QCoreApplication>
#include <QStringList>

#include <cmath>

using namespace SetupFileNames;

namespace {

QString tr(const char *text)
{
    return QCoreApplication::translate("SetupFile", text);
}

QString withUnit(const QString &number, const QString &unit)
{
    return unit.isEmpty() ? number : number + QLatin1Char(' ') + unit;
}

} // namespace

SetupReader::SetupReader(QIODevice *device)
    : m_xml(device)
{
}

bool SetupReader::read(ProcessSetup &setup)
{
    if (!readRoot() || !checkComplete())
        return false;
    while (!m_xml.atEnd())
        m_xml.readNext();
    if (m_xml.hasError())
        return refuseMalformed();
    m_setup.setOperations(m_operations);
    setup = m_setup;
    return true;
}

bool SetupReader::refuse(const QString &reason)
{
    if (m_reason.isEmpty()) {
        m_errorLine = m_line;
        m_reason = reason;
    }
    return false;
}

bool SetupReader::refuseMalformed()
{
    m_line = m_xml.lineNumber();
    return refuse(tr("The file is not well-formed XML: %1").arg(m_xml.errorString()));
}

/// Goes to the next element inside the current one. False at its end and after a fault.
bool SetupReader::nextChild()
{
    while (!m_xml.atEnd()) {
        const QXmlStreamReader::TokenType token = m_xml.readNext();
        m_line = m_xml.lineNumber();
        if (token == QXmlStreamReader::StartElement)
            return true;
        if (token == QXmlStreamReader::EndElement)
            return false;
        if (token == QXmlStreamReader::Characters && !checkText())
            return false;
    }
    refuseMalformed();
    return false;
}

bool SetupReader::checkText()
{
    return m_xml.isWhitespace() || refuse(tr("There is text between the elements: \"%1\".")
                                              .arg(m_xml.text().toString().simplified().left(40)));
}

/// Refuses attributes of the current element that nothing would read.
bool SetupReader::checkAttributes(const QStringList &allowed)
{
    const QXmlStreamAttributes attributes = m_xml.attributes();
    for (const QXmlStreamAttribute &attribute : attributes) {
        if (!allowed.contains(attribute.qualifiedName().toString()))
            return refuse(tr("<%1> has an unknown attribute \"%2\".")
                              .arg(m_xml.name().toString(), attribute.qualifiedName().toString()));
    }
    return true;
}

bool SetupReader::takeOnce(const QString &path)
{
    if (m_seen.contains(path))
        return refuse(tr("<%1> stands in the file twice.").arg(m_xml.name().toString()));
    m_seen.insert(path);
    return true;
}

bool SetupReader::readRoot()
{
    if (!nextChild())
        return refuseMalformed();
    if (m_xml.name() != s_root)
        return refuse(tr("The file is no process set-up: it begins with <%1> instead of <%2>.")
                          .arg(m_xml.name().toString(), s_root));
    if (!checkAttributes({s_versionAttribute}))
        return false;
    const QString version = m_xml.attributes().value(s_versionAttribute).toString();
    if (version != QString::number(SetupFile::s_version))
        return refuse(tr("The file has version \"%1\"; this program reads version %2.")
                          .arg(version)
                          .arg(SetupFile::s_version));
    while (nextChild()) {
        if (!readRootChild(m_xml.name().toString()))
            return false;
    }
    return m_reason.isEmpty();
}

bool SetupReader::readRootChild(const QString &name)
{
    if (!takeOnce(name))
        return false;
    const int group = SetupFields::findGroup(name);
    if (group >= 0)
        return readGroup(group);
    if (name == s_operationsElement)
        return readOperations();
    QString text;
    if (name == s_titleElement && readText(text))
        m_setup.setTitle(text);
    else if (name == s_sourceElement && readText(text))
        m_setup.setSource(text);
    else
        return refuse(tr("<%1> is not known here.").arg(name));
    return true;
}

bool SetupReader::readGroup(int group)
{
    if (!checkAttributes({}))
        return false;
    const QString groupName = m_xml.name().toString();
    while (nextChild()) {
        const QString name = m_xml.name().toString();
        const int field = SetupFields::findField(group, name);
        if (field < 0)
            return refuse(tr("<%1> is not known in <%2>.").arg(name, groupName));
        if (!takeOnce(groupName + QLatin1Char('/') + name) ||
            !readField(SetupFields::field(field), field, m_setup))
            return false;
    }
    return m_reason.isEmpty();
}

bool SetupReader::readOperations()
{
    if (!checkAttributes({}))
        return false;
    while (nextChild()) {
        const QString name = m_xml.name().toString();
        if (name != s_operationElement)
            return refuse(tr("<%1> is not known in <%2>.").arg(name, s_operationsElement));
        if (!readOperation())
            return false;
    }
    return m_reason.isEmpty();
}

bool SetupReader::readOperation()
{
    if (!checkAttributes({s_kindAttribute, s_nameAttribute, s_skippedAttribute}))
        return false;
    const QXmlStreamAttributes attributes = m_xml.attributes();
    const QString key = attributes.value(s_kindAttribute).toString();
    const int kind = OperationKinds::find(key);
    if (kind < 0)
        return refuse(tr("There is no kind of operation \"%1\".").arg(key));
    OperationSetup operation(kind);
    operation.name = FieldValues::storableText(attributes.value(s_nameAttribute).toString());
    if (operation.name.isEmpty())
        return refuse(tr("The operation has no name."));
    if (!readSkipped(operation) || !readOperationFields(operation) || !checkComplete(operation))
        return false;
    m_operations.push_back(operation);
    return true;
}

bool SetupReader::readSkipped(OperationSetup &operation)
{
    const QString skipped = m_xml.attributes().value(s_skippedAttribute).toString();
    operation.isSkipped = skipped == s_true;
    return operation.isSkipped || skipped.isEmpty() || skipped == s_false ||
           refuse(tr("\"%1\" says neither \"%2\" nor \"%3\".").arg(skipped, s_true, s_false));
}

bool SetupReader::readOperationFields(OperationSetup &operation)
{
    const QString path = QStringLiteral("operation %1/").arg(m_operations.size());
    while (nextChild()) {
        const QString name = m_xml.name().toString();
        const int field = OperationKinds::findField(operation.kind, name);
        if (field < 0)
            return refuse(tr("<%1> is not known in <%2>.").arg(name, s_operationElement));
        const SetupField &definition = OperationKinds::kind(operation.kind).fields[size_t(field)];
        if (!takeOnce(path + name) || !readField(definition, field, operation.values))
            return false;
    }
    return m_reason.isEmpty();
}

bool SetupReader::readField(const SetupField &field, int index, FieldValues &values)
{
    const bool hasUnit = !field.unitText().isEmpty();
    if (!checkAttributes(hasUnit ? QStringList{s_unitAttribute} : QStringList()))
        return false;
    const QString unit = m_xml.attributes().value(s_unitAttribute).toString();
    QString text;
    double value = 0.0;
    if (!readText(text))
        return false;
    text = ProcessSetup::storableText(text);
    if (text.isEmpty())
        return refuse(tr("<%1> has no value.").arg(field.keyText()));
    if (field.kind == SetupField::Text)
        values.setText(index, text);
    else if (takeNumber(field, text, unit, value))
        values.setNumber(index, value);
    return m_reason.isEmpty();
}

/// Reads the text of the current element, whose attributes have been read. m_line stays its own.
bool SetupReader::readText(QString &text)
{
    const QString name = m_xml.name().toString();
    text = m_xml.readElementText(QXmlStreamReader::ErrorOnUnexpectedElement);
    if (m_xml.error() == QXmlStreamReader::UnexpectedElementError)
        return refuse(tr("<%1> holds an element; it takes a plain value.").arg(name));
    return !m_xml.hasError() || refuseMalformed();
}

bool SetupReader::takeNumber(const SetupField &field, const QString &text, const QString &unit,
                             double &value)
{
    bool ok = false;
    value = text.toDouble(&ok);
    if (!ok || !std::isfinite(value))
        return refuse(tr("\"%1\" in <%2> is not a number.").arg(text, field.keyText()));
    const QString fieldUnit = field.unitText();
    if (!fieldUnit.isEmpty() && unit.isEmpty())
        return refuse(
            tr("<%1> has no unit; it takes one like \"%2\".").arg(field.keyText(), fieldUnit));
    if (!UnitConverter::convert(value, unit, fieldUnit))
        return refuse(tr("The unit \"%1\" of <%2> does not convert into \"%3\".")
                          .arg(unit, field.keyText(), fieldUnit));
    if (!(value >= field.minimum && value <= field.maximum))
        return refuse(tr("%1 in <%2> is out of range: from %3 to %4.")
                          .arg(withUnit(text, unit), field.keyText(),
                               withUnit(QString::number(field.minimum), fieldUnit),
                               withUnit(QString::number(field.maximum), fieldUnit)));
    return true;
}

bool SetupReader::checkComplete()
{
    for (const SetupField &field : SetupFields::fields()) {
        const QString group = QString::fromLatin1(SetupFields::groups()[size_t(field.group)].key);
        if (!m_seen.contains(group + QLatin1Char('/') + field.keyText()))
            return refuse(tr("<%1> is missing in <%2>.").arg(field.keyText(), group));
    }
    return true;
}

bool SetupReader::checkComplete(const OperationSetup &operation)
{
    const QStringList missing = operation.missingFields();
    return operation.isSkipped || missing.isEmpty() ||
           refuse(tr("These values are missing: %1.").arg(missing.join(QStringLiteral(", "))));
}
