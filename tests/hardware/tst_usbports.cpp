#include "hardware/unit/journal.h"
#include "hardware/usb/usbports.h"

#include "support/openunit.h"
#include "support/testmain.h"

#include <QTemporaryDir>
#include <QtTest>

using namespace hardware;

class TestUsbPorts : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void firstState();
    void modesAreKept();
    void refusesWhatThereIsNot_data();
    void refusesWhatThereIsNot();
    void testModeIsJournalled();
    void descriptionTellsTheState();
    void whatIsWrongIsSaid_data();
    void whatIsWrongIsSaid();

private:
    QScopedPointer<QTemporaryDir> m_folder;
    QScopedPointer<Journal> m_journal;
    QScopedPointer<UsbPorts> m_ports;
    QString m_error;
};

void TestUsbPorts::init()
{
    m_folder.reset(new QTemporaryDir);
    m_journal.reset(new Journal);
    m_ports.reset(new UsbPorts(*m_journal));
    writeFile(m_folder->filePath(QStringLiteral("usb.ini")), "[General]\n");
    QVERIFY2(m_ports->open(m_folder->filePath(QStringLiteral("usb.ini")), &m_error),
             qPrintable(m_error));
}

void TestUsbPorts::firstState()
{
    QCOMPARE(m_ports->bcMode(0), 0);
    QCOMPARE(m_ports->bcMode(1), 0);
    QCOMPARE(m_ports->certification(), int('O'));
}

void TestUsbPorts::modesAreKept()
{
    m_ports->setBcMode(1, 2);
    m_ports->setBcMode(0, 1);
    m_ports->setCertification('T');

    UsbPorts again(*m_journal);
    QVERIFY(again.open(m_folder->filePath(QStringLiteral("usb.ini")), &m_error));
    QCOMPARE(again.bcMode(0), 1);
    QCOMPARE(again.bcMode(1), 2);
    QCOMPARE(again.certification(), int('T'));
    QCOMPARE(m_journal->lines(),
             QStringList({QStringLiteral("usb port 1 SDP"), QStringLiteral("usb port 0 DCP"),
                          QStringLiteral("usb certification T")}));
}

void TestUsbPorts::refusesWhatThereIsNot_data()
{
    QTest::addColumn<int>("port");
    QTest::addColumn<int>("mode");
    QTest::addColumn<QString>("line");
    QTest::newRow("port 2") << 2 << 0 << QStringLiteral("usb refused port 2 mode 0");
    QTest::newRow("mode 3") << 0 << 3 << QStringLiteral("usb refused port 0 mode 3");
    QTest::newRow("certification") << -1 << 65 << QStringLiteral("usb refused certification 65");
}

void TestUsbPorts::refusesWhatThereIsNot()
{
    QFETCH(int, port);
    QFETCH(int, mode);
    QFETCH(QString, line);
    if (port < 0) {
        m_ports->setCertification(uint(mode));
    } else {
        m_ports->setBcMode(uint(port), uint(mode));
    }
    QCOMPARE(m_journal->lines(), QStringList(line));
    QCOMPARE(m_ports->bcMode(0), 0);
    QCOMPARE(m_ports->certification(), int('O'));
}

void TestUsbPorts::testModeIsJournalled()
{
    m_ports->setTestMode(4);
    QCOMPARE(m_journal->lines(), QStringList(QStringLiteral("usb test mode 4")));
}

void TestUsbPorts::descriptionTellsTheState()
{
    m_ports->setBcMode(1, 1);
    m_ports->setCertification('M');
    QCOMPARE(m_ports->description(),
             QStringList({QStringLiteral("port 0 CDP"), QStringLiteral("port 1 DCP"),
                          QStringLiteral("certification M")}));
}

void TestUsbPorts::whatIsWrongIsSaid_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("error");
    QTest::newRow("port out of range")
        << QByteArray("[General]\nport0=0\nport1=3\n")
        << "line 3: section \"General\": port1 \"3\" is not allowed; "
           "allowed is a whole number from 0 to 2.";
    QTest::newRow("certification") << QByteArray("[General]\ncertification=T\n")
                                   << "line 2: section \"General\": certification \"T\" is not "
                                      "allowed; allowed is 77, 79 or 84.";
    QTest::newRow("port that there is not")
        << QByteArray("[General]\nport2=0\n")
        << "line 2: section \"General\": field \"port2\" is not allowed; allowed is port0, port1, "
           "certification.";
}

void TestUsbPorts::whatIsWrongIsSaid()
{
    QFETCH(QByteArray, content);
    QFETCH(QString, error);
    const QString file = m_folder->filePath(QStringLiteral("usb.ini"));
    writeFile(file, content);
    UsbPorts ports(*m_journal);
    QVERIFY(!ports.open(file, &m_error));
    QCOMPARE(m_error, file + QStringLiteral(", ") + error);
}

FACTORY_TEST_GUILESS_MAIN(TestUsbPorts)
#include "tst_usbports.moc"
