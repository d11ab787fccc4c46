#include "hardware/storage/storage.h"

#include "storagetest.h"

#include "support/testmain.h"

#include <QDir>
#include <QFileInfo>
#include <QtTest>

using hardware::Storage;

/// What the storage remembers over a restart.
class TestStorageRestart : public QObject, private StorageTest
{
    Q_OBJECT

private slots:
    void init();

    void aRestartFindsTheSticksInOrder();
    void aRestartForgetsAVanishedStick();
    void aRestartForgetsAStickWithoutSlot();
    void aRestartFollowsAMovedMountRoot();
    void aRestartMendsALostLink();
    void aMovedUnitKeepsItsOwnSticks();
    void aDamagedListIsRefusedAndLeft();
    void aListThatCannotBeWrittenRefusesThePlug();
    void aStickNameWithOddCharacters();
};

void TestStorageRestart::init()
{
    switchOn();
}

void TestStorageRestart::aRestartFindsTheSticksInOrder()
{
    const QString folder = m_temporary->filePath(QString::fromUtf8("stick, \"odd\"; %41"));
    writeFile(folder + QStringLiteral("/known"), "bytes");
    plug(usb1, folder);
    plug(sd0);
    plug(usb0);
    start();
    QCOMPARE(m_storage->mountRoots(), (QStringList{usb1Root, sd0Root, usb0Root}));
    QCOMPARE(readFile(path(QStringLiteral("/media/usb1/known"))), QByteArray("bytes"));
    QCOMPARE(m_journal->lines(),
             (QStringList{QStringLiteral("storage remembered usb1 /media/usb1"),
                          QStringLiteral("storage remembered sd0 /media/sd0"),
                          QStringLiteral("storage remembered usb0 /media/usb0")}));
    pull(usb1);
    pull(sd0);
    pull(usb0);
    start();
    QCOMPARE(m_storage->mountRoots(), QStringList());
}

void TestStorageRestart::aRestartForgetsAVanishedStick()
{
    const QString folder = m_temporary->filePath(QStringLiteral("stick"));
    QVERIFY(QDir().mkpath(folder));
    plug(usb0, folder);
    plug(usb1);
    QVERIFY(QDir(folder).removeRecursively());
    start();
    QCOMPARE(m_storage->mountRoots(), QStringList{usb1Root});
    QCOMPARE(
        m_journal->lines(),
        (QStringList{QStringLiteral("storage forgotten usb0: There is no folder \"%1\" to plug "
                                    "into slot \"usb0\".")
                         .arg(folder),
                     QStringLiteral("storage remembered usb1 /media/usb1")}));
    QVERIFY(!QFileInfo(path(usb0Root)).isSymLink());
    start();
    QCOMPARE(m_journal->lines(),
             QStringList{QStringLiteral("storage remembered usb1 /media/usb1")});
    plug(usb0);
}

void TestStorageRestart::aRestartForgetsAStickWithoutSlot()
{
    plug(usb0);
    writeFile(path(QStringLiteral("/slots.ini")),
              "[sd0]\nmediaType=1\ncontroller=0\nmountRoot=/media/sd0\n");
    start();
    QCOMPARE(m_storage->mountRoots(), QStringList());
    QCOMPARE(m_journal->lines(),
             QStringList{QStringLiteral("storage forgotten usb0: There is no slot \"usb0\"; the "
                                        "slots are: sd0.")});
    QVERIFY(!QFileInfo(path(usb0Root)).isSymLink());
}

void TestStorageRestart::aRestartFollowsAMovedMountRoot()
{
    plug(usb0);
    writeFile(path(QStringLiteral("/slots.ini")),
              "[usb0]\nmediaType=1\ncontroller=0\nmountRoot=/media/front\n");
    start();
    QCOMPARE(m_storage->mountRoots(), QStringList{QStringLiteral("/media/front")});
    QVERIFY(QFileInfo(path(QStringLiteral("/media/front"))).isDir());
    QVERIFY(!QFileInfo(path(usb0Root)).isSymLink());
}

void TestStorageRestart::aRestartMendsALostLink()
{
    plug(usb0);
    QVERIFY(QFile::remove(path(usb0Root)));
    start();
    QCOMPARE(m_storage->mountRoots(), QStringList{usb0Root});
    QVERIFY(QFileInfo(path(usb0Root)).isDir());
}

void TestStorageRestart::aMovedUnitKeepsItsOwnSticks()
{
    plug(usb0);
    writeFile(path(QStringLiteral("/media/usb0/known")), "bytes");
    m_storage.reset();
    m_folder.reset();
    const QString moved = m_temporary->filePath(QStringLiteral("moved"));
    QVERIFY(QDir().rename(m_root, moved));
    m_root = moved;
    start();
    QCOMPARE(m_storage->mountRoots(), QStringList{usb0Root});
    QCOMPARE(readFile(path(QStringLiteral("/media/usb0/known"))), QByteArray("bytes"));
}

void TestStorageRestart::aDamagedListIsRefusedAndLeft()
{
    const QByteArray content("this is a letter\n");
    const QString file = path(QStringLiteral("/storage.ini"));
    writeFile(file, content);
    Storage storage(*m_folder, *m_journal);
    QString error;
    QVERIFY(!storage.open(&error));
    QCOMPARE(error,
             QStringLiteral("The list of plugged sticks \"%1\" cannot be read or is damaged. "
                            "It is left as it is.")
                 .arg(file));
    QCOMPARE(readFile(file), content);
}

void TestStorageRestart::aListThatCannotBeWrittenRefusesThePlug()
{
    const QString file = path(QStringLiteral("/storage.ini"));
    QFile::remove(file);
    QVERIFY(QDir().mkpath(file + QStringLiteral("/in the way")));
    QString error;
    QVERIFY(!m_storage->plug(usb0, QString(), &error));
    QCOMPARE(error,
             QStringLiteral("The list of plugged sticks \"%1\" cannot be written: Is a directory.")
                 .arg(file));
    QCOMPARE(m_storage->mountRoots(), QStringList());
    QVERIFY(!QFileInfo(path(usb0Root)).isSymLink());
}

void TestStorageRestart::aStickNameWithOddCharacters()
{
    writeFile(path(QStringLiteral("/slots.ini")),
              "[u;s$b 0]\nmediaType=1\ncontroller=0\nmountRoot=/media/a 'b' $c\n");
    start();
    plug(QStringLiteral("u;s$b 0"));
    start();
    QCOMPARE(m_storage->mountRoots(), QStringList{QStringLiteral("/media/a 'b' $c")});
    QVERIFY(QFileInfo(path(QStringLiteral("/media/a 'b' $c"))).isDir());
}

FACTORY_TEST_GUILESS_MAIN(TestStorageRestart)
#include "tst_storage_restart.moc"
