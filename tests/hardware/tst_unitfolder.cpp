#include "hardware/unit/unitfolder.h"

#include "support/openunit.h"
#include "support/testmain.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QSysInfo>
#include <QTemporaryDir>
#include <QtTest>

#include <cstdio>

#include <unistd.h>

using hardware::UnitFolder;

namespace
{

const char holdOption[] = "--hold";

/// The other simulator of the tests below: opens the folder and keeps it until it is killed.
int hold(const QString &folder)
{
    UnitFolder unit(folder);
    QString error;
    std::puts(unit.open(&error) ? "open" : qPrintable(error));
    std::fflush(stdout);
    pause();
    return 0;
}

} // namespace

class tst_UnitFolder : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void layOutHasTheFolder_data();
    void layOutHasTheFolder();
    void theDefaultTablesAreThere();
    void theUnitsCommandsCanBeRun();
    void tablesCanBeEdited();
    void whatIsThereIsKept();
    void foldersAboveAreMade();
    void openedTwiceIsStillOpen();
    void pathIsBelowTheRoot();
    void theRootIsAbsolute();
    void noFolderNamed();
    void aFileIsRefused();
    void aFolderBelowAFileIsRefused();
    void aColonIsRefused();
    void theHostsRootIsRefused_data();
    void theHostsRootIsRefused();
    void anUnwritableFolderIsRefused();
    void aFileInTheWayOfAFolderIsNamed();
    void aSecondSimulatorIsRefused();
    void aSecondFolderOfThisProcessIsRefused();
    void theLockGoesWithTheFolder();
    void aDeadSimulatorsLockIsTakenOver();
    void aLockWithoutItsEndIsTakenOver_data();
    void aLockWithoutItsEndIsTakenOver();

private:
    QString unitPath(const QString &name) const { return m_folder->filePath(name); }
    QString errorOf(const QString &root) const;
    void startHolder(QProcess *process) const;

    QScopedPointer<QTemporaryDir> m_folder;
    QString m_root;
};

void tst_UnitFolder::init()
{
    m_folder.reset(new QTemporaryDir);
    m_root = m_folder->filePath(QStringLiteral("unit"));
}

/// The sentence with which the folder is refused; "opened" when it is not.
QString tst_UnitFolder::errorOf(const QString &root) const
{
    UnitFolder folder(root);
    QString error;
    return folder.open(&error) ? QStringLiteral("opened") : error;
}

void tst_UnitFolder::startHolder(QProcess *process) const
{
    process->setProcessChannelMode(QProcess::ForwardedErrorChannel);
    startAnother(process, {QLatin1String(holdOption), m_root});
    QVERIFY(process->waitForReadyRead());
    QCOMPARE(process->readLine(), QByteArray("open\n"));
}

void tst_UnitFolder::layOutHasTheFolder_data()
{
    QTest::addColumn<QString>("folder");

    for (const char *folder :
         {"/bin", "/dev", "/media/flash/nvm", "/media/flash/userdata", "/proc/sys/kernel",
          "/sticks", "/sys/devices/platform", "/sys/module"}) {
        QTest::newRow(folder) << QString::fromLatin1(folder);
    }
}

void tst_UnitFolder::layOutHasTheFolder()
{
    QFETCH(QString, folder);

    UnitFolder unit(m_root);
    QString error;
    QVERIFY2(unit.open(&error), qPrintable(error));
    QVERIFY(QFileInfo(m_root + folder).isDir());
}

void tst_UnitFolder::theDefaultTablesAreThere()
{
    QCOMPARE(errorOf(m_root), QStringLiteral("opened"));
    const QByteArray slotTable = readFile(m_root + QStringLiteral("/slots.ini"));
    QVERIFY(
        slotTable.contains("\n[usb0]\nmediaType = 1\ncontroller = 0\nmountRoot = /media/usb0\n"));
    QVERIFY(slotTable.startsWith("; "));
}

void tst_UnitFolder::theUnitsCommandsCanBeRun()
{
    QCOMPARE(errorOf(m_root), QStringLiteral("opened"));
    const QString sync = m_root + QStringLiteral("/bin/sync");
    QVERIFY(QFileInfo(sync).isExecutable());
    QCOMPARE(QProcess::execute(sync, {}), 0);
}

void tst_UnitFolder::tablesCanBeEdited()
{
    QCOMPARE(errorOf(m_root), QStringLiteral("opened"));
    const QFileDevice::Permissions permissions =
        QFile::permissions(m_root + QStringLiteral("/slots.ini"));
    QVERIFY(permissions & QFileDevice::WriteOwner);
    QVERIFY(!(permissions & QFileDevice::ExeOwner));
}

void tst_UnitFolder::whatIsThereIsKept()
{
    QCOMPARE(errorOf(m_root), QStringLiteral("opened"));
    const QString slotTable = m_root + QStringLiteral("/slots.ini");
    const QString command = m_root + QStringLiteral("/bin/sync");
    const QString log = m_root + QStringLiteral("/media/flash/userdata/btsnoop.log");
    writeFile(slotTable, "mine");
    writeFile(command, "my own");
    writeFile(log, "a log");
    QCOMPARE(errorOf(m_root), QStringLiteral("opened"));
    QCOMPARE(readFile(slotTable), QByteArray("mine"));
    QCOMPARE(readFile(command), QByteArray("my own"));
    QCOMPARE(readFile(log), QByteArray("a log"));
}

void tst_UnitFolder::foldersAboveAreMade()
{
    QCOMPARE(errorOf(unitPath(QStringLiteral("a/b/c"))), QStringLiteral("opened"));
    QVERIFY(QFileInfo(unitPath(QStringLiteral("a/b/c/media/flash"))).isDir());
}

void tst_UnitFolder::openedTwiceIsStillOpen()
{
    UnitFolder unit(m_root);
    QString error;
    QVERIFY(unit.open(&error));
    QVERIFY2(unit.open(&error), qPrintable(error));
    QVERIFY(errorOf(m_root).contains(QLatin1String("in use")));
}

void tst_UnitFolder::pathIsBelowTheRoot()
{
    const UnitFolder unit(QStringLiteral("/tmp/some unit"));
    QCOMPARE(unit.path(QStringLiteral("/media/usb0")), QStringLiteral("/tmp/some unit/media/usb0"));
    QCOMPARE(unit.path(QStringLiteral("settings.ini")),
             QStringLiteral("/tmp/some unit/settings.ini"));
}

void tst_UnitFolder::theRootIsAbsolute()
{
    QCOMPARE(UnitFolder(QStringLiteral("/tmp/a//b/../c/")).root(), QStringLiteral("/tmp/a/c"));
    QCOMPARE(UnitFolder(QStringLiteral("x")).root(), QDir::currentPath() + QStringLiteral("/x"));
    QCOMPARE(UnitFolder(QString()).root(), QString());
}

void tst_UnitFolder::noFolderNamed()
{
    QCOMPARE(errorOf(QString()), QStringLiteral("No folder is named for the unit."));
}

void tst_UnitFolder::aFileIsRefused()
{
    writeFile(m_root, "text");
    QCOMPARE(errorOf(m_root),
             QStringLiteral("The unit's folder \"%1\" is a file, not a folder.").arg(m_root));
    QCOMPARE(readFile(m_root), QByteArray("text"));
}

void tst_UnitFolder::aFolderBelowAFileIsRefused()
{
    writeFile(m_root, "text");
    const QString below = m_root + QStringLiteral("/unit");
    QCOMPARE(errorOf(below), QStringLiteral("The unit's folder \"%1\" cannot be made.").arg(below));
}

void tst_UnitFolder::aColonIsRefused()
{
    const QString root = unitPath(QStringLiteral("a:b"));
    QCOMPARE(
        errorOf(root),
        QStringLiteral("The unit's folder \"%1\" holds a colon, which separates the folders of "
                       "a command search path.")
            .arg(root));
    QVERIFY(!QFileInfo::exists(root));
}

void tst_UnitFolder::theHostsRootIsRefused_data()
{
    QTest::addColumn<bool>("byLink");

    QTest::newRow("by its name") << false;
    QTest::newRow("by a link") << true;
}

void tst_UnitFolder::theHostsRootIsRefused()
{
    QFETCH(bool, byLink);

    const QString root = byLink ? m_root : QStringLiteral("/");
    if (byLink) {
        QVERIFY(QFile::link(QStringLiteral("/"), root));
    }
    QCOMPARE(errorOf(root),
             QStringLiteral("The unit's folder \"%1\" is the host's root, whose devices and media "
                            "are real.")
                 .arg(root));
}

void tst_UnitFolder::anUnwritableFolderIsRefused()
{
    QVERIFY(QDir().mkpath(m_root));
    const QFileDevice::Permissions readOnly = QFileDevice::ReadOwner | QFileDevice::ExeOwner
        | QFileDevice::ReadGroup | QFileDevice::ExeGroup | QFileDevice::ReadOther
        | QFileDevice::ExeOther;
    QVERIFY(QFile::setPermissions(m_folder->path(), readOnly));
    QVERIFY(QFile::setPermissions(m_root, readOnly));
    // Permissions mean nothing to root: as nobody, then.
    constexpr uid_t nobody = 65534;
    const bool isRoot = geteuid() == 0;
    if (isRoot) {
        QCOMPARE(seteuid(nobody), 0);
    }
    const QString onFolder = errorOf(m_root);
    const QString onMissing = errorOf(m_root + QStringLiteral("/deeper"));
    if (isRoot) {
        QCOMPARE(seteuid(0), 0);
    }
    QFile::setPermissions(m_folder->path(), readOnly | QFileDevice::WriteOwner);
    QFile::setPermissions(m_root, readOnly | QFileDevice::WriteOwner);
    QCOMPARE(onFolder, QStringLiteral("The unit's folder \"%1\" is not writable.").arg(m_root));
    QCOMPARE(onMissing,
             QStringLiteral("The unit's folder \"%1/deeper\" cannot be made.").arg(m_root));
}

void tst_UnitFolder::aFileInTheWayOfAFolderIsNamed()
{
    const QString dev = m_root + QStringLiteral("/dev");
    writeFile(dev, "text");
    QCOMPARE(errorOf(m_root),
             QStringLiteral("The folder \"%1\" of the unit cannot be made.").arg(dev));
}

void tst_UnitFolder::aSecondSimulatorIsRefused()
{
    QProcess other;
    startHolder(&other);
    QCOMPARE(errorOf(m_root),
             QStringLiteral("The unit's folder \"%1\" is in use by tst_unitfolder, process %2 on "
                            "%3.")
                 .arg(m_root)
                 .arg(other.processId())
                 .arg(QSysInfo::machineHostName()));
    other.kill();
    QVERIFY(other.waitForFinished());
}

void tst_UnitFolder::aSecondFolderOfThisProcessIsRefused()
{
    UnitFolder first(m_root);
    QString error;
    QVERIFY(first.open(&error));
    const QString second = errorOf(m_root + QStringLiteral("/../unit"));
    QVERIFY2(
        second.startsWith(QStringLiteral("The unit's folder \"%1\" is in use by ").arg(m_root)),
        qPrintable(second));
}

void tst_UnitFolder::theLockGoesWithTheFolder()
{
    {
        UnitFolder first(m_root);
        QString error;
        QVERIFY(first.open(&error));
        QVERIFY(QFileInfo::exists(m_root + QStringLiteral("/lock")));
    }
    QVERIFY(!QFileInfo::exists(m_root + QStringLiteral("/lock")));
    QCOMPARE(errorOf(m_root), QStringLiteral("opened"));
}

void tst_UnitFolder::aLockWithoutItsEndIsTakenOver_data()
{
    QTest::addColumn<QByteArray>("lock");
    QTest::addColumn<bool>("isTakenOver");
    const QByteArray own = QByteArray::number(QCoreApplication::applicationPid());
    const QByteArray dead = "2147483647\nheadunit\n" + QSysInfo::machineHostName().toUtf8() + '\n';
    QTest::newRow("empty") << QByteArray() << true;
    QTest::newRow("cut off") << dead + "0123" << true;
    QTest::newRow("cut off, but its program runs") << own + "\nheadunit\nho" << false;
    QTest::newRow("another machine's") << dead + "0123\n4567\n" << false;
}

void tst_UnitFolder::aLockWithoutItsEndIsTakenOver()
{
    QFETCH(QByteArray, lock);
    QVERIFY(QDir().mkpath(m_root));
    writeFile(m_root + QStringLiteral("/lock"), lock);
    hardware::UnitFolder folder(m_root);
    QString error;
    QTEST(folder.open(&error), "isTakenOver");
}

void tst_UnitFolder::aDeadSimulatorsLockIsTakenOver()
{
    QProcess other;
    startHolder(&other);
    other.kill();
    QVERIFY(other.waitForFinished());
    QVERIFY(QFileInfo::exists(m_root + QStringLiteral("/lock")));
    QCOMPARE(errorOf(m_root), QStringLiteral("opened"));
}

static const RegisteredTest registered(__FILE__, [](int argc, char *argv[]) {
    const bool isChild = argc == 3 && qstrcmp(argv[1], holdOption) == 0;
    return isChild ? hold(QString::fromLocal8Bit(argv[2]))
                   : runTest<QCoreApplication, tst_UnitFolder>(argc, argv);
});

#include "tst_unitfolder.moc"
