#include "service/printlogex.h"

#include "support/testmain.h"
#include "support/testunit.h"

#include <QtTest>

class TestPrintLogEx : public QObject
{
    Q_OBJECT

private slots:
    void writesWhatTheFormatSays();
};

void TestPrintLogEx::writesWhatTheFormatSays()
{
    const TestUnit unit;
    printLogEx("INFO", "Page", "%s %s\n", "clicked", "id%1");
    printLogEx("INFO", "Page", "%d", 7);
    QCOMPARE(unit.journal(QStringLiteral("/^log /")),
             QStringList({QStringLiteral("log INFO Page clicked id%1\\n"),
                          QStringLiteral("log INFO Page 7")}));
}

FACTORY_TEST_MAIN(TestPrintLogEx)
#include "tst_printlogex.moc"
