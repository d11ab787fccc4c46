#include "simulator/console/unitaddress.h"

#include "support/testmain.h"

#include <QDir>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

#include <unistd.h>

using namespace simulator;

class TestUnitAddress : public QObject
{
    Q_OBJECT

private slots:
    void sameFolderSameName();
    void otherFolderOtherName();
    void missingFolderHasNone();
    void defaultFolderIsTheUsers();
    void ownFolders_data();
    void ownFolders();
    void makesTheFolder();
};

void TestUnitAddress::sameFolderSameName()
{
    const QTemporaryDir folder;
    const QString name = consoleSocketName(folder.path());
    static const QRegularExpression form(QRegularExpression::anchoredPattern(
        QString("%1/headunit-%2/[0-9a-f]{12}").arg(QDir::tempPath()).arg(geteuid())));
    QVERIFY2(form.match(name).hasMatch(), qPrintable(name));
    QCOMPARE(consoleSocketName(folder.path() + "/"), name);
    QCOMPARE(consoleSocketName(folder.path() + "/../" + QDir(folder.path()).dirName()), name);
    const QTemporaryDir other;
    QVERIFY(QFile::link(folder.path(), other.filePath("link")));
    QCOMPARE(consoleSocketName(other.filePath("link")), name);
}

void TestUnitAddress::otherFolderOtherName()
{
    const QTemporaryDir one;
    const QTemporaryDir other;
    QVERIFY(consoleSocketName(one.path()) != consoleSocketName(other.path()));
}

void TestUnitAddress::missingFolderHasNone()
{
    const QTemporaryDir folder;
    QCOMPARE(consoleSocketName(folder.filePath("missing")), QString());
}

void TestUnitAddress::defaultFolderIsTheUsers()
{
    qputenv("XDG_DATA_HOME", "/home/someone/data");
    QCOMPARE(defaultUnitFolder(), QString("/home/someone/data/factorydebug/unit"));
}

void TestUnitAddress::ownFolders_data()
{
    QTest::addColumn<QByteArray>("command");
    QTest::addColumn<bool>("own");
    const auto row = [](const char *command, bool own) {
        QTest::newRow(command) << QByteArray(command) << own;
    };
    row("true", false);
    row("mkdir -m 700 sockets", true);
    row("mkdir -m 750 sockets", false);
    row("mkdir -m 701 sockets", false);
    row("mkdir -m 720 sockets", false);
    row("mkdir -m 700 other && ln -s other sockets", false);
    row("touch sockets && chmod 700 sockets", false);
    // Only root can give something away.
    row("mkdir -m 700 sockets && ! chown 65534 sockets 2>/dev/null", geteuid() != 0);
}

void TestUnitAddress::ownFolders()
{
    QFETCH(QByteArray, command);
    QFETCH(bool, own);
    const QTemporaryDir folder;
    QProcess shell;
    shell.setWorkingDirectory(folder.path());
    shell.start("sh", {"-c", command});
    QVERIFY(shell.waitForFinished());
    const QString socket = folder.filePath("sockets/socket");
    QString error;
    QCOMPARE(hasOwnFolder(socket, &error), own);
    QCOMPARE(error,
             own ? QString()
                 : QString("The consoles' folder \"%1\" is not yours, or open to others.")
                       .arg(folder.filePath("sockets")));
}

void TestUnitAddress::makesTheFolder()
{
    const QTemporaryDir folder;
    QString error;
    const QString socket = folder.filePath("sockets/socket");
    QVERIFY(makeSocketFolder(socket, &error));
    QVERIFY(makeSocketFolder(socket, &error));
    QVERIFY(QDir(folder.filePath("sockets")).exists());
    QVERIFY(!makeSocketFolder(folder.filePath("no/sockets/socket"), &error));
    QVERIFY2(error.contains("no/sockets"), qPrintable(error));
}

FACTORY_TEST_GUILESS_MAIN(TestUnitAddress)
#include "tst_unitaddress.moc"
