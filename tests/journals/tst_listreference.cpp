#include "listreference.h"

#include "support/testmain.h"

#include <QFile>
#include <QtTest>

/// A list that differs must be told, and be left for whoever looks at it.
class TestListReference : public QObject
{
    Q_OBJECT

private slots:
    void aDifferenceIsTold_data();
    void aDifferenceIsTold();
    void aMissingReferenceIsTold();

private:
    /// The reference that there is.
    static QStringList lines();
};

QStringList TestListReference::lines()
{
    QFile file(QStringLiteral(REFERENCES "/product.txt"));
    return file.open(QIODevice::ReadOnly)
        ? QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'), Qt::SkipEmptyParts)
        : QStringList();
}

void TestListReference::aDifferenceIsTold_data()
{
    QTest::addColumn<QStringList>("got");
    QTest::addColumn<QString>("complaint");
    QStringList swapped = lines();
    swapped.swapItemsAt(0, 1);
    QTest::newRow("order") << swapped
                           << "line 1 is\n  " + swapped.at(0) + "\nand not\n  " + swapped.at(1);
    QStringList shorter = lines();
    const QString last = shorter.takeLast();
    QTest::newRow("too short") << shorter
                               << QStringLiteral("line %1 is\n  (the end)\nand not\n  %2")
                                      .arg(shorter.size() + 1)
                                      .arg(last);
    QTest::newRow("too long")
        << lines() + QStringList("more")
        << QStringLiteral("line %1 is\n  more\nand not\n  (the end)").arg(lines().size() + 1);
}

void TestListReference::aDifferenceIsTold()
{
    QFETCH(QStringList, got);
    QFETCH(QString, complaint);
    const QString left = QStringLiteral(DIFFERENCES "/product.txt");
    const QString told = listComplaint(QStringLiteral("product"), got);
    QVERIFY2(told.startsWith(complaint), qPrintable(told));
    QVERIFY(told.endsWith(left + QLatin1Char(')')));
    QVERIFY(QFile::exists(left));
    QCOMPARE(listComplaint(QStringLiteral("product"), lines()), QString());
    QVERIFY(!QFile::exists(left));
}

void TestListReference::aMissingReferenceIsTold()
{
    const QString told = listComplaint(QStringLiteral("none"), {QStringLiteral("a")});
    QVERIFY2(told.startsWith(QLatin1String("line 1 is\n  a\nand not\n  (the end)")),
             qPrintable(told));
    QVERIFY(QFile::remove(QStringLiteral(DIFFERENCES "/none.txt")));
}

FACTORY_TEST_GUILESS_MAIN(TestListReference)
#include "tst_listreference.moc"
