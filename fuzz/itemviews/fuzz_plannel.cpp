// SPDX-License-Identifier: MIT
//
// Random bytes are read as dragged rows. What is accepted is no larger than its data, and comes
// back the same when it is written and read again, by the codec and by the toolkit's data stream.
#include "itemviews/BVPlannelData_p.h"

#include <QDataStream>

#include <cstdint>
#include <cstdlib>

namespace {

void check(bool holds)
{
    if (!holds)
        std::abort();
}

qint64 sizeOf(const QVariant &value)
{
    if (value.userType() == QMetaType::QStringList)
        return value.toStringList().join(QString()).size() * qint64(sizeof(ushort));
    if (value.userType() == QMetaType::QString)
        return value.toString().size() * qint64(sizeof(ushort));
    return value.userType() == QMetaType::QByteArray ? value.toByteArray().size() : 0;
}

QVariantList toolkitValues(const QByteArray &data)
{
    QDataStream stream(data);
    stream.setVersion(QDataStream::Qt_5_15);
    int count = 0;
    stream >> count;
    QVariantList values;
    for (int row = 0; row < count && stream.status() == QDataStream::Ok; ++row) {
        QVariant value;
        stream >> value;
        values.append(value);
    }
    return values;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char *>(data), int(size));
    QVariantList values{QStringLiteral("before")};
    if (!BVPlannelData::decode(bytes, &values)) {
        check(values == QVariantList{QStringLiteral("before")});
        return 0;
    }
    qint64 total = 0;
    for (const QVariant &value : values)
        total += sizeOf(value);
    check(values.size() < bytes.size() && total <= bytes.size());

    // Bytes, not values: a NaN is not even equal to itself.
    const QByteArray written = BVPlannelData::encode(values);
    QVariantList again;
    check(BVPlannelData::decode(written, &again));
    check(BVPlannelData::encode(again) == written);
    check(BVPlannelData::encode(toolkitValues(written)) == written);
    return 0;
}
