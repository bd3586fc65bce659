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
    QVariantList sent;
    sent << true << -7 << 7u << qlonglong(-1) << (qulonglong(1) << 63) << 2.5 << 0.1F << QChar(0xe4) << QStringLiteral("Blank \u00e4") << QString();
    sent << QLatin1String("") << QStringList{QStringLiteral("a"), QString()} << QByteArray("a\0b", 3) << QUuid::createUuid() << local.date();
    sent << QDate() << QTime(0, 0) << QTime() << local << local.toUTC() << local.toOffsetFromUtc(-3600) << QDateTime() << QSize(-1, 2);
    sent << QPoint(3, -4) << QRect(1, 2, 3, 4) << QColor(1, 2, 3, 4) << QColor() << QVariant() << QVariant(QVariant::Int)
         << QVariant(QVariant::Color);
    sent << inZone << QColor::fromHsv(120, 255, 255) << QVariant(QVariantList{1}) << QVariant::fromValue<void *>(this)
         << QDateTime::fromMSecsSinceEpoch(std::numeric_limits<qint64>::max(), Qt::UTC);
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
    QTest::addColumn<QByteArray>("hex"); // the count, then type, whether it is null, and bytes of each value
    const auto add = [](const char *name, const char *hex) { QTest::newRow(name) << QByteArray(hex); };
    add("two thousand million rows", "77359400 00000002 00 00000001");
    add("negative count", "ffffffff 00000002 00 00000001");
    add("more rows than values", "00000002 00000002 00 00000001");
    add("more values than rows", "00000001 00000002 00 00000001 00000002 00 00000001");
    add("null flag of two", "00000001 00000002 02 00000001");
    add("text of two GB", "00000001 0000000a 00 7ffffffe 0041");
    add("text of half a letter", "00000001 0000000a 00 00000001 41");
    add("bytes of four GB", "00000001 0000000c 00 fffffffe 41");
    add("user type", "00000001 00000400 00 00000008 51437572736f7200");
    add("list of texts, too many", "00000001 0000000b 00 40000000 ffffffff");
    add("float of a double", "00000001 00000026 00 3fb999999999999a");
    add("float too large", "00000001 00000026 00 7fe0000000000000");
    add("day out of range", "00000001 0000000e 00 7fffffffffffffff");
    add("time past midnight", "00000001 0000000f 00 05265c00");
    add("date-time out of range", "00000001 00000010 00 000000ffffffffff 00000000 01");
    add("date-time of a zone", "00000001 00000010 00 0000000000258d89 00000000 03 ffffffff");
    add("offset of a week", "00000001 00000010 00 0000000000258d89 00000000 02 00093a80");
    add("colour of no model", "00000001 00000043 00 09 ffff 0000 0000 0000 0000");
    add("older stream", "00000001 00000000 01 ffffffff"); // before version 5.0, an empty text behind an invalid value
}

void tst_BVPlannelData::refusesUnsoundData()
{
    QFETCH(QByteArray, hex);
    QVariantList values{1};
    QVERIFY(!BVPlannelData::decode(QByteArray::fromHex(hex), &values));
    QCOMPARE(values, QVariantList{1});
}

QTEST_GUILESS_MAIN(tst_BVPlannelData)
#include "tst_bvplanneldata.moc"
