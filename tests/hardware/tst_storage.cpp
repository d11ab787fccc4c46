#include "hardware/storage/storage.h"

#include "hardware/unit/journal.h"
#include "hardware/unit/unitfolder.h"
#include "support/openunit.h"

#include <QDir>
#include <QFileInfo>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

#include <thread>
#include <vector>

#include <unistd.h>

using hardware::Journal;
using hardware::Storage;
using hardware::StorageSlot;
using hardware::UnitFolder;

namespace
{

const QString usb0 = QStringLiteral("usb0");
const QString usb1 = QStringLiteral("usb1");
const QString sd0 = QStringLiteral("sd0");
const QString usb0Root = QStringLiteral("/media/usb0");
const QString usb1Root = QStringLiteral("/media/usb1");
const QString sd0Root = QStringLiteral("/media/sd0");

} // namespace

class tst_Storage : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void theDefaultTable_data();
    void theDefaultTable();
    void anotherTableKeepsItsOrder();
    void aWrongTableIsRefused();
    void aSlotsOwnStickAppears();
    void aGivenFolderAppears();
    void aRelativeFolderIsTakenFromTheCurrentOne();
    void aPulledStickVanishesAndKeepsItsContent();
    void signalsNameTheMountRoot();
    void aListenerMayAskBack();
    void mountOrderIsPlugOrder();
    void mountRootsOfAMediaType();
    void controllerOfAMountRoot();
    void plugRefuses_data();
    void plugRefuses();
    void pullRefuses();
    void aFullStickIsMarkedUntilItIsNot();
    void whatIsInTheWayIsLeft_data();
    void whatIsInTheWayIsLeft();
    void aLinkToTheStickIsTakenOver_data();
    void aLinkToTheStickIsTakenOver();
    void whatReplacedALinkIsLeft();
    void aRestartFindsTheSticksInOrder();
    void aRestartForgetsAVanishedStick();
    void aRestartForgetsAStickWithoutSlot();
    void aRestartFollowsAMovedMountRoot();
    void aRestartMendsALostLink();
    void aMovedUnitKeepsItsOwnSticks();
    void aDamagedListIsRefusedAndLeft();
    void aListThatCannotBeWrittenRefusesThePlug();
    void aStickNameWithOddCharacters();
    void threadsPlugAndPull();

private:
    /// The storage of the unit's folder as a new start of the simulator opens it.
    void start();
    QString path(const QString &unitPath) const { return m_root + unitPath; }
    void plug(const QString &slot, const QString &folder = QString());
    void pull(const QString &slot);

    QScopedPointer<QTemporaryDir> m_temporary;
    QString m_root;
    QScopedPointer<UnitFolder> m_folder;
    QScopedPointer<Journal> m_journal;
    QScopedPointer<Storage> m_storage;
};

void tst_Storage::init()
{
    m_storage.reset();
    m_folder.reset();
    m_temporary.reset(new QTemporaryDir);
    m_root = m_temporary->filePath(QStringLiteral("unit"));
    start();
}

void tst_Storage::start()
{
    m_storage.reset();
    m_folder.reset();
    m_folder.reset(new UnitFolder(m_root));
    m_journal.reset(new Journal);
    m_storage.reset(new Storage(*m_folder, *m_journal));
    QString error;
    QVERIFY2(m_folder->open(&error), qPrintable(error));
    QVERIFY2(m_storage->open(&error), qPrintable(error));
}

void tst_Storage::plug(const QString &slot, const QString &folder)
{
    QString error;
    QVERIFY2(m_storage->plug(slot, folder, &error), qPrintable(error));
}

void tst_Storage::pull(const QString &slot)
{
    QString error;
    QVERIFY2(m_storage->pull(slot, &error), qPrintable(error));
}

void tst_Storage::theDefaultTable_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("mediaType");
    QTest::addColumn<int>("controllerId");
    QTest::addColumn<QString>("mountRoot");

    QTest::newRow("USB 0") << 0 << "usb0" << 1 << 0 << "/media/usb0";
    QTest::newRow("USB 1") << 1 << "usb1" << 1 << 1 << "/media/usb1";
    QTest::newRow("SD 0") << 2 << "sd0" << 2 << 0 << "/media/sd0";
    QTest::newRow("SD 1") << 3 << "sd1" << 2 << 1 << "/media/sd1";
}

void tst_Storage::theDefaultTable()
{
    QFETCH(int, index);

    QCOMPARE(m_storage->slotTable().size(), 4);
    const StorageSlot slot = m_storage->slotTable().at(index);
    QTEST(slot.name, "name");
    QTEST(slot.mediaType, "mediaType");
    QTEST(slot.controllerId, "controllerId");
    QTEST(slot.mountRoot, "mountRoot");
}

void tst_Storage::anotherTableKeepsItsOrder()
{
    writeFile(path(QStringLiteral("/slots.ini")),
              "[z]\nmediaType=1\ncontroller=3\nmountRoot=/media/zz\n"
              "[a]\nmediaType=7\ncontroller=1\nmountRoot=/media/aa\n");
    start();
    QCOMPARE(m_storage->slotTable().size(), 2);
    QCOMPARE(m_storage->slotTable().at(0).name, QStringLiteral("z"));
    QCOMPARE(m_storage->slotTable().at(1).name, QStringLiteral("a"));
}

void tst_Storage::aWrongTableIsRefused()
{
    writeFile(path(QStringLiteral("/slots.ini")), "[usb0]\nmediaType=1\n");
    Storage storage(*m_folder, *m_journal);
    QString error;
    QVERIFY(!storage.open(&error));
    QCOMPARE(error,
             path(QStringLiteral("/slots.ini, line 1: slot \"usb0\" has no field controller.")));
}

void tst_Storage::aSlotsOwnStickAppears()
{
    QVERIFY(!QFileInfo::exists(path(usb0Root)));
    plug(usb0);
    QVERIFY(QFileInfo(path(usb0Root)).isDir());
    writeFile(path(QStringLiteral("/media/usb0/a/b.txt")), "bytes");
    QCOMPARE(readFile(path(QStringLiteral("/sticks/usb0/a/b.txt"))), QByteArray("bytes"));
    QCOMPARE(m_journal->lines(), QStringList{QStringLiteral("storage plug usb0 /media/usb0")});
}

void tst_Storage::aGivenFolderAppears()
{
    const QString folder = m_temporary->filePath(QStringLiteral("a stick"));
    writeFile(folder + QStringLiteral("/known"), "bytes");
    plug(usb0, folder);
    QCOMPARE(readFile(path(QStringLiteral("/media/usb0/known"))), QByteArray("bytes"));
    QVERIFY(!QFileInfo::exists(path(QStringLiteral("/sticks/usb0"))));
    QCOMPARE(m_journal->lines(), QStringList{QStringLiteral("storage plug usb0 /media/usb0")});
}

void tst_Storage::aRelativeFolderIsTakenFromTheCurrentOne()
{
    writeFile(m_temporary->filePath(QStringLiteral("stick/known")), "bytes");
    const QString former = QDir::currentPath();
    QVERIFY(QDir::setCurrent(m_temporary->path()));
    plug(usb0, QStringLiteral("stick"));
    QVERIFY(QDir::setCurrent(former));
    QCOMPARE(readFile(path(QStringLiteral("/media/usb0/known"))), QByteArray("bytes"));
}

void tst_Storage::aPulledStickVanishesAndKeepsItsContent()
{
    plug(usb0);
    writeFile(path(QStringLiteral("/media/usb0/known")), "bytes");
    pull(usb0);
    QVERIFY(!QFileInfo::exists(path(usb0Root)));
    QVERIFY(!QFileInfo(path(usb0Root)).isSymLink());
    QCOMPARE(readFile(path(QStringLiteral("/sticks/usb0/known"))), QByteArray("bytes"));
    QCOMPARE(m_journal->lines().last(), QStringLiteral("storage pull usb0 /media/usb0"));
    plug(usb0);
    QCOMPARE(readFile(path(QStringLiteral("/media/usb0/known"))), QByteArray("bytes"));
}

void tst_Storage::signalsNameTheMountRoot()
{
    QSignalSpy mounted(m_storage.data(), &Storage::mounted);
    QSignalSpy removed(m_storage.data(), &Storage::removed);
    plug(usb0);
    QCOMPARE(mounted.count(), 1);
    QCOMPARE(mounted.at(0).at(0).toString(), usb0Root);
    QCOMPARE(removed.count(), 0);
    pull(usb0);
    QCOMPARE(mounted.count(), 1);
    QCOMPARE(removed.count(), 1);
    QCOMPARE(removed.at(0).at(0).toString(), usb0Root);
    QString error;
    QVERIFY(!m_storage->pull(usb0, &error));
    QVERIFY(!m_storage->plug(QStringLiteral("none"), QString(), &error));
    QCOMPARE(mounted.count(), 1);
    QCOMPARE(removed.count(), 1);
}

void tst_Storage::aListenerMayAskBack()
{
    QStringList whenMounted;
    QStringList whenRemoved{QStringLiteral("not heard")};
    connect(m_storage.data(), &Storage::mounted, [&] { whenMounted = m_storage->mountRoots(); });
    connect(m_storage.data(), &Storage::removed, [&] { whenRemoved = m_storage->mountRoots(); });
    plug(usb0);
    QCOMPARE(whenMounted, QStringList{usb0Root});
    pull(usb0);
    QCOMPARE(whenRemoved, QStringList());
}

void tst_Storage::mountOrderIsPlugOrder()
{
    plug(sd0);
    plug(usb1);
    plug(usb0);
    QCOMPARE(m_storage->mountRoots(), (QStringList{sd0Root, usb1Root, usb0Root}));
    pull(sd0);
    QCOMPARE(m_storage->mountRoots(), (QStringList{usb1Root, usb0Root}));
    plug(sd0);
    QCOMPARE(m_storage->mountRoots(), (QStringList{usb1Root, usb0Root, sd0Root}));
}

void tst_Storage::mountRootsOfAMediaType()
{
    plug(sd0);
    plug(usb1);
    plug(usb0);
    QCOMPARE(m_storage->mountRoots(1), (QStringList{usb1Root, usb0Root}));
    QCOMPARE(m_storage->mountRoots(2), QStringList{sd0Root});
    QCOMPARE(m_storage->mountRoots(3), QStringList());
}

void tst_Storage::controllerOfAMountRoot()
{
    QCOMPARE(m_storage->controllerId(usb0Root), 0);
    QCOMPARE(m_storage->controllerId(usb1Root), 1);
    QCOMPARE(m_storage->controllerId(QStringLiteral("/media/flash")), -1);
    QCOMPARE(m_storage->controllerId(QStringLiteral("usb0")), -1);
    QCOMPARE(m_storage->controllerId(QString()), -1);
}

void tst_Storage::plugRefuses_data()
{
    QTest::addColumn<QString>("slot");
    QTest::addColumn<QString>("folder");
    QTest::addColumn<QString>("error");

    QTest::newRow("an unknown slot")
        << "usb9"
        << ""
        << "There is no slot \"usb9\"; the slots are: usb0, usb1, sd0, sd1.";
    QTest::newRow("no slot") << ""
                             << ""
                             << "There is no slot \"\"; the slots are: usb0, usb1, sd0, sd1.";
    QTest::newRow("an occupied slot")
        << "usb1"
        << ""
        << "There is a stick in slot \"usb1\" already: \"../sticks/usb1\".";
    QTest::newRow("a missing folder")
        << "usb0"
        << "/nonexistent/stick"
        << "There is no folder \"/nonexistent/stick\" to plug into slot \"usb0\".";
    QTest::newRow("a file") << "usb0"
                            << "/etc/passwd"
                            << "There is no folder \"/etc/passwd\" to plug into slot \"usb0\".";
}

void tst_Storage::plugRefuses()
{
    QFETCH(QString, slot);
    QFETCH(QString, folder);
    QFETCH(QString, error);

    plug(usb1);
    const qint64 before = m_journal->end();
    QString said;
    QVERIFY(!m_storage->plug(slot, folder, &said));
    QCOMPARE(said, error);
    QCOMPARE(m_storage->mountRoots(), QStringList{usb1Root});
    QCOMPARE(m_journal->end(), before);
    start();
    QCOMPARE(m_storage->mountRoots(), QStringList{usb1Root});
}

void tst_Storage::pullRefuses()
{
    QString error;
    QVERIFY(!m_storage->pull(usb0, &error));
    QCOMPARE(error, QStringLiteral("There is no stick in slot \"usb0\"."));
    QVERIFY(!m_storage->pull(QStringLiteral("usb9"), &error));
    QCOMPARE(error,
             QStringLiteral("There is no slot \"usb9\"; the slots are: usb0, usb1, sd0, sd1."));
    QCOMPARE(m_journal->end(), qint64(0));
}

void tst_Storage::aFullStickIsMarkedUntilItIsNot()
{
    QString error;
    const QString mark = path(QStringLiteral("/full/usb0"));
    QVERIFY2(m_storage->setFull(usb0, true, &error), qPrintable(error));
    QVERIFY(QFileInfo::exists(mark));
    QVERIFY(m_storage->setFull(usb0, true, &error));
    QVERIFY(m_storage->setFull(usb0, false, &error));
    QVERIFY(!QFileInfo::exists(mark));
    QVERIFY(m_storage->setFull(usb0, false, &error));
    QVERIFY(!m_storage->setFull(QStringLiteral("usb9"), true, &error));
    QCOMPARE(error,
             QStringLiteral("There is no slot \"usb9\"; the slots are: usb0, usb1, sd0, sd1."));
    QCOMPARE(m_journal->lines(),
             QStringList({"storage full usb0", "storage full usb0", "storage free usb0",
                          "storage free usb0"}));
}

void tst_Storage::whatIsInTheWayIsLeft_data()
{
    QTest::addColumn<QString>("kind");

    QTest::newRow("folder") << "folder";
    QTest::newRow("file") << "file";
    QTest::newRow("foreign link") << "link";
    QTest::newRow("dangling link") << "dangling";
}

void tst_Storage::whatIsInTheWayIsLeft()
{
    QFETCH(QString, kind);

    const QString place = path(usb0Root);
    const QString foreign = m_temporary->filePath(QStringLiteral("foreign"));
    if (kind == QLatin1String("folder")) {
        writeFile(place + QStringLiteral("/known"), "bytes");
    } else if (kind == QLatin1String("file")) {
        writeFile(place, "bytes");
    } else {
        QVERIFY(QFile::link(foreign, place));
        if (kind == QLatin1String("link")) {
            writeFile(foreign + QStringLiteral("/known"), "bytes");
        }
    }
    QString error;
    QVERIFY(!m_storage->plug(usb0, QString(), &error));
    QCOMPARE(error,
             QStringLiteral("\"%1\" cannot become a link to the stick in slot \"usb0\": File "
                            "exists.")
                 .arg(place));
    QCOMPARE(m_storage->mountRoots(), QStringList());
    QVERIFY(!m_storage->pull(usb0, &error));
    const QFileInfo info(place);
    if (kind == QLatin1String("file")) {
        QCOMPARE(readFile(place), QByteArray("bytes"));
    } else if (kind == QLatin1String("dangling")) {
        QCOMPARE(info.symLinkTarget(), foreign);
    } else {
        QCOMPARE(readFile(place + QStringLiteral("/known")), QByteArray("bytes"));
        QCOMPARE(info.isSymLink(), kind == QLatin1String("link"));
    }
}

void tst_Storage::aLinkToTheStickIsTakenOver_data()
{
    QTest::addColumn<QString>("target");
    QTest::addColumn<QString>("folder");
    QTest::newRow("as it is made") << "../sticks/usb0"
                                   << "";
    QTest::newRow("by another name") << "../sticks/./usb0"
                                     << "";
    QTest::newRow("a given folder") << "../../given"
                                    << "given";
}

void tst_Storage::aLinkToTheStickIsTakenOver()
{
    QFETCH(QString, target);
    QFETCH(QString, folder);
    QVERIFY(QDir().mkpath(path(QStringLiteral("/sticks/usb0"))));
    QVERIFY(QDir(m_temporary->path()).mkpath(QStringLiteral("given")));
    // What a simulator leaves that dies between two steps.
    QCOMPARE(symlink(qPrintable(target), qPrintable(path(usb0Root))), 0);
    plug(usb0, folder.isEmpty() ? QString() : m_temporary->filePath(folder));
    QCOMPARE(m_storage->mountRoots(), QStringList{usb0Root});
    QVERIFY(QFileInfo(path(usb0Root)).isDir());
    pull(usb0);
    QVERIFY(!QFileInfo(path(usb0Root)).isSymLink());
}

void tst_Storage::whatReplacedALinkIsLeft()
{
    plug(usb0);
    QVERIFY(QFile::remove(path(usb0Root)));
    writeFile(path(QStringLiteral("/media/usb0/known")), "bytes");
    pull(usb0);
    QCOMPARE(readFile(path(QStringLiteral("/media/usb0/known"))), QByteArray("bytes"));
    QCOMPARE(m_storage->mountRoots(), QStringList());
}

void tst_Storage::aRestartFindsTheSticksInOrder()
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

void tst_Storage::aRestartForgetsAVanishedStick()
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

void tst_Storage::aRestartForgetsAStickWithoutSlot()
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

void tst_Storage::aRestartFollowsAMovedMountRoot()
{
    plug(usb0);
    writeFile(path(QStringLiteral("/slots.ini")),
              "[usb0]\nmediaType=1\ncontroller=0\nmountRoot=/media/front\n");
    start();
    QCOMPARE(m_storage->mountRoots(), QStringList{QStringLiteral("/media/front")});
    QVERIFY(QFileInfo(path(QStringLiteral("/media/front"))).isDir());
    QVERIFY(!QFileInfo(path(usb0Root)).isSymLink());
}

void tst_Storage::aRestartMendsALostLink()
{
    plug(usb0);
    QVERIFY(QFile::remove(path(usb0Root)));
    start();
    QCOMPARE(m_storage->mountRoots(), QStringList{usb0Root});
    QVERIFY(QFileInfo(path(usb0Root)).isDir());
}

void tst_Storage::aMovedUnitKeepsItsOwnSticks()
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

void tst_Storage::aDamagedListIsRefusedAndLeft()
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

void tst_Storage::aListThatCannotBeWrittenRefusesThePlug()
{
    const QString file = path(QStringLiteral("/storage.ini"));
    QFile::remove(file);
    QVERIFY(QDir().mkpath(file + QStringLiteral("/in the way")));
    QString error;
    QVERIFY(!m_storage->plug(usb0, QString(), &error));
    QCOMPARE(
        error,
        QStringLiteral("The list of plugged sticks \"%1\" cannot be written: Filename refers to "
                       "a directory.")
            .arg(file));
    QCOMPARE(m_storage->mountRoots(), QStringList());
    QVERIFY(!QFileInfo(path(usb0Root)).isSymLink());
}

void tst_Storage::aStickNameWithOddCharacters()
{
    writeFile(path(QStringLiteral("/slots.ini")),
              "[u;s$b 0]\nmediaType=1\ncontroller=0\nmountRoot=/media/a 'b' $c\n");
    start();
    plug(QStringLiteral("u;s$b 0"));
    start();
    QCOMPARE(m_storage->mountRoots(), QStringList{QStringLiteral("/media/a 'b' $c")});
    QVERIFY(QFileInfo(path(QStringLiteral("/media/a 'b' $c"))).isDir());
}

void tst_Storage::threadsPlugAndPull()
{
    constexpr int rounds = 10;
    std::vector<std::thread> threads;
    std::atomic<int> failures{0};
    for (const QString &slot : {usb0, usb1, sd0}) {
        threads.emplace_back([this, slot, &failures] {
            QString error;
            for (int i = 0; i < rounds; ++i) {
                failures += m_storage->plug(slot, QString(), &error) ? 0 : 1;
                m_storage->mountRoots();
                failures += m_storage->pull(slot, &error) ? 0 : 1;
            }
        });
    }
    for (std::thread &thread : threads) {
        thread.join();
    }
    QCOMPARE(failures.load(), 0);
    QCOMPARE(m_storage->mountRoots(), QStringList());
    QCOMPARE(m_journal->end(), qint64(3 * 2 * rounds));
    start();
    QCOMPARE(m_storage->mountRoots(), QStringList());
}

QTEST_GUILESS_MAIN(tst_Storage)
#include "tst_storage.moc"
