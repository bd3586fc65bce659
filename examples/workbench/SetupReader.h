// SPDX-License-Identifier: MIT
#pragma once

#include "ProcessSetup.h"

#include <QSet>
#include <QString>
#include <QXmlStreamReader>

#include <vector>

class QStringList;
struct SetupField;

/// Reads the document of one process set-up. The first fault ends the reading.
class SetupReader
{
public:
    /// The device is not owned.
    explicit SetupReader(QIODevice *device);

    /// False, with @p setup unchanged, if the document cannot be accepted.
    bool read(ProcessSetup &setup);
    /// Where the fault is, and which it is.
    qint64 errorLine() const { return m_errorLine; }
    const QString &reason() const { return m_reason; }

private:
    bool refuse(const QString &reason);
    bool refuseMalformed();
    bool nextChild();
    bool checkText();
    bool checkAttributes(const QStringList &allowed);
    bool takeOnce(const QString &path);
    bool readRoot();
    bool readRootChild(const QString &name);
    bool readGroup(int group);
    bool readOperations();
    bool readOperation();
    bool readSkipped(OperationSetup &operation);
    bool readOperationFields(OperationSetup &operation);
    bool readField(const SetupField &field, int index, FieldValues &values);
    bool readText(QString &text);
    bool takeNumber(const SetupField &field, const QString &text, const QString &unit,
                    double &value);
    bool checkComplete();
    bool checkComplete(const OperationSetup &operation);

    QXmlStreamReader m_xml;
    ProcessSetup m_setup;
    std::vector<OperationSetup> m_operations;
    QSet<QString> m_seen;
    qint64 m_line = 1; // of the element that is being read
    qint64 m_errorLine = 0;
    QString m_reason;
};
