// SPDX-License-Identifier: MIT
#include "SetupFile.h"

#include "OperationKinds.h"
#include "ProcessSetup.h"
#include "SetupFields.h"
#include "SetupFileNames.h"
#include "SetupReader.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QXmlStreamWriter>

using namespace SetupFileNames;

namespace {

QString tr(const char *text)
{
    return QCoreApplication::translate("SetupFile", text);
}

QString fileError(const QString &path, const QString &reason)
{
    return tr("%1: %2").arg(QFileInfo(path).fileName(), reason);
}

void writeField(QXmlStreamWriter &xml, const SetupField &field, int index,
                const FieldValues &values)
{
    xml.writeStartElement(field.keyText());
    if (!field.unitText().isEmpty())
        xml.writeAttribute(s_unitAttribute, field.unitText());
    constexpr int exactDigits = 17;
    xml.writeCharacters(field.kind == SetupField::Text
                            ? values.text(index)
                            : QString::number(values.number(index), 'g', exactDigits));
    xml.writeEndElement();
}

void writeOptional(QXmlStreamWriter &xml, const QString &element, const QString &text)
{
    if (!text.isEmpty())
        xml.writeTextElement(element, text);
}

void writeGroup(QXmlStreamWriter &xml, const ProcessSetup &setup, int group)
{
    xml.writeStartElement(QString::fromLatin1(SetupFields::groups()[size_t(group)].key));
    for (int i = 0; i < SetupFields::count(); ++i) {
        if (SetupFields::field(i).group == group)
            writeField(xml, SetupFields::field(i), i, setup);
    }
    xml.writeEndElement();
}

/// Values may be missing when the operation is skipped.
void writeOperation(QXmlStreamWriter &xml, const OperationSetup &operation)
{
    const OperationKind &kind = OperationKinds::kind(operation.kind);
    xml.writeStartElement(s_operationElement);
    xml.writeAttribute(s_kindAttribute, QString::fromLatin1(kind.key));
    xml.writeAttribute(s_nameAttribute, operation.name);
    if (operation.isSkipped)
        xml.writeAttribute(s_skippedAttribute, s_true);
    for (size_t i = 0; i < kind.fields.size(); ++i) {
        if (operation.values.number(int(i)) != FieldValues::noValue())
            writeField(xml, kind.fields[i], int(i), operation.values);
    }
    xml.writeEndElement();
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
    for (size_t group = 0; group < SetupFields::groups().size(); ++group)
        writeGroup(xml, setup, int(group));
    if (!setup.operations().empty()) {
        xml.writeStartElement(s_operationsElement);
        for (const OperationSetup &operation : setup.operations())
            writeOperation(xml, operation);
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
    SetupReader reader(&file);
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
