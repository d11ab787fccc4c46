#include "hardware/light/keylight.h"

#include "hardware/unit/journal.h"
#include "hardware/unit/mcu.h"
#include "support/testmain.h"

#include <QSignalSpy>
#include <QtTest>

using hardware::Journal;
using hardware::KeyColor;
using hardware::KeyLight;
using hardware::Mcu;

class tst_KeyLight : public QObject
{
    Q_OBJECT

private slots:
    void theMessageSetsTheColour();
    void anImpossibleColourIsRefused();
    void otherMessagesChangeNothing_data();
    void otherMessagesChangeNothing();
};

void tst_KeyLight::theMessageSetsTheColour()
{
    Journal journal;
    Mcu mcu(journal);
    KeyLight light(journal, mcu);
    QSignalSpy changed(&light, &KeyLight::colorChanged);
    mcu.send(QByteArray::fromHex("ff66061584fe 00 32 64 ff"));
    const KeyColor color = light.color();
    QCOMPARE(color.red, 0);
    QCOMPARE(color.green, 50);
    QCOMPARE(color.blue, 100);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(journal.lines(),
             (QStringList{QStringLiteral("mcu FF 66 06 15 84 FE 00 32 64 FF"),
                          QStringLiteral("keylight 0 50 100")}));
}

void tst_KeyLight::anImpossibleColourIsRefused()
{
    Journal journal;
    Mcu mcu(journal);
    KeyLight light(journal, mcu);
    const int red = light.color().red;
    mcu.send(QByteArray::fromHex("ff66061584fe 65 32 64 ff"));
    QCOMPARE(journal.lines().constLast(), QStringLiteral("keylight refused 101 50 100"));
    QCOMPARE(light.color().red, red);
}

void tst_KeyLight::otherMessagesChangeNothing_data()
{
    QTest::addColumn<QByteArray>("message");
    QTest::newRow("another command") << QByteArray::fromHex("ff66061584ff010203ff");
    QTest::newRow("another end") << QByteArray::fromHex("ff66061584fe010203fe");
    QTest::newRow("a byte short") << QByteArray::fromHex("ff66061584fe0102ff");
    QTest::newRow("a byte long") << QByteArray::fromHex("ff66061584fe01020304ff");
    QTest::newRow("no byte") << QByteArray();
}

void tst_KeyLight::otherMessagesChangeNothing()
{
    QFETCH(QByteArray, message);
    Journal journal;
    Mcu mcu(journal);
    KeyLight light(journal, mcu);
    QSignalSpy changed(&light, &KeyLight::colorChanged);
    mcu.send(message);
    QCOMPARE(changed.count(), 0);
    QCOMPARE(journal.lines(QStringLiteral("/^keylight/")), QStringList());
}

FACTORY_TEST_GUILESS_MAIN(tst_KeyLight)
#include "tst_keylight.moc"
