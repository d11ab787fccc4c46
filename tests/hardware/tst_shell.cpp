#include "hardware/shell/shell.h"

#include "support/openunit.h"
#include "support/testmain.h"

#include <QDir>
#include <QFileInfo>
#include <QtTest>

#include <atomic>
#include <csignal>
#include <cstdlib>
#include <thread>
#include <vector>

#include <sys/time.h>
#include <sys/wait.h>

using hardware::Shell;

class tst_Shell : public QObject
{
    Q_OBJECT

private slots:
    void theResultIsThatOfSystem_data();
    void theResultIsThatOfSystem();
    void aCommandIsJournalledAsGiven();
    void pathsLeadIntoTheUnit_data();
    void pathsLeadIntoTheUnit();
    void theUnitsCommandsComeFirst();
    void theHostsCommandsAreThere();
    void theEnvironmentIsPassedOn();
    void anInheritedUnitVariableIsReplaced();
    void bytesReachTheShellAsTheyAre();
    void aRefusedCommandIsNotRun_data();
    void aRefusedCommandIsNotRun();
    void aSignalDoesNotEndTheWait();
    void aMappedCommandNamesTheUnitsFolder();
    void eightThreadsRunCommands();
};

void tst_Shell::theResultIsThatOfSystem_data()
{
    QTest::addColumn<QByteArray>("command");
    QTest::addColumn<int>("exitStatus");
    QTest::addColumn<int>("signal");

    QTest::newRow("success") << QByteArray("true") << 0 << 0;
    QTest::newRow("failure") << QByteArray("exit 3") << 3 << 0;
    QTest::newRow("highest") << QByteArray("exit 255") << 255 << 0;
    QTest::newRow("unknown command") << QByteArray("no-such-command-here 2>/dev/null") << 127 << 0;
    QTest::newRow("syntax error") << QByteArray("exec 2>/dev/null; eval 'a \"b'") << 2 << 0;
    QTest::newRow("killed") << QByteArray("kill -KILL $$") << 0 << SIGKILL;
    QTest::newRow("empty") << QByteArray() << 0 << 0;
}

void tst_Shell::theResultIsThatOfSystem()
{
    QFETCH(QByteArray, command);
    QFETCH(int, exitStatus);
    QFETCH(int, signal);

    OpenUnit unit;
    const int result = unit->shell().run(command);
    if (signal == 0) {
        QVERIFY(WIFEXITED(result));
        QCOMPARE(WEXITSTATUS(result), exitStatus);
    } else {
        QVERIFY(WIFSIGNALED(result));
        QCOMPARE(WTERMSIG(result), signal);
    }
    QCOMPARE(result, std::system(command.constData()));
}

void tst_Shell::aCommandIsJournalledAsGiven()
{
    OpenUnit unit;
    unit->shell().run("cp  /media/flash/none  /media/usb0 2>/dev/null");
    unit->shell().run("sync");
    QCOMPARE(unit->journal().lines(),
             (QStringList{QStringLiteral("shell cp  /media/flash/none  /media/usb0 2>/dev/null"),
                          QStringLiteral("shell sync")}));
}

void tst_Shell::pathsLeadIntoTheUnit_data()
{
    QTest::addColumn<QString>("folder");
    QTest::addColumn<QByteArray>("command");

    const QPair<const char *, const char *> folders[] = {
        {"plain folder", "unit"},
        {"folder with odd characters", "a  unit's $HOME `x` \"q\" \\ *;&"},
    };
    const QPair<const char *, const char *> commands[] = {
        {"unquoted", "cp /media/flash/from /media/flash/to"},
        {"single quotes", "cp '/media/flash/from' '/media/flash/to'"},
        {"double quotes", "cp \"/media/flash/from\" \"/media/flash/to\""},
        {"redirection", "cat </media/flash/from >/media/flash/to"},
        {"pattern", "cp /media/flash/fr* /media/flash/to"},
        {"assignment", "dd if=/media/flash/from of=/media/flash/to 2>/dev/null"},
        {"variable", "x=/media/flash/from; cp \"$x\" /media/flash/to"},
        {"dots", "cp /media/usb0/../flash/from /media/usb0/.././flash/to"},
        {"command in a command", "cp \"$(ls /media/flash/from)\" /media/flash/to"},
        {"sh -c in single quotes", "sh -c 'cp /media/flash/from /media/flash/to'"},
        {"sh -c in double quotes", "sh -c \"cp /media/flash/from '/media/flash/to'\""},
        {"sh -c in sh -c", "sh -c \"sh -c 'cp /media/flash/from /media/flash/to'\""},
    };
    for (const auto &folder : folders) {
        for (const auto &command : commands) {
            QTest::addRow("%s, %s", folder.first, command.first)
                << QString::fromLatin1(folder.second) << QByteArray(command.second);
        }
    }
}

void tst_Shell::pathsLeadIntoTheUnit()
{
    QFETCH(QString, folder);
    QFETCH(QByteArray, command);

    OpenUnit unit(1.0, folder);
    QString error;
    QVERIFY(unit->storage().plug(QStringLiteral("usb0"), QString(), &error));
    writeFile(unit.path(QStringLiteral("/media/flash/from")), "known bytes");
    QCOMPARE(unit->shell().run(command), 0);
    QCOMPARE(readFile(unit.path(QStringLiteral("/media/flash/to"))), QByteArray("known bytes"));
}

void tst_Shell::theUnitsCommandsComeFirst()
{
    OpenUnit unit(1.0, QStringLiteral("a unit"));
    const QString command = unit.path(QStringLiteral("/bin/ls"));
    writeFile(command, "#!/bin/sh\necho \"$1\" > \"$UNIT\"/ls-was-here\n");
    QVERIFY(QFile::setPermissions(command, QFileDevice::ReadOwner | QFileDevice::ExeOwner));
    QCOMPARE(unit->shell().run("ls argument"), 0);
    QCOMPARE(readFile(unit.path(QStringLiteral("/ls-was-here"))), QByteArray("argument\n"));
}

void tst_Shell::theHostsCommandsAreThere()
{
    OpenUnit unit;
    QCOMPARE(unit->shell().run("command -v cp >/dev/null"), 0);
}

void tst_Shell::theEnvironmentIsPassedOn()
{
    OpenUnit unit;
    qputenv("TST_SHELL_VARIABLE", "a value");
    unit->shell().run("echo \"$TST_SHELL_VARIABLE\" > /media/flash/out");
    qunsetenv("TST_SHELL_VARIABLE");
    QCOMPARE(readFile(unit.path(QStringLiteral("/media/flash/out"))), QByteArray("a value\n"));
}

void tst_Shell::anInheritedUnitVariableIsReplaced()
{
    OpenUnit unit;
    qputenv("UNIT", "/nonexistent");
    unit->shell().run("echo \"$UNIT\" > /media/flash/out");
    qunsetenv("UNIT");
    QCOMPARE(readFile(unit.path(QStringLiteral("/media/flash/out"))),
             unit->folder().root().toLocal8Bit() + '\n');
}

void tst_Shell::bytesReachTheShellAsTheyAre()
{
    OpenUnit unit;
    // No valid UTF-8.
    unit->shell().run("printf %s '\xff\xfe\xc3' > /media/flash/out");
    QCOMPARE(readFile(unit.path(QStringLiteral("/media/flash/out"))), QByteArray("\xff\xfe\xc3"));
}

void tst_Shell::aRefusedCommandIsNotRun_data()
{
    QTest::addColumn<QByteArray>("path");

    QTest::newRow("device") << QByteArray("/dev/sda");
    QTest::newRow("kernel file") << QByteArray("/sys/class/net");
    QTest::newRow("process file") << QByteArray("/proc/self/environ");
    QTest::newRow("out of the unit") << QByteArray("/media/../dev/sda");
    QByteArray up;
    for (int i = 0; i < 40; ++i) {
        up += "../";
    }
    QTest::newRow("relative") << up + "dev/sda";
    QTest::newRow("relative into the host's media") << up + "media/usb0";
    QTest::newRow("pattern") << QByteArray("/de*/sda");
}

void tst_Shell::aRefusedCommandIsNotRun()
{
    QFETCH(QByteArray, path);

    OpenUnit unit;
    const QByteArray command = "touch /media/flash/ran; ls " + path + " >/dev/null 2>&1";
    const int result = unit->shell().run(command);
    QVERIFY(WIFEXITED(result));
    QCOMPARE(WEXITSTATUS(result), 126);
    QVERIFY(!QFileInfo::exists(unit.path(QStringLiteral("/media/flash/ran"))));
    QCOMPARE(unit->journal().lines(),
             QStringList{QStringLiteral("shell refused ") + QString::fromLatin1(command)});
}

void tst_Shell::aSignalDoesNotEndTheWait()
{
    OpenUnit unit;
    struct sigaction action = {};
    action.sa_handler = [](int) {};
    struct sigaction former = {};
    sigaction(SIGALRM, &action, &former);
    const itimerval every10Ms = {{0, 10000}, {0, 10000}};
    setitimer(ITIMER_REAL, &every10Ms, nullptr);
    const int result = unit->shell().run("sleep 0.1; exit 5");
    const itimerval never = {};
    setitimer(ITIMER_REAL, &never, nullptr);
    sigaction(SIGALRM, &former, nullptr);
    QCOMPARE(WEXITSTATUS(result), 5);
}

void tst_Shell::aMappedCommandNamesTheUnitsFolder()
{
    QCOMPARE(Shell::mapped("rm /media/usb0/a"), QByteArray("rm \"$UNIT\"/media/usb0/a"));
    QCOMPARE(Shell::mapped("sync"), QByteArray("sync"));
}

void tst_Shell::eightThreadsRunCommands()
{
    constexpr int threadCount = 8;
    OpenUnit unit;
    std::atomic<int> wrongResults{0};
    std::vector<std::thread> threads;
    for (int thread = 0; thread < threadCount; ++thread) {
        threads.emplace_back([&unit, &wrongResults, thread] {
            const QByteArray number = QByteArray::number(thread);
            const int result = unit->shell().run("echo " + number + " > /media/flash/t" + number
                                                 + "; exit " + number);
            wrongResults += WEXITSTATUS(result) == thread ? 0 : 1;
        });
    }
    for (std::thread &thread : threads) {
        thread.join();
    }
    QCOMPARE(wrongResults.load(), 0);
    for (int thread = 0; thread < threadCount; ++thread) {
        QCOMPARE(readFile(unit.path(QStringLiteral("/media/flash/t%1").arg(thread))),
                 QByteArray::number(thread) + '\n');
    }
}

FACTORY_TEST_GUILESS_MAIN(tst_Shell)
#include "tst_shell.moc"
