#include "hardware/unit/journal.h"
#include "hardware/unit/versions.h"
#include "support/testmain.h"

#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

using hardware::Versions;

class TestVersions : public QObject
{
    Q_OBJECT

private slots:
    void readsTheTable();
    void newValuesAreKept_data();
    void newValuesAreKept();
    void everyNameCanBeChanged();
    void missingValuesAreEmpty();
    void whatIsWrongIsSaid_data();
    void whatIsWrongIsSaid();
    void wrongValuesAreRefused_data();
    void wrongValuesAreRefused();
};

namespace
{

QString writeTable(const QTemporaryDir &folder, const QByteArray &content)
{
    QFile file(folder.filePath(QStringLiteral("versions.ini")));
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size()) {
        qFatal("The table cannot be written.");
    }
    return file.fileName();
}

const char versionTable[] = "[versions]\ngps=G 1.2\nbluetooth=B 3\nalsProduct=5\n";

} // namespace

void TestVersions::readsTheTable()
{
    const QTemporaryDir folder;
    QString error;
    hardware::Journal journal;
    Versions versions(journal);
    QVERIFY2(versions.open(writeTable(folder, versionTable), &error), qPrintable(error));
    QCOMPARE(versions.gps(), QStringLiteral("G 1.2"));
    QCOMPARE(versions.bluetooth(), QStringLiteral("B 3"));
    QCOMPARE(versions.alsProduct(), 5);
}

void TestVersions::newValuesAreKept_data()
{
    QTest::addColumn<QString>("version");
    for (const char *version : {"G 2.0; beta, \"x\"", "1,2,3", "a;b", "a = b", "[x]", ""}) {
        QTest::newRow(version) << QString::fromLatin1(version);
    }
}

void TestVersions::newValuesAreKept()
{
    QFETCH(QString, version);
    const QTemporaryDir folder;
    QString error;
    const QString file = writeTable(folder, QByteArray("; a comment\n") + versionTable);
    hardware::Journal journal;
    Versions versions(journal);
    QVERIFY(versions.open(file, &error));
    versions.setGps(version);
    QCOMPARE(versions.gps(), version);
    Versions again(journal);
    QVERIFY2(again.open(file, &error), qPrintable(error));
    QCOMPARE(again.gps(), version);
    QCOMPARE(again.bluetooth(), QStringLiteral("B 3"));
}

void TestVersions::everyNameCanBeChanged()
{
    const QTemporaryDir folder;
    QString error;
    hardware::Journal journal;
    Versions versions(journal);
    QVERIFY(versions.open(writeTable(folder, versionTable), &error));
    QCOMPARE(versions.dabSdk(), QString());
    const QStringList names = Versions::names();
    for (const QString &name : names) {
        QVERIFY(versions.setValue(name, QString::number(name.size()), &error));
        QCOMPARE(versions.value(name), QString::number(name.size()));
    }
    QCOMPARE(versions.gps(), QStringLiteral("3"));
    QCOMPARE(versions.bluetooth(), QStringLiteral("9"));
    QCOMPARE(versions.alsProduct(), 10);
    QCOMPARE(versions.dabSdk(), QStringLiteral("6"));
}

void TestVersions::missingValuesAreEmpty()
{
    const QTemporaryDir folder;
    QString error;
    hardware::Journal journal;
    Versions versions(journal);
    QVERIFY(versions.open(writeTable(folder, "[versions]\n"), &error));
    QCOMPARE(versions.gps(), QString());
    QCOMPARE(versions.bluetooth(), QString());
    QCOMPARE(versions.alsProduct(), 0);
}

void TestVersions::whatIsWrongIsSaid_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("error");
    QTest::newRow("no number")
        << QByteArray("[versions]\ngps=1\nalsProduct=abc\n")
        << "line 3: section \"versions\": alsProduct \"abc\" is not allowed; "
           "allowed is a whole number from -2147483648 to 2147483647.";
    QTest::newRow("unknown field")
        << QByteArray("[versions]\nwifi=1\n")
        << "line 2: section \"versions\": field \"wifi\" is not allowed; allowed is gps, "
           "bluetooth, alsProduct, dabSdk.";
    QTest::newRow("field twice") << QByteArray("[versions]\ngps=1\ngps=2\n")
                                 << "line 3: gps is there already, in line 2.";
}

void TestVersions::whatIsWrongIsSaid()
{
    QFETCH(QByteArray, content);
    QFETCH(QString, error);
    const QTemporaryDir folder;
    const QString file = writeTable(folder, content);
    hardware::Journal journal;
    Versions versions(journal);
    QString said;
    QVERIFY(!versions.open(file, &said));
    QCOMPARE(said, file + QStringLiteral(", ") + error);
}

void TestVersions::wrongValuesAreRefused_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("allowed");
    const QString text = QStringLiteral("one line without blanks at its ends");
    const QString number = QStringLiteral("a whole number from -2147483648 to 2147483647");
    QTest::newRow("letters") << "alsProduct"
                             << "abc" << number;
    QTest::newRow("nothing") << "alsProduct"
                             << "" << number;
    QTest::newRow("too large") << "alsProduct"
                               << "2147483648" << number;
    QTest::newRow("two lines") << "gps"
                               << "a\nb" << text;
    QTest::newRow("blank at the end") << "bluetooth"
                                      << "a " << text;
}

void TestVersions::wrongValuesAreRefused()
{
    QFETCH(QString, name);
    QFETCH(QString, value);
    QFETCH(QString, allowed);
    const QTemporaryDir folder;
    hardware::Journal journal;
    Versions versions(journal);
    QString error;
    QVERIFY(versions.open(writeTable(folder, versionTable), &error));
    const QString before = versions.value(name);
    QVERIFY(!versions.setValue(name, value, &error));
    QCOMPARE(error,
             QStringLiteral("%1 \"%2\" is not allowed; allowed is %3").arg(name, value, allowed));
    QCOMPARE(versions.value(name), before);
}

FACTORY_TEST_GUILESS_MAIN(TestVersions)
#include "tst_versions.moc"
