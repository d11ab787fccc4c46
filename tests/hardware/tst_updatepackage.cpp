#include "hardware/update/updatepackage.h"

#include "support/openunit.h"
#include "support/packages.h"
#include "support/testmain.h"

#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

using hardware::UpdatePackage;

class TestUpdatePackage : public QObject
{
    Q_OBJECT

private slots:
    void versions_data();
    void versions();
    void check_data();
    void check();
    void damagedHeaderIsNoPackage_data();
    void damagedHeaderIsNoPackage();
    void missingFileIsUnreadable();
    void vanishedFileIsUnreadable();
    void piecesDoNotMatter_data();
    void piecesDoNotMatter();
    void checksumIsReflectedAndInverted();

private:
    QString package(const QStringList &options = QStringList());

    QTemporaryDir m_folder;
};

namespace
{

UpdatePackage::Result checked(const QString &file, int pieceBytes = 1000)
{
    UpdatePackage package(file);
    while (package.readOn(pieceBytes)) { }
    return package.result();
}

} // namespace

QString TestUpdatePackage::package(const QStringList &options)
{
    const QString file = m_folder.filePath(QStringLiteral("ORRERY_PACK.BIN"));
    makeUpdatePackage(file, options);
    return file;
}

void TestUpdatePackage::versions_data()
{
    QTest::addColumn<QString>("customer");
    QTest::addColumn<QString>("sdk");
    QTest::newRow("plain") << QStringLiteral("CUST 1") << QStringLiteral("SDK 2");
    QTest::newRow("empty") << QString() << QString();
    QTest::newRow("32 bytes") << QString(32, QLatin1Char('c')) << QString(32, QLatin1Char('s'));
    QTest::newRow("UTF-8") << QStringLiteral("Pr\u00FCfstand") << QStringLiteral("\u7248\u672C 3");
}

void TestUpdatePackage::versions()
{
    QFETCH(QString, customer);
    QFETCH(QString, sdk);
    const QString file = m_folder.filePath(QStringLiteral("versions"));
    makeUpdatePackage(file, {}, customer, sdk);
    const UpdatePackage package(file);
    QCOMPARE(package.customerVersion(), customer);
    QCOMPARE(package.sdkVersion(), sdk);
    QCOMPARE(checked(file), UpdatePackage::Good);
}

void TestUpdatePackage::check_data()
{
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<int>("result");
    QTest::newRow("good") << QStringList() << int(UpdatePackage::Good);
    QTest::newRow("without a payload")
        << QStringList({QStringLiteral("--size"), QStringLiteral("0")}) << int(UpdatePackage::Good);
    QTest::newRow("one byte of payload")
        << QStringList({QStringLiteral("--size"), QStringLiteral("1")}) << int(UpdatePackage::Good);
    QTest::newRow("corrupt") << QStringList(QStringLiteral("--corrupt"))
                             << int(UpdatePackage::WrongChecksum);
    QTest::newRow("corrupt without a payload")
        << QStringList({QStringLiteral("--corrupt"), QStringLiteral("--size"), QStringLiteral("0")})
        << int(UpdatePackage::WrongChecksum);
    QTest::newRow("truncated") << QStringList(QStringLiteral("--truncated"))
                               << int(UpdatePackage::WrongLength);
}

void TestUpdatePackage::check()
{
    QFETCH(QStringList, options);
    QFETCH(int, result);
    QCOMPARE(int(checked(package(options))), result);
}

void TestUpdatePackage::damagedHeaderIsNoPackage_data()
{
    QTest::addColumn<int>("offset");
    QTest::addColumn<int>("length");
    QTest::newRow("magic") << 0 << -1;
    QTest::newRow("format") << 8 << -1;
    QTest::newRow("empty file") << -1 << 0;
    QTest::newRow("header one byte short") << -1 << 79;
}

void TestUpdatePackage::damagedHeaderIsNoPackage()
{
    QFETCH(int, offset);
    QFETCH(int, length);
    QByteArray bytes = readFile(package());
    if (offset >= 0) {
        bytes[offset] = char(bytes.at(offset) ^ 0x40);
    }
    const QString file = m_folder.filePath(QStringLiteral("damaged"));
    writeFile(file, length >= 0 ? bytes.left(length) : bytes);
    QCOMPARE(UpdatePackage(file).customerVersion(), QString());
    QCOMPARE(UpdatePackage(file).sdkVersion(), QString());
    QCOMPARE(checked(file), UpdatePackage::NoPackage);

    writeFile(file, readFile(package()) + 'x');
    QCOMPARE(checked(file), UpdatePackage::WrongLength);
}

void TestUpdatePackage::missingFileIsUnreadable()
{
    const QString file = m_folder.filePath(QStringLiteral("missing"));
    QCOMPARE(checked(file), UpdatePackage::Unreadable);
    QCOMPARE(UpdatePackage(file).customerVersion(), QString());
}

void TestUpdatePackage::vanishedFileIsUnreadable()
{
    const QString file = package();
    UpdatePackage package(file);
    QVERIFY(package.readOn(1000));
    QVERIFY(QFile::remove(file));
    QVERIFY(!package.readOn(1000));
    QCOMPARE(package.result(), UpdatePackage::Unreadable);
}

void TestUpdatePackage::piecesDoNotMatter_data()
{
    QTest::addColumn<int>("bytes");
    // The package has 65536 + 84 bytes.
    QTest::newRow("many") << 7;
    QTest::newRow("two") << 65600;
    QTest::newRow("exactly one") << 65616;
    QTest::newRow("more than there is") << 1000000;
}

void TestUpdatePackage::piecesDoNotMatter()
{
    QFETCH(int, bytes);
    QCOMPARE(checked(package(), bytes), UpdatePackage::Good);
    QCOMPARE(checked(package({QStringLiteral("--corrupt")}), bytes), UpdatePackage::WrongChecksum);
}

void TestUpdatePackage::checksumIsReflectedAndInverted()
{
    // A package without a payload; its checksum was computed bit by bit, with 0xEDB88320.
    const QString file = m_folder.filePath(QStringLiteral("by hand"));
    writeFile(file, QByteArray("ORRERYPK\1") + QByteArray(71, '\0') + "\x03\x3E\x48\x85");
    QCOMPARE(checked(file), UpdatePackage::Good);
}

FACTORY_TEST_GUILESS_MAIN(TestUpdatePackage)
#include "tst_updatepackage.moc"
