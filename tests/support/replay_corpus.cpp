// SPDX-License-Identifier: MIT
//
// Runs the entry function of a fuzz target, which aborts on a fault, once for each file of the
// folder BVWIDGETS_CORPUS.
#include <QtTest>

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size);

class replay_corpus : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void replays_data();
    void replays();
};

void replay_corpus::replays_data()
{
    QTest::addColumn<QString>("path");
    const QFileInfoList files = QDir(BVWIDGETS_CORPUS).entryInfoList(QDir::Files);
    QVERIFY(!files.isEmpty());
    for (const QFileInfo &info : files)
        QTest::newRow(qPrintable(info.fileName())) << info.filePath();
}

void replay_corpus::replays()
{
    QFETCH(QString, path);
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray input = file.readAll();
    const auto *const data = reinterpret_cast<const std::uint8_t *>(input.constData());
    QCOMPARE(LLVMFuzzerTestOneInput(data, std::size_t(input.size())), 0);
}

QTEST_GUILESS_MAIN(replay_corpus)
#include "replay_corpus.moc"
