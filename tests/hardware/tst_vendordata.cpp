#include "hardware/unit/journal.h"
#include "hardware/unit/vendordata.h"

#include "support/fulldisk.h"
#include "support/testmain.h"

#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

using namespace hardware;

class TestVendorData : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void findsAPlace();
    void unknownPositionChangesNothing();
    void writesBytesThatAreKept();
    void refusesToWriteOutside_data();
    void refusesToWriteOutside();
    void refusedLookUps();
    void refusedWrites();
    void aFullDiskLeavesWhatWasThere();
    void newMemoryHoldsInitialValues();
    void badTableIsAClearError_data();
    void badTableIsAClearError();

private:
    bool open(const QByteArray &table);
    QByteArray memory() const;

    QScopedPointer<QTemporaryDir> m_folder;
    QScopedPointer<Journal> m_journal;
    QScopedPointer<VendorData> m_data;
    QString m_error;
};

namespace
{
const char table[] = "[first]\nposition = 0\noffset = 16\nlength = 8\n"
                     "[second]\nposition = 7\noffset = 4092\nlength = 4\n";
}

bool TestVendorData::open(const QByteArray &content)
{
    QFile file(m_folder->filePath(QStringLiteral("vendor.ini")));
    return file.open(QIODevice::WriteOnly) && file.write(content) == content.size() && file.flush()
        && m_data->open(file.fileName(), m_folder->filePath(QStringLiteral("vendor.bin")),
                        &m_error);
}

QByteArray TestVendorData::memory() const
{
    QFile file(m_folder->filePath(QStringLiteral("vendor.bin")));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void TestVendorData::init()
{
    m_folder.reset(new QTemporaryDir);
    m_journal.reset(new Journal);
    m_data.reset(new VendorData(*m_journal));
    QVERIFY2(open(table), qPrintable(m_error));
}

void TestVendorData::findsAPlace()
{
    int offset = -1;
    int length = -1;
    QVERIFY(m_data->find(7, &offset, &length));
    QCOMPARE(offset, 4092);
    QCOMPARE(length, 4);
}

void TestVendorData::unknownPositionChangesNothing()
{
    int offset = -1;
    int length = -2;
    QVERIFY(!m_data->find(1, &offset, &length));
    QCOMPARE(offset, -1);
    QCOMPARE(length, -2);
    QCOMPARE(m_data->item(1), QByteArray());
}

void TestVendorData::writesBytesThatAreKept()
{
    QVERIFY(m_data->write(16, QByteArray("\x01\xFF\0\x7F", 4)));
    QCOMPARE(memory().size(), 4096);
    QCOMPARE(memory().mid(15, 6), QByteArray("\0\x01\xFF\0\x7F\0", 6));
    QCOMPARE(m_data->item(0), QByteArray("\x01\xFF\0\x7F\0\0\0\0", 8));
    QCOMPARE(m_journal->lines(), QStringList(QStringLiteral("vendor write 16 01 FF 00 7F")));

    VendorData again(*m_journal);
    QVERIFY(again.open(m_folder->filePath(QStringLiteral("vendor.ini")),
                       m_folder->filePath(QStringLiteral("vendor.bin")), &m_error));
    QCOMPARE(again.item(0), QByteArray("\x01\xFF\0\x7F\0\0\0\0", 8));
}

void TestVendorData::refusesToWriteOutside_data()
{
    QTest::addColumn<int>("offset");
    QTest::addColumn<int>("size");
    QTest::newRow("before the beginning") << -1 << 1;
    QTest::newRow("over the end") << 4093 << 4;
    QTest::newRow("far behind the end") << 0x7FFFFFFF << 4;
}

void TestVendorData::refusesToWriteOutside()
{
    QFETCH(int, offset);
    QFETCH(int, size);
    const QByteArray before = memory();
    QVERIFY(!m_data->write(offset, QByteArray(size, 'x')));
    QCOMPARE(memory(), before);
    QCOMPARE(m_journal->lines(), QStringList(QStringLiteral("vendor refused write")));
}

void TestVendorData::refusedLookUps()
{
    int offset = 0;
    int length = 0;
    m_data->refuseLookUps(true);
    QVERIFY(!m_data->find(0, &offset, &length));
    QCOMPARE(m_journal->lines(), QStringList(QStringLiteral("vendor refused position 0")));
    m_data->refuseLookUps(false);
    QVERIFY(m_data->find(0, &offset, &length));
}

void TestVendorData::refusedWrites()
{
    m_data->refuseWrites(true);
    QVERIFY(!m_data->write(16, "x"));
    m_data->refuseWrites(false);
    QVERIFY(m_data->write(16, "x"));
}

void TestVendorData::aFullDiskLeavesWhatWasThere()
{
    QVERIFY(m_data->write(16, "kept"));
    const QByteArray before = memory();
    {
        const FullDisk full(100);
        QVERIFY(!m_data->write(16, "lost"));
    }
    QCOMPARE(memory(), before);
    QVERIFY(m_journal->hasFailedWrites());
    QVERIFY(m_data->write(16, "then"));
}

void TestVendorData::newMemoryHoldsInitialValues()
{
    const QByteArray initials("[first]\nposition = 0\noffset = 16\nlength = 8\ninitial = -2\n"
                              "[second]\nposition = 7\noffset = 4092\nlength = 4\ninitial = 258\n");
    // A memory that is there already keeps what it holds.
    QVERIFY2(open(initials), qPrintable(m_error));
    QCOMPARE(memory(), QByteArray(VendorData::size, '\0'));

    QVERIFY(QFile::remove(m_folder->filePath(QStringLiteral("vendor.bin"))));
    QVERIFY2(open(initials), qPrintable(m_error));
    QCOMPARE(m_data->item(0), QByteArray("\xFE\xFF\xFF\xFF\0\0\0\0", 8));
    QCOMPARE(m_data->item(7), QByteArray("\x02\x01\0\0", 4));
}

void TestVendorData::badTableIsAClearError_data()
{
    QTest::addColumn<QByteArray>("table");
    QTest::addColumn<QString>("complaint");
    QTest::newRow("no offset") << QByteArray("[a]\nposition = 1\nlength = 4\n")
                               << QStringLiteral("line 1: item \"a\" has no field offset.");
    QTest::newRow("no number") << QByteArray("[a]\nposition = one\noffset = 0\nlength = 4\n")
                               << QStringLiteral(
                                      "line 2: item \"a\": position \"one\" is not allowed");
    QTest::newRow("over the end")
        << QByteArray("[a]\nposition = 1\noffset = 4093\nlength = 4\n")
        << QStringLiteral("length \"4\" is not allowed; allowed is a whole number from 0 to 3.");
    QTest::newRow("initial without room")
        << QByteArray("[a]\nposition = 1\noffset = 0\nlength = 3\ninitial = 1\n")
        << QStringLiteral("line 5: item \"a\": initial \"1\" is not allowed");
    QTest::newRow("initial of letters")
        << QByteArray("[a]\nposition = 1\noffset = 0\nlength = 4\ninitial = one\n")
        << QStringLiteral("line 5: item \"a\": initial \"one\" is not allowed");
    const QByteArray first("[a]\nposition = 1\noffset = 8\nlength = 4\n");
    QTest::newRow("position twice")
        << first + "[b]\nposition = 01\noffset = 0\nlength = 4\n"
        << QStringLiteral("line 6: item \"b\": position \"01\" is not allowed; item \"a\" has it "
                          "already.");
    QTest::newRow("overlap from below")
        << first + "[b]\nposition = 2\noffset = 5\nlength = 4\n"
        << QStringLiteral("line 7: item \"b\": offset \"5\" is not allowed; item \"a\" has the "
                          "bytes from 8 to 11.");
    QTest::newRow("overlap from above")
        << first + "[b]\nposition = 2\noffset = 11\nlength = 4\n"
        << QStringLiteral("line 7: item \"b\": offset \"11\" is not allowed");
    QTest::newRow("unknown field")
        << first + "size = 4\n"
        << QStringLiteral("line 5: item \"a\": field \"size\" is not allowed; allowed is position, "
                          "offset, length, initial.");
    QTest::newRow("initial too large")
        << first + "initial = 2147483648\n"
        << QStringLiteral("line 5: item \"a\": initial \"2147483648\" is not allowed; allowed is a "
                          "whole number from -2147483648 to 2147483647.");
    QTest::newRow("negative") << QByteArray("[a]\nposition = 1\noffset = -4\nlength = 4\n")
                              << QStringLiteral("offset \"-4\" is not allowed");
}

void TestVendorData::badTableIsAClearError()
{
    QFETCH(QByteArray, table);
    QFETCH(QString, complaint);
    QVERIFY(!open(table));
    QVERIFY2(m_error.contains(complaint), qPrintable(m_error));
    QVERIFY2(m_error.contains(QLatin1String("vendor.ini")), qPrintable(m_error));
}

FACTORY_TEST_GUILESS_MAIN(TestVendorData)
#include "tst_vendordata.moc"
