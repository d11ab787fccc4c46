#include "gps/gpspackage.h"

#include "conversation.h"
#include "recordedreads.h"
#include "stdoutcapture.h"

#include "support/testmain.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

class TestGpsPackage : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();

    void crc_data();
    void crc();
    void dumpsHex_data();
    void dumpsHex();
    void fileSize();

    void checksAFile_data();
    void checksAFile();
    void everyKindIsTested();
    void readsThePayloadByAKilobyteIntoAClearBuffer();
    void fileOf32BytesOrFewerPassesWithoutReadingAHeader();
    void zeroLengthFileFails();
    void wrongSumFailsAfterPrintingBothValues();
    void payloadPastTheEndEndsTheCheck();
    void firstHeaderWordIsNeverCompared();
    void missingFile();
    void filesAreClosed();

private:
    QByteArray made(const char *kind) const;
    QByteArray written(const QByteArray &content) const;

    QTemporaryDir m_folder;
};

namespace
{

QByteArray checked(const QByteArray &path, int *result)
{
    const StdoutCapture output;
    *result = check_file(path.constData(), 0xF0F1F2F3);
    return output.text();
}

} // namespace

/// The script's package of that kind.
QByteArray TestGpsPackage::made(const char *kind) const
{
    return QFile::encodeName(m_folder.filePath(QString::fromLatin1(kind) + QStringLiteral(".pkg")));
}

QByteArray TestGpsPackage::written(const QByteArray &content) const
{
    QFile file(m_folder.filePath(QStringLiteral("written")));
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size()) {
        qFatal("The test's file cannot be written.");
    }
    return QFile::encodeName(file.fileName());
}

void TestGpsPackage::initTestCase()
{
    QCOMPARE(QProcess::execute(QStringLiteral(MAKE_GPS_PACKAGE),
                               {QStringLiteral("--all"), m_folder.path()}),
             0);
}

void TestGpsPackage::crc_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<uint>("crc");
    // The check value of CRC-16/XMODEM in the catalogue of CRC algorithms, and by hand: a message
    // with its CRC behind it leaves 0; the first bit alone is the polynomial shifted 16 times.
    QTest::newRow("check value") << QByteArray("123456789") << 0x31C3u;
    QTest::newRow("with its own CRC") << QByteArray("123456789\x31\xC3") << 0u;
    QTest::newRow("nothing") << QByteArray() << 0u;
    QTest::newRow("one bit") << QByteArray("\x01", 1) << 0x1021u;
}

void TestGpsPackage::crc()
{
    QFETCH(QByteArray, bytes);
    QFETCH(uint, crc);
    QCOMPARE(uint(get_crc16(bytes.constData(), std::uint16_t(bytes.size()))), crc);
}

void TestGpsPackage::dumpsHex_data()
{
    QTest::addColumn<int>("length");
    QTest::addColumn<QByteArray>("text");
    const QByteArray line0 = "0000: 00 01 02 03 04 05 06 07 - 08 09 0a 0b 0c 0d 0e 0f\n";
    QTest::newRow("nothing") << 0 << QByteArray();
    QTest::newRow("one byte") << 1 << QByteArray("0000: 00\n");
    QTest::newRow("half a line") << 8 << QByteArray("0000: 00 01 02 03 04 05 06 07\n");
    QTest::newRow("nine") << 9 << QByteArray("0000: 00 01 02 03 04 05 06 07 - 08\n");
    QTest::newRow("a line") << 16 << line0;
    QTest::newRow("more") << 18 << line0 + "0010: 10 11\n";
    QTest::newRow("two lines") << 32
                               << line0
            + "0010: 10 11 12 13 14 15 16 17 - 18 19 1a 1b 1c 1d 1e 1f\n";
}

void TestGpsPackage::dumpsHex()
{
    QFETCH(int, length);
    QFETCH(QByteArray, text);
    QByteArray bytes;
    for (int index = 0; index < length; ++index) {
        bytes.append(char(index));
    }
    const StdoutCapture output;
    dump(bytes.constData(), length);
    QCOMPARE(output.text(), text);
}

void TestGpsPackage::fileSize()
{
    QCOMPARE(get_file_size(written(QByteArray(12345, 'x')).constData()), 12345);
    QCOMPARE(get_file_size(written(QByteArray()).constData()), 0);
    QCOMPARE(get_file_size("/nowhere/at/all"), -1);
}

void TestGpsPackage::checksAFile_data()
{
    QTest::addColumn<QByteArray>("kind");
    QTest::addColumn<int>("result");
    const auto row = [](const QByteArray &kind, int result) {
        QTest::newRow(kind.constData()) << kind << result;
    };
    for (const char *kind : {"valid", "sections", "other-magic", "odd-length", "word-length",
                             "block-length", "empty-payload", "size-32"}) {
        row(kind, 0);
    }
    for (const char *kind :
         {"size-0", "size-33", "bad-header", "bad-header-crc", "bad-sum", "bad-second-section",
          "truncated", "length-ffffffff", "length-past-end"}) {
        row(kind, -1);
    }
    for (int count = 1; count <= 40; ++count) {
        row("trailing-" + QByteArray::number(count), count <= 32 ? 0 : -1);
    }
}

void TestGpsPackage::checksAFile()
{
    QFETCH(QByteArray, kind);
    QFETCH(int, result);
    int actual = 0;
    const QByteArray output = checked(made(kind.constData()), &actual);
    QVERIFY2(actual == result, output.constData());
}

void TestGpsPackage::everyKindIsTested()
{
    QProcess list;
    list.start(QStringLiteral(MAKE_GPS_PACKAGE), {QStringLiteral("--list")});
    QVERIFY(list.waitForFinished());
    QCOMPARE(list.readAll().count('\n'), 8 + 9 + 40);
}

void TestGpsPackage::readsThePayloadByAKilobyteIntoAClearBuffer()
{
    // Two payload words that are not zero, in a block and a half.
    QByteArray header(12, '\0');
    header += QByteArray("\x02\x06\x00\x00", 4); // 1538
    header += QByteArray(12, '\0');
    const uint crc = get_crc16(header.constData(), 28);
    header += char(crc);
    header += char(crc >> 8);
    header += QByteArray(2, '\0');
    const QByteArray path = written(header + QByteArray(1538, 'x'));
    const RecordedReads reads;
    int result = 0;
    checked(path, &result);
    using Reads = QVector<RecordedReads::Read>;
    QCOMPARE(reads.all(), Reads({{32, false}, {1024, true}, {514, true}}));
}

void TestGpsPackage::fileOf32BytesOrFewerPassesWithoutReadingAHeader()
{
    for (const int size : {1, 31, 32}) {
        int result = -1;
        const QByteArray output = checked(written(QByteArray(size, '\xFF')), &result);
        QCOMPARE(result, 0);
        QCOMPARE(output, QByteArray("file size [" + QByteArray::number(size) + "]\n"));
    }
}

void TestGpsPackage::zeroLengthFileFails()
{
    int result = 0;
    QCOMPARE(checked(made("size-0"), &result), QByteArray("file size [0]\n"));
    QCOMPARE(result, -1);
}

void TestGpsPackage::wrongSumFailsAfterPrintingBothValues()
{
    int result = 0;
    const QByteArray output = checked(made("bad-sum"), &result);
    QCOMPARE(result, -1);
    QCOMPARE(output.count("crc16  ["), 1);
    QCOMPARE(output.count("checksum  ["), 1);
    QVERIFY(output.endsWith("]\n\n"));
    // A header that is wrong ends it before the sum.
    QCOMPARE(checked(made("bad-header-crc"), &result).count("checksum  ["), 0);
}

void TestGpsPackage::payloadPastTheEndEndsTheCheck()
{
    for (const char *kind : {"truncated", "length-past-end", "length-ffffffff"}) {
        int result = 0;
        QCOMPARE(checked(made(kind), &result).count("checksum  ["), 0);
        QCOMPARE(result, -1);
    }
}

void TestGpsPackage::firstHeaderWordIsNeverCompared()
{
    for (const char *kind : {"valid", "other-magic"}) {
        const StdoutCapture output;
        QCOMPARE(check_file(made(kind).constData(), 0xF0F1F2F3), 0);
        QCOMPARE(check_file(made(kind).constData(), 0xF3F4F5F6), 0);
        QCOMPARE(check_file(made(kind).constData(), 0), 0);
    }
}

void TestGpsPackage::missingFile()
{
    int result = 0;
    QCOMPARE(checked("/nowhere/at/all", &result),
             QByteArray("\n can't open this file or not exist!(errno=2:No such file or directory) "
                        "\n"));
    QCOMPARE(result, -1);
}

void TestGpsPackage::filesAreClosed()
{
    const int before = openFiles();
    for (const char *kind : {"valid", "size-0", "bad-header-crc", "bad-sum", "truncated"}) {
        int result = 0;
        checked(made(kind), &result);
    }
    QCOMPARE(openFiles(), before);
}

FACTORY_TEST_GUILESS_MAIN(TestGpsPackage)
#include "tst_gpspackage.moc"
