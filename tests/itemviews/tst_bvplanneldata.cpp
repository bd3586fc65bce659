// SPDX-License-Identifier: MIT
#include "itemviews/BVPlannelData_p.h"

#include <QDataStream>
#include <QTest>
#include <QUuid>

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
    const QVariantList sent{true,
                            -7,
                            7u,
                            qlonglong(-1),
                            qulonglong(1) << 63,
                            2.5,
                            QStringLiteral("Blank \u00e4"),
                            QString(),
                            QStringLiteral(""),
                            QByteArray("a\0b", 3),
                            QUuid::createUuid(),
                            QVariant(),
                            QVariant(QVariant::Int),
                            QVariantList{1},
                            QVariant::fromValue<void *>(this)};
    QVariantList expected = sent;
    expected[13] = expected[14] = QVariant();
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
