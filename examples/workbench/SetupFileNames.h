// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// The names of elements and attributes in files of process set-ups.
namespace SetupFileNames {

const QString s_root = QStringLiteral("processSetup");
const QString s_titleElement = QStringLiteral("title");
const QString s_sourceElement = QStringLiteral("source");
const QString s_operationsElement = QStringLiteral("operations");
const QString s_operationElement = QStringLiteral("operation");
const QString s_unitAttribute = QStringLiteral("unit");
const QString s_versionAttribute = QStringLiteral("version");
const QString s_kindAttribute = QStringLiteral("kind");
const QString s_nameAttribute = QStringLiteral("name");
const QString s_skippedAttribute = QStringLiteral("skipped");
const QString s_true = QStringLiteral("true");
const QString s_false = QStringLiteral("false");

} // namespace SetupFileNames
