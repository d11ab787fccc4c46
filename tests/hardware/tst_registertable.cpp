#include "hardware/memory/registertable.h"

#include "support/openunit.h"
#include "support/testmain.h"

#include <QTemporaryDir>
#include <QtTest>

using hardware::MemoryRegister;
using hardware::RegisterTable;

class tst_RegisterTable : public QObject
{
    Q_OBJECT

private slots:
    void readsNamesAddressesAndResetValues();
    void findsByNameAndByAddress();
    void theUnitsOwnTableNamesEveryRegister_data();
    void theUnitsOwnTableNamesEveryRegister();
    void refuses_data();
    void refuses();
};

void tst_RegisterTable::readsNamesAddressesAndResetValues()
{
    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("registers.ini"));
    writeFile(file, "[two]\naddress = ffffFFFC\nreset=DEADbeef\n[one]\nreset = 0\naddress = 10\n");
    RegisterTable table;
    QString error;
    QVERIFY2(table.read(file, &error), qPrintable(error));
    QCOMPARE(table.all().size(), 2);
    QCOMPARE(table.all().at(0).name, QStringLiteral("two"));
    QCOMPARE(table.all().at(0).address, 0xFFFFFFFCu);
    QCOMPARE(table.all().at(0).reset, 0xDEADBEEFu);
    QCOMPARE(table.all().at(1).name, QStringLiteral("one"));
    QCOMPARE(table.all().at(1).address, 0x10u);
    QCOMPARE(table.all().at(1).reset, 0u);
}

void tst_RegisterTable::findsByNameAndByAddress()
{
    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("registers.ini"));
    writeFile(file, "[a]\naddress=10\nreset=0\n[b]\naddress=14\nreset=0\n");
    RegisterTable table;
    QString error;
    QVERIFY2(table.read(file, &error), qPrintable(error));
    QCOMPARE(table.find(QStringLiteral("b"))->address, 0x14u);
    QCOMPARE(table.find(0x10u)->name, QStringLiteral("a"));
    QVERIFY(table.find(QStringLiteral("c")) == nullptr);
    QVERIFY(table.find(0x18u) == nullptr);
}

void tst_RegisterTable::theUnitsOwnTableNamesEveryRegister_data()
{
    QTest::addColumn<quint32>("address");
    // The registers that the USB page writes.
    for (const quint32 address :
         {0x9C00018Cu, 0x9C102900u, 0x9C000190u, 0x9C004A9Cu, 0x9C004B1Cu, 0x9C004A90u, 0x9C004B10u,
          0x9C004A8Cu, 0x9C004B0Cu, 0x9C000088u, 0x9C0000A0u}) {
        QTest::addRow("%08X", address) << address;
    }
}

void tst_RegisterTable::theUnitsOwnTableNamesEveryRegister()
{
    QFETCH(quint32, address);
    OpenUnit unit;
    QVERIFY(unit->memory().registers().find(address) != nullptr);
    QCOMPARE(unit->memory().registers().all().size(), 11);
}

void tst_RegisterTable::refuses_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("complaint");
    const auto row = [](const char *name, const char *text, const char *complaint) {
        QTest::newRow(name) << QByteArray(text) << QString::fromLatin1(complaint);
    };
    row("no address", "[a]\nreset=0\n", "line 1: register \"a\" has no field address.");
    row("no reset value", "[a]\naddress=0\n", "line 1: register \"a\" has no field reset.");
    row("no number", "[a]\naddress=0\nreset=seven\n",
        "line 3: register \"a\": reset \"seven\" is not allowed; allowed is a hexadecimal number "
        "from 0 to FFFFFFFF.");
    row("no name", "[]\naddress=0\nreset=0\n",
        "line 1: \"[]\" is not allowed; allowed is \"[name]\".");
    row("unknown field", "[a]\naddress=0\nreset=0\nvalue=1\n",
        "line 4: register \"a\": field \"value\" is not allowed; allowed is address, reset.");
    row("too large", "[a]\naddress=100000000\nreset=0\n", "line 2: register \"a\": address");
    row("crooked address", "[a]\naddress=12\nreset=0\n",
        "line 2: register \"a\": address \"12\" is not allowed; allowed is a multiple of 4.");
    row("address twice", "[a]\naddress=10\nreset=0\n[b]\naddress=0010\nreset=0\n",
        "line 5: register \"b\": address \"0010\" is not allowed; register \"a\" is there "
        "already.");
}

void tst_RegisterTable::refuses()
{
    QFETCH(QByteArray, text);
    QFETCH(QString, complaint);
    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("registers.ini"));
    writeFile(file, text);
    RegisterTable table;
    QString error;
    QVERIFY(!table.read(file, &error));
    QVERIFY2(error.contains(complaint), qPrintable(error));
    QVERIFY2(error.startsWith(file), qPrintable(error));
}

FACTORY_TEST_GUILESS_MAIN(tst_RegisterTable)
#include "tst_registertable.moc"
