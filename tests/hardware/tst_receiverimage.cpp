#include "hardware/receiver/receiverimage.h"
#include "hardware/receiver/xmodemreceiver.h"
#include "support/testmain.h"

#include <QtEndian>
#include <QtTest>

using hardware::ReceiverImage;

class TestReceiverImage : public QObject
{
    Q_OBJECT

private slots:
    void content_data();
    void content();
    void wrongFilling();
    void version_data();
    void version();
};

namespace
{

QByteArray package(const QByteArray &payload)
{
    const quint32 length = qToLittleEndian(quint32(payload.size()));
    QByteArray header(32, '\0');
    header.replace(12, 4, reinterpret_cast<const char *>(&length), 4);
    const quint16 crc = qToLittleEndian(hardware::xmodemCrc(header.constData(), 28));
    header.replace(28, 2, reinterpret_cast<const char *>(&crc), 2);
    return header + payload;
}

QByteArray filledUp(const QByteArray &bytes)
{
    return bytes + QByteArray(-bytes.size() & 1023, '\x1A');
}

} // namespace

void TestReceiverImage::content_data()
{
    QTest::addColumn<QByteArray>("sent");
    QTest::newRow("package") << package(QByteArray(500, 'x'));
    QTest::newRow("two sections") << package(QByteArray(700, 'x')) + package(QByteArray(900, 'y'));
    QTest::newRow("a whole block") << package(QByteArray(992, 'x'));
    QTest::newRow("ends in what looks like filling") << package(QByteArray(500, '\x1A'));
    QTest::newRow("trailing bytes") << package(QByteArray(500, 'x')) + QByteArray(32, 't');
    QTest::newRow("no package") << QByteArray(1500, 'n');
}

void TestReceiverImage::content()
{
    QFETCH(QByteArray, sent);
    const ReceiverImage image(filledUp(sent));
    QCOMPARE(image.content(), sent);
    QVERIFY(image.isFilledUpRight());
}

void TestReceiverImage::wrongFilling()
{
    QByteArray blocks = filledUp(package(QByteArray(500, 'x')));
    blocks[600] = '\0';
    QVERIFY(!ReceiverImage(blocks).isFilledUpRight());
}

void TestReceiverImage::version_data()
{
    QTest::addColumn<QByteArray>("image");
    QTest::addColumn<QString>("version");
    QTest::newRow("ends at a zero byte")
        << QByteArray("..GNSS-VERSION=GNSS 2.1\0rest", 28) << QStringLiteral("GNSS 2.1");
    QTest::newRow("ends at the end") << QByteArray("GNSS-VERSION=7") << QStringLiteral("7");
    // The catalogue's check value of CRC-16/XMODEM.
    QTest::newRow("none") << QByteArray("123456789") << QStringLiteral("unmarked 31c3");
}

void TestReceiverImage::version()
{
    QFETCH(QByteArray, image);
    QFETCH(QString, version);
    QCOMPARE(ReceiverImage(image).version(), version);
}

FACTORY_TEST_GUILESS_MAIN(TestReceiverImage)
#include "tst_receiverimage.moc"
