#include "hardware/unit/initext.h"

#include "support/openunit.h"
#include "support/testmain.h"

#include <QSettings>
#include <QTemporaryDir>
#include <QtTest>

class TestIniText : public QObject
{
    Q_OBJECT

private slots:
    void plainValuesStayPlain();
    void aReaderFindsTheSame_data();
    void aReaderFindsTheSame();
};

void TestIniText::plainValuesStayPlain()
{
    QCOMPARE(
        hardware::iniText(
            {{"b", 3}, {"a/switch", true}, {"a/mode", "USB 0 SDP MODE"}, {"c/text", "one; two"}}),
        QByteArray("[General]\nb=3\n\n[a]\nmode=USB 0 SDP MODE\nswitch=true\n\n"
                   "[c]\ntext=\"one; two\"\n\n"));
}

void TestIniText::aReaderFindsTheSame_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QVariant>("value");
    const QString text = QStringLiteral("text");
    QTest::newRow("number") << text << QVariant(-3);
    QTest::newRow("large number") << text << QVariant(Q_INT64_C(1) << 40);
    QTest::newRow("broken number") << text << QVariant(0.25);
    QTest::newRow("switch") << text << QVariant(false);
    QTest::newRow("bytes") << text << QVariant(QByteArray("\0\xff)a\n", 5));
    QTest::newRow("list") << text << QVariant(QStringList{"a, b", "@c", "", "\"d\""});
    for (const char *value :
         {"", " ", " a ", "a,b", "a;b", "a=b", "[a]", "#a", "\"a\"", "\\n", "a\nb\r\t",
          "\x01"
          "f",
          "%41", "@a", "@Invalid()", "true",
          "\xc3\xa4"
          "b",
          "\xe6\xbc\xa2"
          "0",
          "a\xf0\x9f\x98\x80"}) {
        QTest::newRow(QByteArray("text ").append(value))
            << text << QVariant(QString::fromUtf8(value));
    }
    for (const char *key : {"a", "a/b", "a/b/c", "General/a", "general/a", "a b/c d", "a%b", "a=b",
                            "1/size", "\xc3\xa4/\xe6\xbc\xa2", "a\\b"}) {
        QTest::newRow(QByteArray("key ").append(key)) << QString::fromUtf8(key) << QVariant(7);
    }
}

void TestIniText::aReaderFindsTheSame()
{
    QFETCH(QString, key);
    QFETCH(QVariant, value);
    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("a.ini"));
    writeFile(file, hardware::iniText({{key, value}, {QStringLiteral("zz/last"), 1}}));
    const QSettings read(file, QSettings::IniFormat);
    QVariant found = read.value(key);
    QVERIFY(found.convert(int(value.type())));
    QCOMPARE(found, value);
    QCOMPARE(read.allKeys().size(), 2);
    QCOMPARE(read.status(), QSettings::NoError);
}

FACTORY_TEST_GUILESS_MAIN(TestIniText)
#include "tst_initext.moc"
