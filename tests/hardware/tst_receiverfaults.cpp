#include "hardware/receiver/receiverfaults.h"

#include "support/testmain.h"

#include <QtTest>

using hardware::ReceiverFaults;

namespace
{

void add(ReceiverFaults &faults, const QString &words)
{
    QString error;
    QVERIFY2(faults.add(words.split(QLatin1Char(' ')), &error), qPrintable(words + ": " + error));
}

} // namespace

class TestReceiverFaults : public QObject
{
    Q_OBJECT

private slots:
    void adds();
    void oneOfTheSameKindAddsOrReplaces();
    void refuses_data();
    void refuses();
    void splitYcExcludesNoYc();
    void helpNamesEachFault();
};

void TestReceiverFaults::adds()
{
    ReceiverFaults faults;
    for (const char *words :
         {"silence firmware 3", "silence loader", "hangup eot", "nak 2 5", "garbage 7 firmware",
          "noise 4", "late-eot 900", "split-yc", "split-prompt", "no-rmc"}) {
        add(faults, words);
    }
    QVERIFY(!faults.isSilent("firmware", 0) && !faults.isSilent("firmware", 2));
    QVERIFY(faults.isSilent("firmware", 3) && faults.isSilent("firmware", 4));
    QVERIFY(faults.isSilent("loader", 0) && !faults.isSilent("product", 0));
    QVERIFY(faults.hangsUp("eot", 0) && !faults.hangsUp("eot", 1) && !faults.hangsUp("menu", 0));
    QCOMPARE(faults.refusals("bootloader"), (QMap<int, int>{{5, 2}}));
    QCOMPARE(faults.refusals("firmware"), (QMap<int, int>{{5, 2}}));
    QVERIFY(faults.isGarbage("firmware", 7) && !faults.isGarbage("firmware", 6)
            && !faults.isGarbage("bootloader", 7));
    QCOMPARE(faults.number("noise"), 4);
    QCOMPARE(faults.number("late-eot"), 900);
    QVERIFY(faults.has("split-yc") && faults.has("split-prompt") && faults.has("no-rmc"));
    QVERIFY(!faults.has("no-yc"));
}

void TestReceiverFaults::oneOfTheSameKindAddsOrReplaces()
{
    ReceiverFaults faults;
    for (const char *words :
         {"nak 3 5", "nak 1 05 firmware", "nak 2 9 firmware", "garbage 4", "garbage 2 firmware",
          "silence prompt", "silence firmware 3", "silence firmware 7", "hangup bootloader 2",
          "hangup bootloader", "hangup menu", "noise 4", "noise 6", "no-yc", "no-yc"}) {
        add(faults, words);
    }
    const QStringList list{"garbage 4 bootloader",
                           "garbage 2 firmware",
                           "garbage 4 firmware",
                           "hangup bootloader",
                           "hangup menu",
                           "nak 3 5 bootloader",
                           "nak 1 5 firmware",
                           "nak 2 9 firmware",
                           "no-yc",
                           "noise 6",
                           "silence firmware 7",
                           "silence prompt"};
    QCOMPARE(faults.list(), list);
    // What it lists is what it takes.
    ReceiverFaults again;
    for (const QString &words : list) {
        add(again, words);
    }
    QCOMPARE(again.list(), list);
}

void TestReceiverFaults::refuses_data()
{
    QTest::addColumn<QString>("words");
    QTest::addColumn<QString>("error");
    const auto row = [](const char *words, const char *error) {
        QTest::newRow(words) << QString::fromLatin1(words) << QString::fromLatin1(error);
    };
    row("other", "the receiver has no fault \"other\"");
    row("nak 1", "the fault is \"nak COUNT BLOCK [IMAGE]\"");
    row("nak 1 2 firmware 3", "the fault is \"nak COUNT BLOCK [IMAGE]\"");
    row("nak 0 1", "COUNT is a whole number from 1 to 1000, not \"0\"");
    row("nak 1001 1", "COUNT is a whole number from 1 to 1000, not \"1001\"");
    row("nak 1 0", "BLOCK is a whole number from 1 to 2097152, not \"0\"");
    row("nak 1 2097153", "BLOCK is a whole number from 1 to 2097152, not \"2097153\"");
    row("nak 1 2 menu", "IMAGE is one of bootloader, firmware, not \"menu\"");
    row("garbage x", "BLOCK is a whole number from 1 to 2097152, not \"x\"");
    row("noise 10001", "BYTES is a whole number from 1 to 10000, not \"10001\"");
    row("late-eot -1", "MS is a whole number from 1 to 3600000, not \"-1\"");
    row("silence", "the fault is \"silence STAGE [BLOCK]\"");
    row("silence nowhere",
        "STAGE is one of configure, product, loader, bootloader, prompt, menu, firmware, "
        "sentences, eot, not \"nowhere\"");
    row("silence firmware 0", "BLOCK is a whole number from 1 to 2097152, not \"0\"");
    row("silence prompt 3", "the stage \"prompt\" has no blocks");
    row("hangup eot 1", "the stage \"eot\" has no blocks");
    row("no-yc 1", "the fault is \"no-yc\"");
    row("split-yc", "with \"no-yc\" there is no \"YC\" to split");
}

void TestReceiverFaults::refuses()
{
    QFETCH(QString, words);
    QFETCH(QString, error);
    ReceiverFaults faults;
    add(faults, "no-yc");
    QString actual;
    QVERIFY(!faults.add(words.split(QLatin1Char(' ')), &actual));
    QCOMPARE(actual, error);
    QCOMPARE(faults.list(), QStringList("no-yc"));
}

void TestReceiverFaults::splitYcExcludesNoYc()
{
    ReceiverFaults faults;
    add(faults, "split-yc");
    QString error;
    QVERIFY(!faults.add({"no-yc"}, &error));
    QCOMPARE(error, QString("with \"split-yc\" there is a \"YC\""));
}

void TestReceiverFaults::helpNamesEachFault()
{
    QCOMPARE(ReceiverFaults::help().size(), 10);
}

FACTORY_TEST_GUILESS_MAIN(TestReceiverFaults)
#include "tst_receiverfaults.moc"
