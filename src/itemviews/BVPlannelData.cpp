// SPDX-License-Identifier: MIT
#include "itemviews/BVPlannelData_p.h"

#include <QColor>
#include <QDataStream>
#include <QDateTime>
#include <QRect>
#include <QUuid>
#include <QtEndian>

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr quint32 s_nullLength = 0xffffffff; // stands for a null text
constexpr int s_leastValueSize = 5;          // bytes: the type and whether the value is null

// Julian days; a date-time counts milliseconds from the epoch in 64 bits, in any time zone.
constexpr qint64 s_nullDay = std::numeric_limits<qint64>::min();
constexpr qint64 s_epochDay = 2440588;
constexpr qint64 s_msecsPerDay = 86400000;
constexpr qint64 s_dateTimeDays = std::numeric_limits<qint64>::max() / s_msecsPerDay - 2;
constexpr int s_largestOffset = int(s_msecsPerDay / 1000); // s from UTC

bool isDateTimeDay(qint64 day)
{
    return day == s_nullDay ||
           (day >= s_epochDay - s_dateTimeDays && day <= s_epochDay + s_dateTimeDays);
}

/// Reads from the front of the data; every step says whether it was all there and sound.
class Reader
{
public:
    explicit Reader(const QByteArray &data)
        : m_position(data.constData())
        , m_end(m_position + data.size())
    {
    }

    qint64 left() const { return m_end - m_position; }
    bool readVariant(QVariant *value);

    template <typename Number>
    bool read(Number *number)
    {
        if (left() < qint64(sizeof(Number)))
            return false;
        *number = qFromBigEndian<Number>(m_position);
        m_position += sizeof(Number);
        return true;
    }
    bool read(bool *value);
    bool read(float *number);
    bool read(QChar *character);
    bool read(QString *text);
    bool read(QStringList *texts);
    bool read(QByteArray *bytes);
    bool read(QUuid *id);
    bool read(QDate *date);
    bool read(QTime *time);
    bool read(QDateTime *dateTime);
    bool read(QSize *size);
    bool read(QPoint *point);
    bool read(QRect *rect);
    bool read(QColor *color);

private:
    bool readLength(quint32 *length);

    const char *m_position;
    const char *m_end;
};

/// A type of values that travel.
struct Type
{
    int id;
    bool (*read)(Reader &reader, QVariant *value);
};

template <typename Value>
bool readValue(Reader &reader, QVariant *value)
{
    Value plain{};
    if (!reader.read(&plain))
        return false;
    *value = QVariant::fromValue(plain);
    return true;
}

constexpr Type s_types[] = {
    {QMetaType::UnknownType, [](Reader &, QVariant *) { return true; }},
    {QMetaType::Bool, readValue<bool>},
    {QMetaType::Int, readValue<int>},
    {QMetaType::UInt, readValue<uint>},
    {QMetaType::LongLong, readValue<qlonglong>},
    {QMetaType::ULongLong, readValue<qulonglong>},
    {QMetaType::Float, readValue<float>},
    {QMetaType::Double, readValue<double>},
    {QMetaType::QChar, readValue<QChar>},
    {QMetaType::QString, readValue<QString>},
    {QMetaType::QStringList, readValue<QStringList>},
    {QMetaType::QByteArray, readValue<QByteArray>},
    {QMetaType::QUuid, readValue<QUuid>},
    {QMetaType::QDate, readValue<QDate>},
    {QMetaType::QTime, readValue<QTime>},
    {QMetaType::QDateTime, readValue<QDateTime>},
    {QMetaType::QSize, readValue<QSize>},
    {QMetaType::QPoint, readValue<QPoint>},
    {QMetaType::QRect, readValue<QRect>},
    {QMetaType::QColor, readValue<QColor>},
};

const Type *typeOf(qint64 id)
{
    const auto *type = std::find_if(std::begin(s_types), std::end(s_types),
                                    [id](const Type &known) { return known.id == id; });
    return type != std::end(s_types) ? type : nullptr;
}

/// Null values have bytes, too.
bool Reader::readVariant(QVariant *value)
{
    quint32 id = 0;
    bool isNull = false;
    if (!read(&id) || !read(&isNull))
        return false;
    const Type *type = typeOf(id);
    *value = QVariant();
    if (!type || !type->read(*this, value))
        return false;
    if (isNull && value->isValid())
        *value = QVariant(QVariant::Type(id));
    return true;
}

bool Reader::read(bool *value)
{
    quint8 byte = 0;
    if (!read(&byte) || byte > 1)
        return false;
    *value = byte == 1;
    return true;
}

/// Streams hold it in double precision.
bool Reader::read(float *number)
{
    double wide = 0.0;
    if (!read(&wide))
        return false;
    if (std::isfinite(wide) && std::abs(wide) > double(std::numeric_limits<float>::max()))
        return false;
    *number = float(wide);
    return std::isnan(wide) || double(*number) == wide;
}

bool Reader::read(QChar *character)
{
    ushort code = 0;
    if (!read(&code))
        return false;
    *character = QChar(code);
    return true;
}

/// A length in bytes that the data lives up to.
bool Reader::readLength(quint32 *length)
{
    return read(length) && (*length == s_nullLength || qint64(*length) <= left());
}

bool Reader::read(QString *text)
{
    quint32 length = 0;
    if (!readLength(&length) || (length != s_nullLength && length % sizeof(ushort) != 0))
        return false;
    if (length == s_nullLength)
        return true;
    *text = QString(int(length / sizeof(ushort)), Qt::Uninitialized);
    qFromBigEndian<ushort>(m_position, text->size(), text->data());
    m_position += length;
    return true;
}

bool Reader::read(QStringList *texts)
{
    quint32 count = 0;
    if (!read(&count) || qint64(count) > left() / qint64(sizeof(quint32)))
        return false;
    for (quint32 i = 0; i < count; ++i) {
        QString text;
        if (!read(&text))
            return false;
        texts->append(text);
    }
    return true;
}

bool Reader::read(QByteArray *bytes)
{
    quint32 length = 0;
    if (!readLength(&length))
        return false;
    if (length == s_nullLength)
        return true;
    *bytes = QByteArray(m_position, int(length));
    m_position += length;
    return true;
}

bool Reader::read(QUuid *id)
{
    constexpr int size = 16; // bytes
    if (left() < size)
        return false;
    *id = QUuid::fromRfc4122(QByteArray(m_position, size));
    m_position += size;
    return true;
}

bool Reader::read(QDate *date)
{
    qint64 day = 0;
    if (!read(&day))
        return false;
    *date = QDate::fromJulianDay(day);
    return day == s_nullDay || date->isValid();
}

bool Reader::read(QTime *time)
{
    int msecs = 0; // -1 for a null time
    if (!read(&msecs) || msecs < -1 || msecs >= s_msecsPerDay)
        return false;
    *time = msecs < 0 ? QTime() : QTime::fromMSecsSinceStartOfDay(msecs);
    return true;
}

bool Reader::read(QDateTime *dateTime)
{
    QDate date;
    QTime time;
    qint8 spec = 0;
    int offset = 0;
    if (!read(&date) || !read(&time) || !read(&spec) || spec < Qt::LocalTime ||
        spec > Qt::OffsetFromUTC || !isDateTimeDay(date.toJulianDay()))
        return false;
    if (spec == Qt::OffsetFromUTC && (!read(&offset) || std::abs(qint64(offset)) > s_largestOffset))
        return false;
    *dateTime = QDateTime(date, time, Qt::TimeSpec(spec), offset);
    return true;
}

bool Reader::read(QSize *size)
{
    return read(&size->rwidth()) && read(&size->rheight());
}

bool Reader::read(QPoint *point)
{
    return read(&point->rx()) && read(&point->ry());
}

bool Reader::read(QRect *rect)
{
    QPoint topLeft;
    QPoint bottomRight;
    if (!read(&topLeft) || !read(&bottomRight))
        return false;
    *rect = QRect(topLeft, bottomRight);
    return true;
}

bool Reader::read(QColor *color)
{
    qint8 spec = 0;
    quint16 parts[5] = {}; // alpha, red, green, blue and padding
    if (!read(&spec) || (spec != QColor::Invalid && spec != QColor::Rgb))
        return false;
    for (quint16 &part : parts)
        if (!read(&part))
            return false;
    if (spec == QColor::Rgb)
        *color = QColor::fromRgba64(parts[1], parts[2], parts[3], parts[0]);
    return true;
}

/// The value as the reader takes it.
QVariant portable(const QVariant &value)
{
    if (!typeOf(value.userType()))
        return QVariant();
    if (value.userType() == QMetaType::QColor && !value.isNull())
        return value.value<QColor>().toRgb();
    if (value.userType() != QMetaType::QDateTime || value.isNull())
        return value;
    QDateTime dateTime = value.toDateTime();
    if (dateTime.timeSpec() == Qt::TimeZone)
        dateTime = dateTime.toOffsetFromUtc(dateTime.offsetFromUtc());
    const bool isSound = isDateTimeDay(dateTime.date().toJulianDay()) &&
                         std::abs(qint64(dateTime.offsetFromUtc())) <= s_largestOffset;
    return isSound ? dateTime : QVariant();
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
        stream << portable(value);
    return data;
}

bool BVPlannelData::decode(const QByteArray &data, QVariantList *values)
{
    Reader reader(data);
    qint32 count = 0;
    if (!values || !reader.read(&count) || count < 0 || count > reader.left() / s_leastValueSize)
        return false;
    QVariantList read;
    for (qint32 row = 0; row < count; ++row) {
        QVariant value;
        if (!reader.readVariant(&value))
            return false;
        read.append(value);
    }
    if (reader.left() > 0)
        return false;
    *values = read;
    return true;
}
