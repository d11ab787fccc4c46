#include "hardware/storage/storage.h"

#include "storagetest.h"

#include "support/testmain.h"

#include <QDir>
#include <QFileInfo>
#include <QSignalSpy>
#include <QtTest>

#include <thread>
#include <vector>

#include <unistd.h>

using hardware::Storage;
using hardware::StorageSlot;

class TestStorage : public QObject, private StorageTest
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
    void whatIsInTheWayIsLeft_data();
    void whatIsInTheWayIsLeft();
    void aLinkToTheStickIsTakenOver_data();
    void aLinkToTheStickIsTakenOver();
    void whatReplacedALinkIsLeft();
    void threadsPlugAndPull();
};

void TestStorage::init()
{
    switchOn();
}

void TestStorage::theDefaultTable_data()
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

void TestStorage::theDefaultTable()
{
    QFETCH(int, index);

    QCOMPARE(m_storage->slotTable().size(), 4);
    const StorageSlot slot = m_storage->slotTable().at(index);
    QTEST(slot.name, "name");
    QTEST(slot.mediaType, "mediaType");
    QTEST(slot.controllerId, "controllerId");
    QTEST(slot.mountRoot, "mountRoot");
}

void TestStorage::anotherTableKeepsItsOrder()
{
    writeFile(path(QStringLiteral("/slots.ini")),
              "[z]\nmediaType=1\ncontroller=3\nmountRoot=/media/zz\n"
              "[a]\nmediaType=7\ncontroller=1\nmountRoot=/media/aa\n");
    start();
    QCOMPARE(m_storage->slotTable().size(), 2);
    QCOMPARE(m_storage->slotTable().at(0).name, QStringLiteral("z"));
    QCOMPARE(m_storage->slotTable().at(1).name, QStringLiteral("a"));
}

void TestStorage::aWrongTableIsRefused()
{
    writeFile(path(QStringLiteral("/slots.ini")), "[usb0]\nmediaType=1\n");
    Storage storage(*m_folder, *m_journal);
    QString error;
    QVERIFY(!storage.open(&error));
    QCOMPARE(error,
             path(QStringLiteral("/slots.ini, line 1: slot \"usb0\" has no field controller.")));
}

void TestStorage::aSlotsOwnStickAppears()
{
    QVERIFY(!QFileInfo::exists(path(usb0Root)));
    plug(usb0);
    QVERIFY(QFileInfo(path(usb0Root)).isDir());
    writeFile(path(QStringLiteral("/media/usb0/a/b.txt")), "bytes");
    QCOMPARE(readFile(path(QStringLiteral("/sticks/usb0/a/b.txt"))), QByteArray("bytes"));
    QCOMPARE(m_journal->lines(), QStringList{QStringLiteral("storage plug usb0 /media/usb0")});
}

void TestStorage::aGivenFolderAppears()
{
    const QString folder = m_temporary->filePath(QStringLiteral("a stick"));
    writeFile(folder + QStringLiteral("/known"), "bytes");
    plug(usb0, folder);
    QCOMPARE(readFile(path(QStringLiteral("/media/usb0/known"))), QByteArray("bytes"));
    QVERIFY(!QFileInfo::exists(path(QStringLiteral("/sticks/usb0"))));
    QCOMPARE(m_journal->lines(), QStringList{QStringLiteral("storage plug usb0 /media/usb0")});
}

void TestStorage::aRelativeFolderIsTakenFromTheCurrentOne()
{
    writeFile(m_temporary->filePath(QStringLiteral("stick/known")), "bytes");
    const QString former = QDir::currentPath();
    QVERIFY(QDir::setCurrent(m_temporary->path()));
    plug(usb0, QStringLiteral("stick"));
    QVERIFY(QDir::setCurrent(former));
    QCOMPARE(readFile(path(QStringLiteral("/media/usb0/known"))), QByteArray("bytes"));
}

void TestStorage::aPulledStickVanishesAndKeepsItsContent()
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

void TestStorage::signalsNameTheMountRoot()
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

void TestStorage::aListenerMayAskBack()
{
    QStringList whenMounted;
    QStringList whenRemoved{QStringLiteral("not heard")};
    const auto keepIn = [this](QStringList *roots) {
        return [this, roots] { *roots = m_storage->mountRoots(); };
    };
    connect(m_storage.data(), &Storage::mounted, this, keepIn(&whenMounted));
    connect(m_storage.data(), &Storage::removed, this, keepIn(&whenRemoved));
    plug(usb0);
    QCOMPARE(whenMounted, QStringList{usb0Root});
    pull(usb0);
    QCOMPARE(whenRemoved, QStringList());
}

void TestStorage::mountOrderIsPlugOrder()
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

void TestStorage::mountRootsOfAMediaType()
{
    plug(sd0);
    plug(usb1);
    plug(usb0);
    QCOMPARE(m_storage->mountRoots(1), (QStringList{usb1Root, usb0Root}));
    QCOMPARE(m_storage->mountRoots(2), QStringList{sd0Root});
    QCOMPARE(m_storage->mountRoots(3), QStringList());
}

void TestStorage::controllerOfAMountRoot()
{
    QCOMPARE(m_storage->controllerId(usb0Root), 0);
    QCOMPARE(m_storage->controllerId(usb1Root), 1);
    QCOMPARE(m_storage->controllerId(QStringLiteral("/media/flash")), -1);
    QCOMPARE(m_storage->controllerId(QStringLiteral("usb0")), -1);
    QCOMPARE(m_storage->controllerId(QString()), -1);
}

void TestStorage::plugRefuses_data()
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

void TestStorage::plugRefuses()
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

void TestStorage::pullRefuses()
{
    QString error;
    QVERIFY(!m_storage->pull(usb0, &error));
    QCOMPARE(error, QStringLiteral("There is no stick in slot \"usb0\"."));
    QVERIFY(!m_storage->pull(QStringLiteral("usb9"), &error));
    QCOMPARE(error,
             QStringLiteral("There is no slot \"usb9\"; the slots are: usb0, usb1, sd0, sd1."));
    QCOMPARE(m_journal->end(), qint64(0));
}

void TestStorage::whatIsInTheWayIsLeft_data()
{
    QTest::addColumn<QString>("kind");

    QTest::newRow("folder") << "folder";
    QTest::newRow("file") << "file";
    QTest::newRow("foreign link") << "link";
    QTest::newRow("dangling link") << "dangling";
}

void TestStorage::whatIsInTheWayIsLeft()
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

void TestStorage::aLinkToTheStickIsTakenOver_data()
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

void TestStorage::aLinkToTheStickIsTakenOver()
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

void TestStorage::whatReplacedALinkIsLeft()
{
    plug(usb0);
    QVERIFY(QFile::remove(path(usb0Root)));
    writeFile(path(QStringLiteral("/media/usb0/known")), "bytes");
    pull(usb0);
    QCOMPARE(readFile(path(QStringLiteral("/media/usb0/known"))), QByteArray("bytes"));
    QCOMPARE(m_storage->mountRoots(), QStringList());
}

void TestStorage::threadsPlugAndPull()
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

FACTORY_TEST_GUILESS_MAIN(TestStorage)
#include "tst_storage.moc"
