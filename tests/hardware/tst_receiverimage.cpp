#include "receiverline.h"

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

QByteArray filledUp(const QByteArray &bytes)
{
    return bytes + QByteArray(-bytes.size() & 1023, '\x1A');
}

} // namespace

void TestReceiverImage::content_data()
{
    QTest::addColumn<QByteArray>("sent");
    QTest::newRow("package") << receiverPackage(QByteArray(500, 'x'));
    QTest::newRow("two sections") << receiverPackage(QByteArray(700, 'x'))
            + receiverPackage(QByteArray(900, 'y'));
    QTest::newRow("a whole block") << receiverPackage(QByteArray(992, 'x'));
    QTest::newRow("ends in what looks like filling") << receiverPackage(QByteArray(500, '\x1A'));
    QTest::newRow("trailing bytes") << receiverPackage(QByteArray(500, 'x')) + QByteArray(32, 't');
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
    QByteArray blocks = filledUp(receiverPackage(QByteArray(500, 'x')));
    blocks[600] = '\0';
    QVERIFY(!ReceiverImage(blocks).isFilledUpRight());
    const QByteArray zeros(492, '\0');
    QVERIFY(!ReceiverImage(receiverPackage(QByteArray(500, 'x')) + zeros).isFilledUpRight());
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
