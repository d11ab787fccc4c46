#include "hardware/storage/storage.h"

#include "storagetest.h"

#include "support/testmain.h"

#include <QDir>
#include <QFileInfo>
#include <QtTest>

#include <cerrno>

using hardware::StickTrait;

Q_DECLARE_METATYPE(StickTrait)

/// What a stick can be like.
class TestStorageTraits : public QObject, private StorageTest
{
    Q_OBJECT

private slots:
    void init();

    void lastsUntilItIsTakenBack_data();
    void lastsUntilItIsTakenBack();
    void anUnknownSlotHasNone();
    void aMarkMadeByHandCounts();
    void aMarkThatCannotBeWrittenIsSaid();
    void isThatOfThePathsOnThePluggedStick_data();
    void isThatOfThePathsOnThePluggedStick();
};

namespace
{

const StickTrait allTraits[] = {StickTrait::Full, StickTrait::WriteProtected, StickTrait::Slow};

} // namespace

void TestStorageTraits::init()
{
    switchOn();
}

void TestStorageTraits::lastsUntilItIsTakenBack_data()
{
    QTest::addColumn<StickTrait>("trait");
    QTest::addColumn<int>("value");
    QTest::addColumn<QString>("mark");
    QTest::addColumn<QString>("on");
    QTest::addColumn<QString>("off");
    QTest::newRow("full") << StickTrait::Full << 1 << "/full/usb0"
                          << "storage full usb0"
                          << "storage free usb0";
    QTest::newRow("write-protected") << StickTrait::WriteProtected << 1 << "/write-protected/usb0"
                                     << "storage write-protected usb0"
                                     << "storage writable usb0";
    QTest::newRow("slow") << StickTrait::Slow << 100000 << "/slow/usb0"
                          << "storage slow usb0 100000"
                          << "storage fast usb0";
}

void TestStorageTraits::lastsUntilItIsTakenBack()
{
    QFETCH(StickTrait, trait);
    QFETCH(int, value);
    QFETCH(QString, mark);
    QFETCH(QString, on);
    QFETCH(QString, off);

    const auto traits = [this] {
        QList<int> values;
        for (const StickTrait each : allTraits) {
            values.append(m_storage->trait(usb0, each));
        }
        return values;
    };
    QList<int> expected = {0, 0, 0};
    QCOMPARE(traits(), expected);
    QString error;
    QVERIFY2(m_storage->setTrait(usb0, trait, value, &error), qPrintable(error));
    QVERIFY2(m_storage->setTrait(usb0, trait, value, &error), qPrintable(error));
    expected[int(trait)] = value;
    QCOMPARE(traits(), expected);
    QCOMPARE(readFile(path(mark)), QByteArray::number(value) + '\n');
    QCOMPARE(m_storage->trait(usb1, trait), 0);
    QCOMPARE(m_journal->lines(), (QStringList{on, on}));
    start();
    QCOMPARE(traits(), expected);
    QVERIFY(m_storage->setTrait(usb0, trait, 0, &error));
    QVERIFY(!QFileInfo::exists(path(mark)));
    QVERIFY(m_storage->setTrait(usb0, trait, 0, &error));
    QCOMPARE(traits(), (QList<int>{0, 0, 0}));
    QCOMPARE(m_journal->lines(), (QStringList{off, off}));
}

void TestStorageTraits::anUnknownSlotHasNone()
{
    for (const StickTrait trait : allTraits) {
        QString error;
        QVERIFY(!m_storage->setTrait(QStringLiteral("usb9"), trait, 1, &error));
        QCOMPARE(error,
                 QStringLiteral("There is no slot \"usb9\"; the slots are: usb0, usb1, sd0, sd1."));
        QCOMPARE(m_storage->trait(QStringLiteral("usb9"), trait), 0);
    }
    QCOMPARE(m_journal->end(), qint64(0));
}

void TestStorageTraits::aMarkMadeByHandCounts()
{
    writeFile(path(QStringLiteral("/full/usb0")), "");
    writeFile(path(QStringLiteral("/write-protected/usb0")), "yes");
    writeFile(path(QStringLiteral("/slow/usb0")), "very");
    writeFile(path(QStringLiteral("/slow/usb1")), "5000");
    QCOMPARE(m_storage->trait(usb0, StickTrait::Full), 1);
    QCOMPARE(m_storage->trait(usb0, StickTrait::WriteProtected), 1);
    QCOMPARE(m_storage->trait(usb0, StickTrait::Slow), 0);
    QCOMPARE(m_storage->trait(usb1, StickTrait::Slow), 5000);
}

void TestStorageTraits::aMarkThatCannotBeWrittenIsSaid()
{
    writeFile(path(QStringLiteral("/slow")), "in the way");
    QString error;
    QVERIFY(!m_storage->setTrait(usb0, StickTrait::Slow, 1, &error));
    QCOMPARE(error, QStringLiteral("\"%1\" cannot be written.").arg(path("/slow/usb0")));
    QCOMPARE(m_storage->trait(usb0, StickTrait::Slow), 0);
    QCOMPARE(m_journal->end(), qint64(0));
}

void TestStorageTraits::isThatOfThePathsOnThePluggedStick_data()
{
    QTest::addColumn<QByteArray>("path");
    QTest::addColumn<int>("speed");
    QTest::newRow("mount root") << QByteArray("/media/usb0") << 7;
    QTest::newRow("file") << QByteArray("/media/usb0/file") << 7;
    QTest::newRow("folder, slash") << QByteArray("/media/usb0/a/b/") << 7;
    QTest::newRow("longer name") << QByteArray("/media/usb01/file") << 0;
    QTest::newRow("above") << QByteArray("/media") << 0;
    QTest::newRow("another") << QByteArray("/media/usb1/file") << 0;
    QTest::newRow("not plugged") << QByteArray("/media/sd0/file") << 0;
    QTest::newRow("nothing") << QByteArray() << 0;
}

void TestStorageTraits::isThatOfThePathsOnThePluggedStick()
{
    QFETCH(QByteArray, path);
    plug(usb0);
    plug(usb1);
    QString error;
    QVERIFY(m_storage->setTrait(usb0, StickTrait::Slow, 7, &error));
    QVERIFY(m_storage->setTrait(sd0, StickTrait::Slow, 7, &error));
    errno = ENOTEMPTY;
    const int speed = m_storage->traitAt(path, StickTrait::Slow);
    QCOMPARE(errno, ENOTEMPTY);
    QTEST(speed, "speed");
    QCOMPARE(m_storage->traitAt(path, StickTrait::WriteProtected), 0);
}

FACTORY_TEST_GUILESS_MAIN(TestStorageTraits)
#include "tst_storage_traits.moc"
