#include "common/shelltext.h"

#include "support/testmain.h"

#include <QtTest>

class TestShellText : public QObject
{
    Q_OBJECT

private slots:
    void plainPathsReachTheShell_data();
    void plainPathsReachTheShell();
    void fillsTheFormat();
    void fillsTwoPlaces();
    void zeroesWhatStoodInTheBuffer();
    void fitsUpToTheLastByte();
    void zeroesTheBufferWhenTheTextIsTooLong();
};

void TestShellText::plainPathsReachTheShell_data()
{
    QTest::addColumn<QByteArray>("path");
    QTest::addColumn<bool>("plain");
    QTest::newRow("mount root") << QByteArray("/media/usb0") << true;
    QTest::newRow("punctuation") << QByteArray("/media/A_b-1.2+3,4:5=6%@") << true;
    QTest::newRow("umlaut") << QByteArray("/media/\xC3\xBC") << true;
    QTest::newRow("empty") << QByteArray("") << true;
    // All that a POSIX shell treats specially somewhere in a word, each on its own.
    const QByteArray specials(" \t\n|&;<>()$`\\\"'*?[]#~!{}\x7F\x01");
    for (const char special : specials) {
        QTest::newRow(qPrintable(QStringLiteral("special 0x%1").arg(int(special), 0, 16)))
            << QByteArray("/media/u").append(special).append("b") << false;
    }
}

void TestShellText::plainPathsReachTheShell()
{
    QFETCH(QByteArray, path);
    QFETCH(bool, plain);
    QCOMPARE(isPlainForShell(path.constData()), plain);
}

void TestShellText::fillsTheFormat()
{
    char buffer[32];
    QVERIFY(formatCommand(buffer, sizeof buffer, "mkdir -p %s/nvm", "/media/usb0"));
    QCOMPARE(buffer, "mkdir -p /media/usb0/nvm");
}

void TestShellText::fillsTwoPlaces()
{
    char buffer[32];
    QVERIFY(formatCommand(buffer, sizeof buffer, "cp %s  %s/x", "/a", "/b"));
    QCOMPARE(buffer, "cp /a  /b/x");
}

void TestShellText::zeroesWhatStoodInTheBuffer()
{
    char buffer[8];
    memset(buffer, 'x', sizeof buffer);
    QVERIFY(formatCommand(buffer, sizeof buffer, "%s", "ab"));
    QCOMPARE(QByteArray(buffer, sizeof buffer), QByteArray("ab\0\0\0\0\0\0", 8));
    memset(buffer, 'x', sizeof buffer);
    QVERIFY(formatCommand(buffer, sizeof buffer, "%s%s", "c", "d"));
    QCOMPARE(QByteArray(buffer, sizeof buffer), QByteArray("cd\0\0\0\0\0\0", 8));
    QVERIFY(formatCommand(buffer, sizeof buffer, "%s", ""));
    QCOMPARE(QByteArray(buffer, sizeof buffer), QByteArray(8, '\0'));
}

void TestShellText::fitsUpToTheLastByte()
{
    char buffer[8];
    QVERIFY(formatCommand(buffer, sizeof buffer, "rm %s", "1234"));
    QCOMPARE(buffer, "rm 1234");
}

void TestShellText::zeroesTheBufferWhenTheTextIsTooLong()
{
    char buffer[8];
    QVERIFY(!formatCommand(buffer, sizeof buffer, "rm %s", "12345"));
    QCOMPARE(QByteArray(buffer, sizeof buffer), QByteArray(8, '\0'));
    QVERIFY(!formatCommand(buffer, sizeof buffer, "%s %s", "1234", "567"));
    QCOMPARE(QByteArray(buffer, sizeof buffer), QByteArray(8, '\0'));
}

FACTORY_TEST_GUILESS_MAIN(TestShellText)
#include "tst_shelltext.moc"
