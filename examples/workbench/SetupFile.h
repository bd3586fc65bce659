// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

class ProcessSetup;

/// Reads and writes process set-ups as XML files.
///
/// The root element is <processSetup version="1">. It holds <title> and <source>, which may be
/// missing, and one element for each group of SetupFields with one element for each of its fields:
/// <length unit="mm">150</length>. A number may stand in any unit that converts into the field's.
/// Numbers have "." as decimal point; written ones read back to the last bit.
///
/// <operations> may be missing, too. It holds the operations in their order: <operation kind="draw"
/// name="First draw" skipped="false"> with one element for each field of the kind. Only operations
/// that are skipped may lack values.
///
/// A file that is not exactly that is refused: what it says could otherwise be lost unnoticed.
namespace SetupFile {

constexpr int s_version = 1;
constexpr qint64 s_maximumSize = 1 << 20; // bytes

/// Reads @p path into @p setup. False, with @p setup unchanged and @p error saying file, line and
/// reason ("cup.xml:12: ..."), if that fails.
bool read(const QString &path, ProcessSetup &setup, QString &error);

/// Writes @p setup to @p path; an existing file is replaced whole or not at all. False, with @p
/// error saying why, if that fails or a value is missing.
bool write(const QString &path, const ProcessSetup &setup, QString &error);

} // namespace SetupFile
