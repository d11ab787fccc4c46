#include "hardware/unit/mcu.h"

#include "hardware/unit/journal.h"
#include "support/testmain.h"

#include <QSignalSpy>
#include <QtTest>

#include <thread>
#include <vector>

using hardware::Journal;
using hardware::Mcu;

class tst_Mcu : public QObject
{
    Q_OBJECT

private slots:
    void aMessageIsJournalledInHexadecimal_data();
    void aMessageIsJournalledInHexadecimal();
    void aMessageIsPassedOn();
    void aBeepIsJournalledWithItsType();
    void aRebootIsJournalledAndHeard();
    void eightThreadsSendWholeMessages();
};

void tst_Mcu::aMessageIsJournalledInHexadecimal_data()
{
    QTest::addColumn<QByteArray>("message");
    QTest::addColumn<QString>("line");

    QTest::newRow("update hand-over")
        << QByteArray::fromHex("ff6605 1b8e0500 00ff") << "mcu FF 66 05 1B 8E 05 00 00 FF";
    QTest::newRow("one byte") << QByteArray("\x0a") << "mcu 0A";
    QTest::newRow("no byte") << QByteArray() << "mcu ";
}

void tst_Mcu::aMessageIsJournalledInHexadecimal()
{
    QFETCH(QByteArray, message);
    QFETCH(QString, line);

    Journal journal;
    Mcu mcu(journal);
    mcu.send(message);
    QCOMPARE(journal.lines(), QStringList{line});
}

void tst_Mcu::aMessageIsPassedOn()
{
    Journal journal;
    Mcu mcu(journal);
    QSignalSpy spy(&mcu, &Mcu::messageReceived);
    const QByteArray message("\0\xff", 2);
    mcu.send(message);
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.at(0).at(0).toByteArray(), message);
}

void tst_Mcu::aBeepIsJournalledWithItsType()
{
    Journal journal;
    Mcu mcu(journal);
    mcu.beep(0);
    mcu.beep(2);
    QCOMPARE(journal.lines(),
             (QStringList{QStringLiteral("mcu beep 0"), QStringLiteral("mcu beep 2")}));
}

void tst_Mcu::aRebootIsJournalledAndHeard()
{
    Journal journal;
    Mcu mcu(journal);
    QStringList whenHeard;
    connect(&mcu, &Mcu::rebootRequested, [&] { whenHeard = journal.lines(); });
    mcu.reboot();
    QCOMPARE(whenHeard, QStringList{QStringLiteral("mcu reboot")});
}

void tst_Mcu::eightThreadsSendWholeMessages()
{
    constexpr int threadCount = 8;
    constexpr int messagesEach = 200;
    Journal journal;
    Mcu mcu(journal);
    std::vector<std::thread> threads;
    for (int thread = 0; thread < threadCount; ++thread) {
        threads.emplace_back([&mcu, thread] {
            for (int i = 0; i < messagesEach; ++i) {
                mcu.send(QByteArray(16, char(thread)));
            }
        });
    }
    for (std::thread &thread : threads) {
        thread.join();
    }
    for (int thread = 0; thread < threadCount; ++thread) {
        QCOMPARE(journal.lines(QStringLiteral("/^mcu( 0%1){16}$/").arg(thread)).size(),
                 messagesEach);
    }
}

FACTORY_TEST_GUILESS_MAIN(tst_Mcu)
#include "tst_mcu.moc"
