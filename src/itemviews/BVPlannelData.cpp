// SPDX-License-Identifier: MIT
#include "itemviews/BVPlannelData_p.h"

#include <QDataStream>
#include <QUuid>
#include <QtEndian>

#include <limits>

namespace {

constexpr quint32 s_nullLength = 0xffffffff; // stands for a null text
constexpr int s_leastValueSize = 5;          // bytes: the type and whether the value is null

bool isSupported(int type)
{
    switch (type) {
    case QMetaType::UnknownType:
    case QMetaType::Bool:
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
    case QMetaType::Double:
    case QMetaType::QString:
    case QMetaType::QByteArray:
    case QMetaType::QUuid:
        return true;
    default:
        return false;
    }
}

/// Reads from the front of the data; every step says whether it was all there.
class Reader
{
public:
    explicit Reader(const QByteArray &data)
        : m_position(data.constData())
        , m_end(m_position + data.size())
    {
    }

    qint64 left() const { return m_end - m_position; }
    bool read(QVariant *value);

    template <typename Number>
    bool take(Number *number)
    {
        if (left() < qint64(sizeof(Number)))
            return false;
        *number = qFromBigEndian<Number>(m_position);
        m_position += sizeof(Number);
        return true;
    }

private:
    bool readPlain(int type, QVariant *value);
    template <typename Number>
    bool readNumber(QVariant *value);
    bool readBool(QVariant *value);
    bool readDouble(QVariant *value);
    bool readUuid(QVariant *value);
    bool readString(QVariant *value);
    bool readBytes(QVariant *value);
    bool takeLength(quint32 *length);

    const char *m_position;
    const char *m_end;
};

bool Reader::read(QVariant *value)
{
    quint32 type = 0;
    quint8 isNull = 0;
    if (!take(&type) || !take(&isNull) || type > quint32(std::numeric_limits<int>::max()) ||
        isNull > 1 || !isSupported(int(type)))
        return false;
    if (type == QMetaType::UnknownType) {
        *value = QVariant();
        return true;
    }
    if (!readPlain(int(type), value))
        return false;
    if (isNull)
        *value = QVariant(QVariant::Type(type));
    return true;
}

bool Reader::readPlain(int type, QVariant *value)
{
    switch (type) {
    case QMetaType::Bool:
        return readBool(value);
    case QMetaType::Int:
        return readNumber<int>(value);
    case QMetaType::UInt:
        return readNumber<uint>(value);
    case QMetaType::LongLong:
        return readNumber<qlonglong>(value);
    case QMetaType::ULongLong:
        return readNumber<qulonglong>(value);
    case QMetaType::Double:
        return readDouble(value);
    case QMetaType::QString:
        return readString(value);
    case QMetaType::QByteArray:
        return readBytes(value);
    case QMetaType::QUuid:
        return readUuid(value);
    default:
        return false;
    }
}

template <typename Number>
bool Reader::readNumber(QVariant *value)
{
    Number number = 0;
    if (!take(&number))
        return false;
    *value = QVariant(number);
    return true;
}

bool Reader::readBool(QVariant *value)
{
    quint8 byte = 0;
    if (!take(&byte) || byte > 1)
        return false;
    *value = byte == 1;
    return true;
}

bool Reader::readDouble(QVariant *value)
{
    double number = 0.0;
    if (!take(&number))
        return false;
    *value = number;
    return true;
}

bool Reader::readUuid(QVariant *value)
{
    constexpr int size = 16; // bytes
    if (left() < size)
        return false;
    *value = QUuid::fromRfc4122(QByteArray(m_position, size));
    m_position += size;
    return true;
}

/// A length in bytes that the data lives up to.
bool Reader::takeLength(quint32 *length)
{
    return take(length) && (*length == s_nullLength || qint64(*length) <= left());
}

bool Reader::readString(QVariant *value)
{
    quint32 length = 0;
    if (!takeLength(&length) || (length != s_nullLength && length % sizeof(ushort) != 0))
        return false;
    QString text;
    if (length != s_nullLength) {
        text = QString(int(length / sizeof(ushort)), Qt::Uninitialized);
        qFromBigEndian<ushort>(m_position, text.size(), text.data());
        m_position += length;
    }
    *value = text;
    return true;
}

bool Reader::readBytes(QVariant *value)
{
    quint32 length = 0;
    if (!takeLength(&length))
        return false;
    QByteArray bytes;
    if (length != s_nullLength) {
        bytes = QByteArray(m_position, int(length));
        m_position += length;
    }
    *value = bytes;
    return true;
}

} // namespace

QString BVPlannelData::format()
{
    return QStringLiteral("application/bvplannel");
}

QByteArray BVPlannelData::encode(const QVariantList &values)
{
    QByteArray data;
    QDataStream stream(&data, QIODevice::WriteOnly);
    stream.setVersion(QDataStream::Qt_5_15);
    stream.setByteOrder(QDataStream::BigEndian);
    stream << int(values.size());
    for (const QVariant &value : values)
        stream << (isSupported(value.userType()) ? value : QVariant());
    return data;
}

bool BVPlannelData::decode(const QByteArray &data, QVariantList *values)
{
    Reader reader(data);
    qint32 count = 0;
    if (!values || !reader.take(&count) || count < 0 || count > reader.left() / s_leastValueSize)
        return false;
    QVariantList read;
    for (qint32 row = 0; row < count; ++row) {
        QVariant value;
        if (!reader.read(&value))
            return false;
        read.append(value);
    }
    if (reader.left() > 0)
        return false;
    *values = read;
    return true;
}
