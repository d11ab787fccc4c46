#include "panel/mcumessage.h"

#include "support/testmain.h"

#include <QtTest>

class TestMcuMessage : public QObject
{
    Q_OBJECT

private slots:
    void whatIsKnownIsSaid_data();
    void whatIsKnownIsSaid();
};

void TestMcuMessage::whatIsKnownIsSaid_data()
{
    QTest::addColumn<QString>("meaning");
    QTest::newRow("FF 66 06 15 84 FE 00 32 FF FF") << "key light: red 0, green 50, blue 255";
    QTest::newRow("FF 66 06 15 84 FE 00 32 FF") << "";
    QTest::newRow("FF 66 05 1B 8E 05 00 00 FF") << "the user software is to be updated";
    QTest::newRow("FF 66 05 1B 8E 05 00 01 FF") << "";
    QTest::newRow("reboot") << "restarts the unit";
    QTest::newRow("update ready 1") << "an update may begin at any moment";
    QTest::newRow("update ready 0") << "no update is near any more";
    QTest::newRow("beep 3") << "a tone";
}

void TestMcuMessage::whatIsKnownIsSaid()
{
    QFETCH(QString, meaning);
    QCOMPARE(panel::mcuMeaning(QTest::currentDataTag()), meaning);
}

FACTORY_TEST_GUILESS_MAIN(TestMcuMessage)
#include "tst_mcumessage.moc"
