// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QVariant>

class QByteArray;

/// The values of dragged rows as mime data.
///
/// A data stream of version Qt_5_15, big-endian: the number of rows (int), then a QVariant a row.
/// Values are invalid or of the types that BVContainerListControl names; such a stream can be read
/// by anything that reads data streams. What comes from elsewhere is believed only as far as it is
/// there and sound: no count makes more memory than the data itself, and no date-time is further
/// away than it can count.
namespace BVPlannelData {

/// "application/bvplannel".
QString format();
/// Values of other types are written as invalid ones, so that the rows keep their number.
QByteArray encode(const QVariantList &values);
/// False, and @p values as it was, for anything but whole and sound data of these types.
bool decode(const QByteArray &data, QVariantList *values);

} // namespace BVPlannelData
