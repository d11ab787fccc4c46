#include "hardware/storage/slottable.h"

#include "support/openunit.h"
#include "support/testmain.h"

#include <QTemporaryDir>
#include <QtTest>

using hardware::SlotTable;
using hardware::StorageSlot;

class tst_SlotTable : public QObject
{
    Q_OBJECT

private slots:
    void slotsAreReadInTheirOrder();
    void aSlotIsFoundByItsName();
    void unusualMountRootsAreAllowed_data();
    void unusualMountRootsAreAllowed();
    void aTableWithoutSlotsIsAllowed();
    void whatIsWrongIsSaid_data();
    void whatIsWrongIsSaid();
    void aMissingTableIsNamed();

private:
    QString write(const QByteArray &content) const;

    QTemporaryDir m_folder;
};

QString tst_SlotTable::write(const QByteArray &content) const
{
    const QString file = m_folder.filePath(QStringLiteral("slots.ini"));
    writeFile(file, content);
    return file;
}

void tst_SlotTable::slotsAreReadInTheirOrder()
{
    SlotTable table;
    QString error;
    QVERIFY2(table.read(write("[sd9]\nmountRoot=/media/z\ncontroller=4\nmediaType=1\n"
                              "[a]\nmediaType=2\ncontroller=0\nmountRoot=/media/b\n"),
                        &error),
             qPrintable(error));
    QCOMPARE(table.all().size(), 2);
    const StorageSlot first = table.all().at(0);
    QCOMPARE(first.name, QStringLiteral("sd9"));
    QCOMPARE(first.mediaType, 1);
    QCOMPARE(first.controllerId, 4);
    QCOMPARE(first.mountRoot, QStringLiteral("/media/z"));
    QCOMPARE(table.all().at(1).name, QStringLiteral("a"));
}

void tst_SlotTable::aSlotIsFoundByItsName()
{
    SlotTable table;
    QString error;
    QVERIFY(table.find(QStringLiteral("usb0"), &error) == nullptr);
    QCOMPARE(error, QStringLiteral("There is no slot \"usb0\"; the slots are: none."));
    QVERIFY(table.read(write("[a]\nmediaType=2\ncontroller=0\nmountRoot=/media/a\n"
                             "[b]\nmediaType=2\ncontroller=0\nmountRoot=/media/b\n"),
                       &error));
    QCOMPARE(table.find(QStringLiteral("b"), &error)->mountRoot, QStringLiteral("/media/b"));
    QVERIFY(table.find(QStringLiteral("A"), &error) == nullptr);
    QCOMPARE(error, QStringLiteral("There is no slot \"A\"; the slots are: a, b."));
}

void tst_SlotTable::unusualMountRootsAreAllowed_data()
{
    QTest::addColumn<QString>("mountRoot");

    QTest::newRow("blank") << "/media/usb 0";
    QTest::newRow("shell characters") << "/media/a;b$(c)'d\"";
    QTest::newRow("long") << "/media/" + QString(200, QLatin1Char('x'));
    QTest::newRow("begins like the flash") << "/media/flash2";
}

void tst_SlotTable::unusualMountRootsAreAllowed()
{
    QFETCH(QString, mountRoot);

    SlotTable table;
    QString error;
    QVERIFY2(table.read(write("[a]\nmediaType=2\ncontroller=0\nmountRoot=" + mountRoot.toUtf8()),
                        &error),
             qPrintable(error));
    QCOMPARE(table.all().at(0).mountRoot, mountRoot);
}

void tst_SlotTable::aTableWithoutSlotsIsAllowed()
{
    SlotTable table;
    QString error;
    QVERIFY(table.read(write("; nothing\n"), &error));
    QVERIFY(table.all().isEmpty());
}

void tst_SlotTable::whatIsWrongIsSaid_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("error");

    const auto slot = [](const QByteArray &type, const QByteArray &controller,
                         const QByteArray &mountRoot) {
        return "[usb0]\nmediaType=" + type + "\ncontroller=" + controller
            + "\nmountRoot=" + mountRoot + "\n";
    };
    const QString number =
        QStringLiteral(" is not allowed; allowed is a whole number from 0 to 255.");
    const QString root = QStringLiteral(
        " is not allowed; allowed is \"/media/\" and one name other than \"flash\".");

    QTest::newRow("media type in words")
        << slot("two", "0", "/media/a") << "line 2: slot \"usb0\": mediaType \"two\"" + number;
    QTest::newRow("media type negative")
        << slot("-1", "0", "/media/a") << "line 2: slot \"usb0\": mediaType \"-1\"" + number;
    QTest::newRow("media type too large")
        << slot("256", "0", "/media/a") << "line 2: slot \"usb0\": mediaType \"256\"" + number;
    QTest::newRow("media type empty")
        << slot("", "0", "/media/a") << "line 2: slot \"usb0\": mediaType \"\"" + number;
    QTest::newRow("controller broken")
        << slot("1", "0.5", "/media/a") << "line 3: slot \"usb0\": controller \"0.5\"" + number;
    QTest::newRow("mount root empty")
        << slot("1", "0", "") << "line 4: slot \"usb0\": mountRoot \"\"" + root;
    QTest::newRow("mount root elsewhere")
        << slot("1", "0", "/mnt/a") << "line 4: slot \"usb0\": mountRoot \"/mnt/a\"" + root;
    QTest::newRow("mount root is all media")
        << slot("1", "0", "/media/") << "line 4: slot \"usb0\": mountRoot \"/media/\"" + root;
    QTest::newRow("mount root leads out")
        << slot("1", "0", "/media/..") << "line 4: slot \"usb0\": mountRoot \"/media/..\"" + root;
    QTest::newRow("mount root inside another")
        << slot("1", "0", "/media/a/b") << "line 4: slot \"usb0\": mountRoot \"/media/a/b\"" + root;
    QTest::newRow("mount root is the flash")
        << slot("1", "0", "/media/flash")
        << "line 4: slot \"usb0\": mountRoot \"/media/flash\"" + root;
    QTest::newRow("missing mount root") << QByteArray("\n[usb0]\nmediaType=1\ncontroller=0\n")
                                        << "line 2: slot \"usb0\" has no field mountRoot.";
    QTest::newRow("missing controller") << QByteArray("[usb0]\nmediaType=1\nmountRoot=/media/a\n")
                                        << "line 1: slot \"usb0\" has no field controller.";
    QTest::newRow("unknown field")
        << slot("1", "0", "/media/a") + "mountroot=/media/b\n"
        << "line 5: slot \"usb0\": field \"mountroot\" is not allowed; allowed is mediaType, "
           "controller, mountRoot.";
    QTest::newRow("mount root twice")
        << slot("1", "0", "/media/a") + "[usb1]\nmediaType=1\ncontroller=1\nmountRoot=/media/a\n"
        << "line 8: slot \"usb1\": mountRoot \"/media/a\" is not allowed; slot \"usb0\" has it "
           "already.";
    QTest::newRow("slot twice") << slot("1", "0", "/media/a") + slot("1", "0", "/media/b")
                                << "line 5: [usb0] is there already, in line 1.";
    QTest::newRow("name with a slash")
        << QByteArray("[a/b]\n")
        << "line 1: slot \"a/b\": this name is not allowed; allowed is a file name without \"/\".";
    QTest::newRow("name that leads up")
        << QByteArray("[..]\n")
        << "line 1: slot \"..\": this name is not allowed; allowed is a file name without \"/\".";
    QTest::newRow("no name") << QByteArray("[]\n")
                             << "line 1: \"[]\" is not allowed; allowed is \"[name]\".";
}

void tst_SlotTable::whatIsWrongIsSaid()
{
    QFETCH(QByteArray, content);
    QFETCH(QString, error);

    const QString file = write(content);
    SlotTable table;
    QString said;
    QVERIFY(!table.read(file, &said));
    QCOMPARE(said, file + QStringLiteral(", ") + error);
}

void tst_SlotTable::aMissingTableIsNamed()
{
    SlotTable table;
    QString error;
    QVERIFY(!table.read(m_folder.filePath(QStringLiteral("none.ini")), &error));
    QVERIFY2(error.startsWith(m_folder.filePath(QStringLiteral("none.ini"))), qPrintable(error));
}

FACTORY_TEST_GUILESS_MAIN(tst_SlotTable)
#include "tst_slottable.moc"
