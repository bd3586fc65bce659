// SPDX-License-Identifier: MIT
#include "SetupFile.h"

#include "ProcessSetup.h"
#include "SetupFields.h"

#include <UnitConverter.h>

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QSet>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>

#include <cmath>

namespace {

const QString s_root = QStringLiteral("processSetup");
const QString s_titleElement = QStringLiteral("title");
const QString s_sourceElement = QStringLiteral("source");
const QString s_unitAttribute = QStringLiteral("unit");
const QString s_versionAttribute = QStringLiteral("version");

QString tr(const char *text)
{
    return QCoreApplication::translate("SetupFile", text);
}

QString withUnit(const QString &number, const QString &unit)
{
    return unit.isEmpty() ? number : number + QLatin1Char(' ') + unit;
}

/// Reads one document. The first fault ends the reading.
class Reader
{
public:
    explicit Reader(QIODevice *device)
        : m_xml(device)
    {
    }

    bool read(ProcessSetup &setup);
    qint64 errorLine() const { return m_errorLine; }
    const QString &reason() const { return m_reason; }

private:
    bool refuse(const QString &reason);
    bool refuseMalformed();
    bool nextChild();
    bool checkText();
    bool checkAttributes(const QString &allowed);
    bool takeOnce(const QString &path);
    bool readRoot();
    bool readRootChild(const QString &name);
    bool readGroup(int group);
    bool readField(int index);
    bool readText(QString &text);
    bool takeNumber(const SetupField &field, const QString &text, const QString &unit,
                    double &value);
    bool checkComplete();

    QXmlStreamReader m_xml;
    ProcessSetup m_setup;
    QSet<QString> m_seen;
    qint64 m_line = 1; // of the element that is being read
    qint64 m_errorLine = 0;
    QString m_reason;
};

bool Reader::read(ProcessSetup &setup)
{
    if (!readRoot() || !checkComplete())
        return false;
    while (!m_xml.atEnd())
        m_xml.readNext();
    if (m_xml.hasError())
        return refuseMalformed();
    setup = m_setup;
    return true;
}

bool Reader::refuse(const QString &reason)
{
    if (m_reason.isEmpty()) {
        m_errorLine = m_line;
        m_reason = reason;
    }
    return false;
}

bool Reader::refuseMalformed()
{
    m_line = m_xml.lineNumber();
    return refuse(tr("The file is not well-formed XML: %1").arg(m_xml.errorString()));
}

/// Goes to the next element inside the current one. False at its end and after a fault.
bool Reader::nextChild()
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

bool Reader::checkText()
{
    return m_xml.isWhitespace() || refuse(tr("There is text between the elements: \"%1\".")
                                              .arg(m_xml.text().toString().simplified().left(40)));
}

/// Refuses attributes of the current element that nothing would read.
bool Reader::checkAttributes(const QString &allowed)
{
    const QXmlStreamAttributes attributes = m_xml.attributes();
    for (const QXmlStreamAttribute &attribute : attributes) {
        if (attribute.qualifiedName() != allowed)
            return refuse(tr("<%1> has an unknown attribute \"%2\".")
                              .arg(m_xml.name().toString(), attribute.qualifiedName().toString()));
    }
    return true;
}

bool Reader::takeOnce(const QString &path)
{
    if (m_seen.contains(path))
        return refuse(tr("<%1> stands in the file twice.").arg(m_xml.name().toString()));
    m_seen.insert(path);
    return true;
}

bool Reader::readRoot()
{
    if (!nextChild())
        return refuseMalformed();
    if (m_xml.name() != s_root)
        return refuse(tr("The file is no process set-up: it begins with <%1> instead of <%2>.")
                          .arg(m_xml.name().toString(), s_root));
    if (!checkAttributes(s_versionAttribute))
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

bool Reader::readRootChild(const QString &name)
{
    if (!takeOnce(name))
        return false;
    const int group = SetupFields::findGroup(name);
    if (group >= 0)
        return readGroup(group);
    QString text;
    if (name == s_titleElement && readText(text))
        m_setup.setTitle(text);
    else if (name == s_sourceElement && readText(text))
        m_setup.setSource(text);
    else
        return refuse(tr("<%1> is not known here.").arg(name));
    return true;
}

bool Reader::readGroup(int group)
{
    if (!checkAttributes(QString()))
        return false;
    const QString groupName = m_xml.name().toString();
    while (nextChild()) {
        const QString name = m_xml.name().toString();
        const int field = SetupFields::findField(group, name);
        if (field < 0)
            return refuse(tr("<%1> is not known in <%2>.").arg(name, groupName));
        if (!takeOnce(groupName + QLatin1Char('/') + name) || !readField(field))
            return false;
    }
    return m_reason.isEmpty();
}

bool Reader::readField(int index)
{
    const SetupField &field = SetupFields::field(index);
    const bool hasUnit = !field.unitText().isEmpty();
    if (!checkAttributes(hasUnit ? s_unitAttribute : QString()))
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
        m_setup.setText(index, text);
    else if (takeNumber(field, text, unit, value))
        m_setup.setNumber(index, value);
    return m_reason.isEmpty();
}

/// Reads the text of the current element, whose attributes have been read. m_line stays its own.
bool Reader::readText(QString &text)
{
    const QString name = m_xml.name().toString();
    text = m_xml.readElementText(QXmlStreamReader::ErrorOnUnexpectedElement);
    if (m_xml.error() == QXmlStreamReader::UnexpectedElementError)
        return refuse(tr("<%1> holds an element; it takes a plain value.").arg(name));
    return !m_xml.hasError() || refuseMalformed();
}

bool Reader::takeNumber(const SetupField &field, const QString &text, const QString &unit,
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

bool Reader::checkComplete()
{
    for (const SetupField &field : SetupFields::fields()) {
        const QString group = QString::fromLatin1(SetupFields::groups()[size_t(field.group)].key);
        if (!m_seen.contains(group + QLatin1Char('/') + field.keyText()))
            return refuse(tr("<%1> is missing in <%2>.").arg(field.keyText(), group));
    }
    return true;
}

QString fileError(const QString &path, const QString &reason)
{
    return tr("%1: %2").arg(QFileInfo(path).fileName(), reason);
}

void writeField(QXmlStreamWriter &xml, const ProcessSetup &setup, int index)
{
    const SetupField &field = SetupFields::field(index);
    xml.writeStartElement(field.keyText());
    if (!field.unitText().isEmpty())
        xml.writeAttribute(s_unitAttribute, field.unitText());
    constexpr int exactDigits = 17;
    xml.writeCharacters(field.kind == SetupField::Text
                            ? setup.text(index)
                            : QString::number(setup.number(index), 'g', exactDigits));
    xml.writeEndElement();
}

void writeOptional(QXmlStreamWriter &xml, const QString &element, const QString &text)
{
    if (!text.isEmpty())
        xml.writeTextElement(element, text);
}

void writeDocument(QXmlStreamWriter &xml, const ProcessSetup &setup)
{
    xml.setAutoFormatting(true);
    xml.setAutoFormattingIndent(2);
    xml.writeStartDocument();
    xml.writeStartElement(s_root);
    xml.writeAttribute(s_versionAttribute, QString::number(SetupFile::s_version));
    writeOptional(xml, s_titleElement, setup.title());
    writeOptional(xml, s_sourceElement, setup.source());
    for (size_t group = 0; group < SetupFields::groups().size(); ++group) {
        xml.writeStartElement(QString::fromLatin1(SetupFields::groups()[group].key));
        for (int i = 0; i < SetupFields::count(); ++i) {
            if (SetupFields::field(i).group == int(group))
                writeField(xml, setup, i);
        }
        xml.writeEndElement();
    }
    xml.writeEndDocument();
}

} // namespace

bool SetupFile::read(const QString &path, ProcessSetup &setup, QString &error)
{
    QFile file(path);
    if (QFileInfo(path).isDir() || !file.open(QIODevice::ReadOnly)) {
        error = fileError(path, tr("The file cannot be read."));
        return false;
    }
    if (file.size() > s_maximumSize) {
        error = fileError(path, tr("The file is too large for a process set-up."));
        return false;
    }
    Reader reader(&file);
    if (reader.read(setup))
        return true;
    error = tr("%1:%2: %3")
                .arg(QFileInfo(path).fileName())
                .arg(reader.errorLine())
                .arg(reader.reason());
    return false;
}

bool SetupFile::write(const QString &path, const ProcessSetup &setup, QString &error)
{
    const QStringList missing = setup.missingFields();
    if (!missing.isEmpty()) {
        error = fileError(
            path, tr("These values are missing: %1.").arg(missing.join(QStringLiteral(", "))));
        return false;
    }
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly)) {
        error = fileError(path, file.errorString());
        return false;
    }
    QXmlStreamWriter xml(&file);
    writeDocument(xml, setup);
    if (!xml.hasError() && file.commit())
        return true;
    error = fileError(path, file.errorString());
    return false;
}
