// SPDX-License-Identifier: MIT
#include "itemviews/BVPlannelData_p.h"

#include <QColor>
#include <QDataStream>
#include <QDateTime>
#include <QRect>
#include <QTest>
#include <QTimeZone>
#include <QUuid>

#include <algorithm>
#include <limits>

namespace {

/// A value as it stands in the stream: type, whether it is null, and the bytes behind, in hex.
QByteArray value(const char *typeAndNull, const char *bytes = "")
{
    return QByteArray::fromHex(typeAndNull) + QByteArray::fromHex(bytes);
}

QByteArray rows(const char *count, const QByteArray &values = QByteArray())
{
    return QByteArray::fromHex(count) + values;
}

} // namespace

class tst_BVPlannelData : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void goesThroughAnyStream();
    void refusesUnsoundData_data();
    void refusesUnsoundData();
};

/// Through the toolkit's stream too, and what is not supported arrives as an invalid value.
void tst_BVPlannelData::goesThroughAnyStream()
{
    const QDateTime local(QDate(2024, 2, 29), QTime(12, 30));
    const QDateTime inZone(local.date(), local.time(), QTimeZone(3600));
    const QVariantList sent{true,
                            -7,
                            7u,
                            qlonglong(-1),
                            qulonglong(1) << 63,
                            2.5,
                            0.1F,
                            QChar(0xe4),
                            QStringLiteral("Blank \u00e4"),
                            QString(),
                            QStringLiteral(""),
                            QStringList{QStringLiteral("a"), QString()},
                            QByteArray("a\0b", 3),
                            QUuid::createUuid(),
                            local.date(),
                            QDate(),
                            QTime(0, 0),
                            QTime(),
                            local,
                            local.toUTC(),
                            local.toOffsetFromUtc(-3600),
                            QDateTime(),
                            QSize(-1, 2),
                            QPoint(3, -4),
                            QRect(1, 2, 3, 4),
                            QColor(1, 2, 3, 4),
                            QColor(),
                            QVariant(),
                            QVariant(QVariant::Int),
                            QVariant(QVariant::Color),
                            inZone,
                            QColor::fromHsv(120, 255, 255),
                            QVariantList{1},
                            QVariant::fromValue<void *>(this),
                            QDateTime::fromMSecsSinceEpoch(std::numeric_limits<qint64>::max(), Qt::UTC)};
    QVariantList expected = sent;
    const QVariantList changed{QDateTime(local.date(), local.time(), Qt::OffsetFromUTC, 3600), QColor(Qt::green), QVariant(), QVariant(), QVariant()};
    std::copy(changed.begin(), changed.end(), expected.end() - changed.size());
    const QByteArray data = BVPlannelData::encode(sent);

    QDataStream stream(data);
    stream.setVersion(QDataStream::Qt_5_15);
    int count = 0;
    QVariantList streamed;
    for (stream >> count; streamed.size() < count;) {
        QVariant read;
        stream >> read;
        streamed.append(read);
    }
    QVERIFY(stream.atEnd() && stream.status() == QDataStream::Ok);
    QCOMPARE(streamed, expected);

    QVariantList decoded;
    QVERIFY(BVPlannelData::decode(data, &decoded));
    QCOMPARE(decoded, expected);
    for (int i = 0; i < decoded.size(); ++i) {
        QCOMPARE(decoded[i].userType(), expected[i].userType());
        QCOMPARE(decoded[i].isNull(), expected[i].isNull());
    }
    for (int size = 0; size < data.size(); ++size)
        QVERIFY(!BVPlannelData::decode(data.left(size), &decoded));
    QCOMPARE(decoded, expected); // and untouched
}

void tst_BVPlannelData::refusesUnsoundData_data()
{
    QTest::addColumn<QByteArray>("data");
    const QByteArray one = value("0000000200", "00000001");
    QTest::newRow("two thousand million rows") << rows("77359400", one);
    QTest::newRow("negative count") << rows("ffffffff", one);
    QTest::newRow("more rows than values") << rows("00000002", one);
    QTest::newRow("more values than rows") << rows("00000001", one + one);
    QTest::newRow("null flag of two") << rows("00000001", value("0000000202", "00000001"));
    QTest::newRow("text of two GB") << rows("00000001", value("0000000a00", "7ffffffe0041"));
    QTest::newRow("text of half a letter") << rows("00000001", value("0000000a00", "00000001") + "A");
    QTest::newRow("bytes of four GB") << rows("00000001", value("0000000c00", "fffffffe41"));
    QTest::newRow("list of lists") << rows("00000001", value("0000000900", "77359400") + one);
    QTest::newRow("user type") << rows("00000001", value("0000040000", "00000008") + "QCursor" + '\0');
    QTest::newRow("list of texts, too many") << rows("00000001", value("0000000b00", "40000000ffffffff"));
    QTest::newRow("float of a double") << rows("00000001", value("0000002600", "3fb999999999999a"));
    QTest::newRow("float too large") << rows("00000001", value("0000002600", "7fe0000000000000"));
    QTest::newRow("day out of range") << rows("00000001", value("0000000e00", "7fffffffffffffff"));
    QTest::newRow("time past midnight") << rows("00000001", value("0000000f00", "05265c00"));
    QTest::newRow("date-time out of range") << rows("00000001", value("0000001000", "000000ffffffffff"
                                                                                    "00000000"
                                                                                    "01"));
    QTest::newRow("date-time of a zone") << rows("00000001", value("0000001000", "0000000000258d89"
                                                                                 "00000000"
                                                                                 "03"
                                                                                 "ffffffff"));
    QTest::newRow("offset of a week") << rows("00000001", value("0000001000", "0000000000258d89"
                                                                              "00000000"
                                                                              "02"
                                                                              "00093a80"));
    QTest::newRow("colour of no model") << rows("00000001", value("0000004300", "09"
                                                                                "ffff"
                                                                                "0000"
                                                                                "0000"
                                                                                "0000"
                                                                                "0000"));
    // Streams before version 5.0 write an empty text behind an invalid value.
    QTest::newRow("older stream") << rows("00000001", value("0000000001", "ffffffff"));
}

void tst_BVPlannelData::refusesUnsoundData()
{
    QFETCH(QByteArray, data);
    QVariantList values{1};
    QVERIFY(!BVPlannelData::decode(data, &values));
    QCOMPARE(values, QVariantList{1});
}

QTEST_GUILESS_MAIN(tst_BVPlannelData)
#include "tst_bvplanneldata.moc"
