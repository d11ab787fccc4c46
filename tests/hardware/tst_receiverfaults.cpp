#include "hardware/receiverfaults.h"

#include <QtTest>

using hardware::ReceiverFaults;

class TestReceiverFaults : public QObject
{
    Q_OBJECT

private slots:
    void adds();
    void refuses_data();
    void refuses();
    void helpNamesEachFault();
};

void TestReceiverFaults::adds()
{
    ReceiverFaults faults;
    QString error;
    for (const char *words : {"silence firmware 3", "hangup eot", "nak 2 5", "garbage 7", "noise 4",
                              "late-eot 900", "no-yc", "split-yc", "split-prompt", "no-rmc"}) {
        QVERIFY2(faults.add(QString::fromLatin1(words).split(QLatin1Char(' ')), &error),
                 qPrintable(error));
    }
    QCOMPARE(faults.silentStage, QStringLiteral("firmware"));
    QCOMPARE(faults.silentBlock, 3);
    QCOMPARE(faults.hangUpStage, QStringLiteral("eot"));
    QCOMPARE(faults.hangUpBlock, 0);
    QCOMPARE(faults.naks, 2);
    QCOMPARE(faults.nakBlock, 5);
    QCOMPARE(faults.garbageBlock, 7);
    QCOMPARE(faults.noiseBytes, 4);
    QCOMPARE(faults.lateEotMs, 900);
    QVERIFY(faults.withoutYc && faults.splitYc && faults.splitPrompt && faults.withoutRmc);
}

void TestReceiverFaults::refuses_data()
{
    QTest::addColumn<QString>("words");
    QTest::addColumn<QString>("error");
    const auto row = [](const char *words, const char *error) {
        QTest::newRow(words) << QString::fromLatin1(words) << QString::fromLatin1(error);
    };
    row("other", "the receiver has no fault \"other\"");
    row("nak 1", "the fault is \"nak COUNT BLOCK\"");
    row("nak 0 1", "the fault is \"nak COUNT BLOCK\"");
    row("nak 1 2 3", "the fault is \"nak COUNT BLOCK\"");
    row("silence", "the fault is \"silence STAGE [BLOCK]\"");
    row("silence nowhere",
        "the stages are configure, product, loader, bootloader, prompt, menu, "
        "firmware, sentences, eot");
    row("no-yc 1", "the fault is \"no-yc\"");
}

void TestReceiverFaults::refuses()
{
    QFETCH(QString, words);
    QFETCH(QString, error);
    ReceiverFaults faults;
    QString actual;
    QVERIFY(!faults.add(words.split(QLatin1Char(' ')), &actual));
    QVERIFY2(actual.contains(error), qPrintable(actual));
}

void TestReceiverFaults::helpNamesEachFault()
{
    QCOMPARE(ReceiverFaults::help().size(), 10);
}

QTEST_GUILESS_MAIN(TestReceiverFaults)
#include "tst_receiverfaults.moc"
