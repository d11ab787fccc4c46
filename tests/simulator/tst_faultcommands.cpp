#include "simulator/commands/allcommands.h"

#include "testsimulator.h"

#include "support/testmain.h"
#include "unitlink/calls.h"

#include <QtTest>

/// Whatever can be made to fail; that it then does, the devices' own tests show.
class TestFaultCommands : public QObject
{
    Q_OBJECT

private slots:
    void refuses_data();
    void refuses();
    void isListedUntilItIsEnded_data();
    void isListedUntilItIsEnded();
    void callsReceiverAndStorageHaveSeveral();
    void othersHaveOneAtATime();
    void noneEndsAll();
    void tellsWhatCanFail();
    void everyCallThatIsListedIsTaken();
    void whatASticksFaultsAreIsTold();
    void verbsSayWhatAStickIsLike();
    void verbsOfSticksRefuse_data();
    void verbsOfSticksRefuse();
};

namespace
{

/// What fails now.
QStringList present(TestSimulator &unit)
{
    const QStringList lines = unit.run("fault").lines;
    return lines.mid(lines.indexOf("What does:") + 1);
}

} // namespace

void TestFaultCommands::refuses_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("error");
    const auto unknown =
        QStringLiteral("there is no call \"%1\" that can fail; \"fault call\" lists them");
    QTest::newRow("no call") << "fault call fire" << unknown.arg("fire");
    QTest::newRow("nearly a call")
        << "fault call ThreadPool::adTask"
        << unknown.arg("ThreadPool::adTask") + "; near: ThreadPool::addTask";
    QTest::newRow("with an argument")
        << "fault call \"ThreadPool::addTask 1\""
        << unknown.arg("ThreadPool::addTask 1") + "; near: ThreadPool::addTask";
    QTest::newRow("relative path") << "fault call \"open media\"" << unknown.arg("open media");
    QTest::newRow("of no path") << "fault call \"select /dev\"" << unknown.arg("select /dev");
    QTest::newRow("number") << "fault call \"system sync\" 0"
                            << "N is a whole number from 1 to 2147483647, not \"0\"";
    QTest::newRow("no quotes") << "fault call \"open /dev\" /mem 1"
                               << "N is a whole number from 1 to 2147483647, not \"/mem\"";
    const auto allowed = QStringLiteral("only N, one of %1, and \"on\" may follow behind \"%2\"");
    QTest::newRow("no such failure") << "fault call \"read /dev/ttyS3\" 1 EPERM"
                                     << allowed.arg("EIO, EINTR, short", "read /dev/ttyS3");
    QTest::newRow("two failures") << "fault call select 2 EINTR ENOMEM on"
                                  << allowed.arg("EINTR, ENOMEM", "select");
    QTest::newRow("two ends") << "fault call system 2 on on"
                              << allowed.arg("1, 127, EAGAIN, killed", "system");
    QTest::newRow("failure of the platform's")
        << "fault call ThreadPool::addTask 1 EIO"
        << "only N and \"on\" may follow behind \"ThreadPool::addTask\"";
    QTest::newRow("no device")
        << "fault memry missing"
        << "there is no device \"memry\", only: call, dab, memory, ncm, receiver, "
           "storage, update, vendor; near: memory";
    const auto none = QStringLiteral("there is no such fault \"fire\"; there is: %1");
    QTest::newRow("dab") << "fault dab fire" << none.arg("fail, stall, mute");
    QTest::newRow("dab: place") << "fault dab fail 100"
                                << "PERCENT is a whole number from 0 to 99, not \"100\"";
    QTest::newRow("dab: no place") << "fault dab mute 5"
                                   << "nothing may follow behind \"mute\"";
    QTest::newRow("memory") << "fault memory fire" << none.arg("missing, map-refused");
    QTest::newRow("memory: more") << "fault memory missing twice"
                                  << "nothing may follow behind \"missing\"";
    QTest::newRow("ncm") << "fault ncm fire" << none.arg("refused");
    QTest::newRow("receiver") << "fault receiver silence prompt 3"
                              << "the stage \"prompt\" has no blocks";
    QTest::newRow("storage") << "fault storage usb0"
                             << "of a storage slot there is only: full SLOT, write-protected SLOT, "
                                "slow SLOT BYTES";
    QTest::newRow("storage: slow") << "fault storage slow usb0 0"
                                   << "BYTES is a whole number from 1 to 2147483647, not \"0\"";
    QTest::newRow("storage: slot")
        << "fault storage full usb9"
        << "There is no slot \"usb9\"; the slots are: usb0, usb1, sd0, sd1.";
    QTest::newRow("update") << "fault update fire" << none.arg("silent, no-data");
    QTest::newRow("vendor") << "fault vendor fire" << none.arg("look-up, write");
}

void TestFaultCommands::refuses()
{
    QFETCH(QString, line);
    QFETCH(QString, error);
    TestSimulator unit;
    QCOMPARE(unit.errorOf(line), error);
    QCOMPARE(present(unit), QStringList());
}

void TestFaultCommands::isListedUntilItIsEnded_data()
{
    QTest::addColumn<QString>("listed");
    QTest::newRow("call McuMsgModule::sendMsgToMcu") << "call 1 McuMsgModule::sendMsgToMcu";
    QTest::newRow("call \"system sync\" 3") << "call 3 system sync";
    QTest::newRow("dab fail") << "dab fail 50";
    QTest::newRow("dab stall 20") << "dab stall 20";
    QTest::newRow("dab mute") << "dab mute";
    QTest::newRow("memory missing") << "memory missing";
    QTest::newRow("memory map-refused") << "memory map-refused";
    QTest::newRow("ncm refused") << "ncm refused";
    QTest::newRow("receiver nak 3 5 firmware") << "receiver nak 3 5 firmware";
    QTest::newRow("storage full sd1") << "storage full sd1";
    QTest::newRow("storage write-protected usb0") << "storage write-protected usb0";
    QTest::newRow("storage slow usb1 5000") << "storage slow usb1 5000";
    QTest::newRow("update silent") << "update silent";
    QTest::newRow("update no-data") << "update no-data";
    QTest::newRow("vendor look-up") << "vendor look-up";
    QTest::newRow("vendor write") << "vendor write";
}

void TestFaultCommands::isListedUntilItIsEnded()
{
    QFETCH(QString, listed);
    const QString words = QTest::currentDataTag();
    const QString device = words.section(' ', 0, 0);
    TestSimulator unit;
    QCOMPARE(unit.errorOf("fault " + words), QString());
    QCOMPARE(present(unit), QStringList("  " + listed));
    const QStringList ofDevice = unit.run("fault " + device).lines;
    QCOMPARE(ofDevice.last(), "  " + listed);
    QCOMPARE(unit.errorOf("fault " + device + " none"), QString());
    QCOMPARE(present(unit), QStringList());
}

void TestFaultCommands::callsReceiverAndStorageHaveSeveral()
{
    TestSimulator unit;
    const QStringList faults{"call \"system sync\"",      "call \"system cp\" 2",
                             "receiver nak 3 5 firmware", "receiver no-yc",
                             "storage full usb0",         "storage full sd0",
                             "storage slow usb0 9"};
    for (const QString &fault : faults) {
        QCOMPARE(unit.errorOf("fault " + fault), QString());
    }
    QCOMPARE(present(unit),
             (QStringList{"  call 1 system sync", "  call 2 system cp",
                          "  receiver nak 3 5 firmware", "  receiver no-yc", "  storage full usb0",
                          "  storage full sd0", "  storage slow usb0 9"}));
}

void TestFaultCommands::othersHaveOneAtATime()
{
    TestSimulator unit;
    for (const char *line : {"fault vendor look-up", "fault vendor write", "fault update silent",
                             "fault update no-data", "fault dab fail", "fault dab mute"}) {
        QCOMPARE(unit.errorOf(line), QString());
    }
    QCOMPARE(present(unit), (QStringList{"  dab mute", "  update no-data", "  vendor write"}));
}

void TestFaultCommands::noneEndsAll()
{
    TestSimulator unit;
    for (const char *line :
         {"call \"system sync\"", "dab mute", "memory missing", "ncm refused", "receiver no-yc",
          "storage full usb0", "update silent", "vendor write"}) {
        QCOMPARE(unit.errorOf(QString("fault ") + line), QString());
    }
    QCOMPARE(present(unit).size(), 8);
    QCOMPARE(unit.errorOf("fault none"), QString());
    QCOMPARE(present(unit), QStringList());
}

void TestFaultCommands::tellsWhatCanFail()
{
    TestSimulator unit;
    const QStringList lines = unit.run("fault").lines;
    QCOMPARE(lines.first(), QString("What can fail:"));
    const QStringList expected{
        "  call     CALL [N] [FAILURE] [on]  the next such call of the plug-in's fails, or the "
        "N-th, or all from then on; \"fault call\" lists them",
        "  dab      stall [PERCENT]          the update stands still at PERCENT (50)",
        "  memory   missing                  /dev/mem cannot be opened",
        "  storage  full SLOT                the stick there takes no more bytes from the unit's "
        "cp",
        "  receiver no-yc                    enters its loader with 'C' alone"};
    for (const QString &line : expected) {
        QVERIFY2(lines.contains(line), qPrintable(line + "\nis not in\n" + lines.join('\n')));
    }
    QCOMPARE(lines.filter("  receiver ").size(), hardware::ReceiverFaults::help().size());
}

void TestFaultCommands::everyCallThatIsListedIsTaken()
{
    TestSimulator unit;
    QStringList calls = unit.run("fault call").lines.filter(QRegularExpression("^  call     "));
    QVERIFY(calls.size() > unitlink::callsThatCanFail().size());
    calls.replaceInStrings("  call     ", QString());
    QStringList expected;
    static const QRegularExpression behindTheCall("( \\[|: )");
    for (const QString &line : qAsConst(calls)) {
        const QString call = line.section(behindTheCall, 0, 0);
        const QString argument = line.contains(" [PATH]") ? " /media" : "";
        const QString failure = line.contains(": ") ? line.section(", ", -1).section(": ", -1) : "";
        QCOMPARE(unit.errorOf(QString("fault call \"%1%2\" 3 %3 on").arg(call, argument, failure)),
                 QString());
        expected += QString("  call 3 %1%2 %3 on").arg(call, argument, failure).simplified();
    }
    QStringList found;
    const QStringList lines = present(unit);
    for (const QString &line : lines) {
        found += line.simplified();
    }
    expected.replaceInStrings(QRegularExpression("^ *"), "");
    QCOMPARE(found, expected);
}

void TestFaultCommands::whatASticksFaultsAreIsTold()
{
    TestSimulator unit;
    for (const char *line : {"fault storage full usb0", "fault storage write-protected sd1",
                             "fault storage slow usb0 5", "fault storage none"}) {
        QCOMPARE(unit.errorOf(line), QString());
    }
    QCOMPARE(unit.journal().lines("storage"),
             (QStringList{"storage full usb0", "storage write-protected sd1", "storage slow usb0 5",
                          "storage free usb0", "storage writable sd1", "storage fast usb0"}));
}

void TestFaultCommands::verbsSayWhatAStickIsLike()
{
    TestSimulator unit;
    for (const char *line : {"full usb0 on", "full usb1 on", "write-protect usb0 on",
                             "slow usb0 100000", "slow sd0 1", "full usb0 off", "slow sd0 0"}) {
        QCOMPARE(unit.errorOf(line), QString());
    }
    QCOMPARE(present(unit),
             (QStringList{"  storage full usb1", "  storage write-protected usb0",
                          "  storage slow usb0 100000"}));
    QCOMPARE(unit.errorOf("write-protect usb0 off"), QString());
    QCOMPARE(present(unit), (QStringList{"  storage full usb1", "  storage slow usb0 100000"}));
}

void TestFaultCommands::verbsOfSticksRefuse_data()
{
    QTest::addColumn<QString>("error");
    const QString slot("There is no slot \"usb9\"; the slots are: usb0, usb1, sd0, sd1.");
    QTest::newRow("full usb9 on") << slot;
    QTest::newRow("write-protect usb9 off") << slot;
    QTest::newRow("slow usb9 100") << slot;
    QTest::newRow("full usb0 1") << "a stick's switch is on or off, not \"1\"";
    QTest::newRow("write-protect usb0 yes") << "a stick's switch is on or off, not \"yes\"";
    QTest::newRow("write-protect usb0") << "usage: write-protect SLOT on|off";
    QTest::newRow("slow usb0") << "usage: slow SLOT BYTES-PER-SECOND";
    const QString number("BYTES-PER-SECOND is a whole number from 0 to 2147483647, not \"%1\"");
    QTest::newRow("slow usb0 fast") << number.arg("fast");
    QTest::newRow("slow usb0 -1") << number.arg("-1");
    QTest::newRow("slow usb0 2147483648") << number.arg("2147483648");
}

void TestFaultCommands::verbsOfSticksRefuse()
{
    QFETCH(QString, error);
    TestSimulator unit;
    QCOMPARE(unit.errorOf(QTest::currentDataTag()), error);
    QCOMPARE(present(unit), QStringList());
    QCOMPARE(unit.journal().lines("storage"), QStringList());
}

FACTORY_TEST_MAIN(TestFaultCommands)
#include "tst_faultcommands.moc"
