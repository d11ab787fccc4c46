#include "hardware/unit/defaults.h"

#include "support/testmain.h"

#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

using hardware::Defaults;

class TestDefaults : public QObject
{
    Q_OBJECT

private slots:
    void readsTheTable();
    void unknownKeyIsInvalid();
    void missingTableIsAnError();
    void otherSectionsAreRefused();
};

namespace
{

QString writeTable(const QTemporaryDir &folder, const QByteArray &content)
{
    QFile file(folder.filePath(QStringLiteral("defaults.ini")));
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size()) {
        qFatal("The table cannot be written.");
    }
    return file.fileName();
}

} // namespace

void TestDefaults::readsTheTable()
{
    const QTemporaryDir folder;
    QString error;
    Defaults defaults;
    QVERIFY2(defaults.open(writeTable(folder, "[defaults]\na/text = USB 0, CDP\na/off = false\n"),
                           &error),
             qPrintable(error));
    QCOMPARE(defaults.value(QStringLiteral("a/text")), QVariant(QStringLiteral("USB 0, CDP")));
    QCOMPARE(defaults.value(QStringLiteral("a/off")).toBool(), false);
}

void TestDefaults::unknownKeyIsInvalid()
{
    const Defaults defaults;
    QVERIFY(!defaults.value(QStringLiteral("a/text")).isValid());
}

void TestDefaults::missingTableIsAnError()
{
    QString error;
    Defaults defaults;
    QVERIFY(!defaults.open(QStringLiteral("/nowhere/defaults.ini"), &error));
    QVERIFY(error.contains(QLatin1String("/nowhere/defaults.ini")));
}

void TestDefaults::otherSectionsAreRefused()
{
    const QTemporaryDir folder;
    const QString file = writeTable(folder, "[defaults]\na/text = 1\n[others]\na/text = 2\n");
    QString error;
    Defaults defaults;
    QVERIFY(!defaults.open(file, &error));
    QCOMPARE(error,
             file
                 + QStringLiteral(", line 3: section \"others\": this name is not allowed; allowed "
                                  "is \"defaults\"."));
}

FACTORY_TEST_GUILESS_MAIN(TestDefaults)
#include "tst_defaults.moc"
