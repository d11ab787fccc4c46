#include "hardware/versions.h"

#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

using hardware::Versions;

class TestVersions : public QObject
{
    Q_OBJECT

private slots:
    void readsTheTable();
    void newGpsVersionIsKept();
    void everyNameCanBeChanged();
    void missingValuesAreEmpty();
    void fileThatCannotBeWrittenIsAnError();
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

const QByteArray table("[versions]\ngps=G 1.2\nbluetooth=B 3\nalsProduct=5\n");

} // namespace

void TestVersions::readsTheTable()
{
    const QTemporaryDir folder;
    QString error;
    Versions versions;
    QVERIFY2(versions.open(writeTable(folder, table), &error), qPrintable(error));
    QCOMPARE(versions.gps(), QStringLiteral("G 1.2"));
    QCOMPARE(versions.bluetooth(), QStringLiteral("B 3"));
    QCOMPARE(versions.alsProduct(), 5);
}

void TestVersions::newGpsVersionIsKept()
{
    const QTemporaryDir folder;
    QString error;
    const QString file = writeTable(folder, table);
    Versions versions;
    QVERIFY(versions.open(file, &error));
    versions.setGps(QStringLiteral("G 2.0; beta, \"x\""));
    Versions again;
    QVERIFY(again.open(file, &error));
    QCOMPARE(again.gps(), QStringLiteral("G 2.0; beta, \"x\""));
    QCOMPARE(again.bluetooth(), QStringLiteral("B 3"));
}

void TestVersions::everyNameCanBeChanged()
{
    const QTemporaryDir folder;
    QString error;
    Versions versions;
    QVERIFY(versions.open(writeTable(folder, table), &error));
    QCOMPARE(versions.dabSdk(), QString());
    for (const QString &name : Versions::names()) {
        versions.setValue(name, QString::number(name.size()));
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
    Versions versions;
    QVERIFY(versions.open(writeTable(folder, "[versions]\n"), &error));
    QCOMPARE(versions.gps(), QString());
    QCOMPARE(versions.bluetooth(), QString());
    QCOMPARE(versions.alsProduct(), 0);
}

void TestVersions::fileThatCannotBeWrittenIsAnError()
{
    // Below a file there is no folder, not even for root.
    const QTemporaryDir folder;
    const QString file = writeTable(folder, table) + QStringLiteral("/versions.ini");
    QString error;
    Versions versions;
    QVERIFY(!versions.open(file, &error));
    QVERIFY(error.contains(file));
}

QTEST_GUILESS_MAIN(TestVersions)
#include "tst_versions.moc"
