#include "service/filedeviceparser.h"

#include "support/testmain.h"
#include "support/testunit.h"

#include <QtTest>

class TestFileDeviceParser : public QObject
{
    Q_OBJECT

private slots:
    void listsMountRootsOfTheTypeInMountOrder();
    void startParserIsJournalled();
};

void TestFileDeviceParser::listsMountRootsOfTheTypeInMountOrder()
{
    TestUnit unit;
    FileDeviceParser *parser = FileDeviceParser::getInstance();
    QCOMPARE(parser->getMountDeviceByType(FileDeviceParser::MediaType1), QStringList());
    for (const char *slot : {"usb1", "sd1", "usb0"}) {
        unit.plug(QLatin1String(slot));
    }
    QCOMPARE(parser->getMountDeviceByType(FileDeviceParser::MediaType1),
             QStringList({QStringLiteral("/media/usb1"), QStringLiteral("/media/usb0")}));
    QCOMPARE(parser->getMountDeviceByType(FileDeviceParser::MediaType2),
             QStringList(QStringLiteral("/media/sd1")));
}

void TestFileDeviceParser::startParserIsJournalled()
{
    const TestUnit unit;
    FileDeviceParser::getInstance()->startParser(QStringLiteral("/media/usb1"));
    QCOMPARE(unit.journal(QStringLiteral("media scan")),
             QStringList(QStringLiteral("media scan /media/usb1")));
}

FACTORY_TEST_MAIN(TestFileDeviceParser)
#include "tst_filedeviceparser.moc"
