#include "receiverline.h"

#include "hardware/receiver/xmodemreceiver.h"
#include "hardware/unit/unit.h"

#include "support/testmain.h"

#include <QScopedPointer>
#include <QtTest>

using hardware::XmodemReceiver;

/// The receiver's loader, talked to by hand.
class TestReceiverLoader : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void tellsItsStages();
    void aLastBlockThatIsNotFilledUpIsRefused();
    void anImageThatCannotBeWrittenIsSaid();

private:
    QString stage() { return m_line->receiver().progress().stage; }
    QStringList told(const QString &pattern) { return m_line->unit().journal().lines(pattern); }
    /// Until the loader asks for the first block of the boot loader.
    void enterLoader();
    /// Sends the image, whose last block is filled up with \a padding, and the transfer's end.
    void send(const QByteArray &image, char padding);

    QScopedPointer<ReceiverLine> m_line;
};

namespace
{

const char eot = 0x04;
const char filler = 0x1A;

} // namespace

void TestReceiverLoader::init()
{
    m_line.reset();
    m_line.reset(new ReceiverLine);
}

void TestReceiverLoader::enterLoader()
{
    m_line->say("$RESET,hf0,hff\n");
    QTRY_COMPARE(stage(), QString("rom"));
    QTRY_VERIFY(!told("receiver reset").isEmpty());
    m_line->say("M!T");
    QVERIFY(m_line->hears("C"));
}

void TestReceiverLoader::send(const QByteArray &image, char padding)
{
    for (int begin = 0, number = 1; begin < image.size(); ++number) {
        const QByteArray data = image.mid(begin, XmodemReceiver::blockSize);
        begin += data.size();
        m_line->say(xmodemFrame(number, data.leftJustified(XmodemReceiver::blockSize, padding)));
        QVERIFY(m_line->hears(QByteArray(1, XmodemReceiver::ack)));
    }
    m_line->say(QByteArray(1, eot));
}

void TestReceiverLoader::tellsItsStages()
{
    QCOMPARE(stage(), QString("run"));
    enterLoader();
    QCOMPARE(stage(), QString("bootloader"));
    send(receiverPackage(QByteArray(1468, 'p')), filler);
    QVERIFY(m_line->hears("boot> "));
    QCOMPARE(stage(), QString("prompt"));
    QCOMPARE(m_line->receiver().progress().blocks, 2);
    m_line->say("2\r");
    QVERIFY(m_line->hears("uart\r\nC"));
    QCOMPARE(stage(), QString("firmware"));
    QCOMPARE(m_line->receiver().progress().blocks, 0);
    send(receiverPackage(QByteArray(2968, 'p')), filler);
    QVERIFY(m_line->hears(QByteArray(1, XmodemReceiver::ack)));
    QCOMPARE(m_line->receiver().progress().blocks, 3);
    QTRY_COMPARE(stage(), QString("run"));
}

void TestReceiverLoader::aLastBlockThatIsNotFilledUpIsRefused()
{
    enterLoader();
    send(receiverPackage(QByteArray(868, 'p')), '\0');
    QVERIFY(m_line->hears(QByteArray(1, XmodemReceiver::nak)));
    QCOMPARE(told("filled up"),
             QStringList("receiver bootloader has a last block that is not filled up with 1A"));
    QCOMPARE(stage(), QString("bootloader"));
    QVERIFY(!QFile::exists(m_line->path("/receiver/bootloader.pkg")));
}

void TestReceiverLoader::anImageThatCannotBeWrittenIsSaid()
{
    const QString inTheWay = m_line->path("/receiver");
    QVERIFY(QDir(inTheWay).removeRecursively());
    writeFile(inTheWay, "no folder");
    const QString image = inTheWay + "/bootloader.pkg";
    enterLoader();
    send(receiverPackage(QByteArray(868, 'p')), filler);
    QVERIFY(m_line->hears("boot> "));
    QCOMPARE(told("cannot write"),
             (QStringList{"unit cannot write " + image + ": Not a directory",
                          "receiver cannot write " + image}));
    QCOMPARE(readFile(inTheWay), QByteArray("no folder"));
}

FACTORY_TEST_GUILESS_MAIN(TestReceiverLoader)
#include "tst_receiverloader.moc"
