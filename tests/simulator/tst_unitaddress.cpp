#include "simulator/console/unitaddress.h"

#include "support/testmain.h"

#include <QDir>
#include <QTemporaryDir>
#include <QtTest>

using namespace simulator;

class TestUnitAddress : public QObject
{
    Q_OBJECT

private slots:
    void sameFolderSameName();
    void otherFolderOtherName();
    void missingFolderHasNone();
    void defaultFolderIsTheUsers();
};

void TestUnitAddress::sameFolderSameName()
{
    const QTemporaryDir folder;
    const QString name = consoleSocketName(folder.path());
    static const QRegularExpression form("^headunit-[0-9a-f]{12}$");
    QVERIFY2(form.match(name).hasMatch(), qPrintable(name));
    QCOMPARE(consoleSocketName(folder.path() + "/"), name);
    QCOMPARE(consoleSocketName(folder.path() + "/../" + QDir(folder.path()).dirName()), name);
    const QTemporaryDir other;
    QVERIFY(QFile::link(folder.path(), other.filePath("link")));
    QCOMPARE(consoleSocketName(other.filePath("link")), name);
}

void TestUnitAddress::otherFolderOtherName()
{
    const QTemporaryDir one;
    const QTemporaryDir other;
    QVERIFY(consoleSocketName(one.path()) != consoleSocketName(other.path()));
}

void TestUnitAddress::missingFolderHasNone()
{
    const QTemporaryDir folder;
    QCOMPARE(consoleSocketName(folder.filePath("missing")), QString());
}

void TestUnitAddress::defaultFolderIsTheUsers()
{
    qputenv("XDG_DATA_HOME", "/home/someone/data");
    QCOMPARE(defaultUnitFolder(), QString("/home/someone/data/factorydebug/unit"));
}

FACTORY_TEST_GUILESS_MAIN(TestUnitAddress)
#include "tst_unitaddress.moc"
