#include "service/datasavecontrol.h"

#include "support/testmain.h"
#include "support/testunit.h"

#include <QtTest>

class TestDataSaveControl : public QObject
{
    Q_OBJECT

private slots:
    void savedValueIsReadAgain();
    void groupsAreApart();
    void defaultWhereNothingIsSaved();
};

void TestDataSaveControl::savedValueIsReadAgain()
{
    const TestUnit unit;
    DataSaveControl::saveSettingData(QStringLiteral("a/b"), QStringLiteral("x y"), QString());
    QCOMPARE(DataSaveControl::readSettingData(QStringLiteral("a/b"), 1, QString()).toString(),
             QStringLiteral("x y"));
    QCOMPARE(unit.journal(QStringLiteral("/^settings /")),
             QStringList(QStringLiteral("settings a/b = x y")));
}

void TestDataSaveControl::groupsAreApart()
{
    const TestUnit unit;
    DataSaveControl::saveSettingData(QStringLiteral("a"), 1, QStringLiteral("g"));
    DataSaveControl::saveSettingData(QStringLiteral("a"), 2, QStringLiteral("h"));
    QCOMPARE(DataSaveControl::readSettingData(QStringLiteral("a"), 0, QStringLiteral("g")).toInt(),
             1);
    QCOMPARE(DataSaveControl::readSettingData(QStringLiteral("a"), 0, QString()).toInt(), 0);
}

void TestDataSaveControl::defaultWhereNothingIsSaved()
{
    const TestUnit unit;
    QCOMPARE(DataSaveControl::readSettingData(QStringLiteral("a"), 7, QString()), QVariant(7));
}

FACTORY_TEST_MAIN(TestDataSaveControl)
#include "tst_datasavecontrol.moc"
