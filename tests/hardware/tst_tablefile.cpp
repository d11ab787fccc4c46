#include "hardware/unit/tablefile.h"

#include "support/openunit.h"
#include "support/testmain.h"

#include <QTemporaryDir>
#include <QtTest>

using hardware::TableFile;

class tst_TableFile : public QObject
{
    Q_OBJECT

private slots:
    void sectionsKeepTheirOrder();
    void fieldsHaveValuesAndLines();
    void aValueKeepsEveryCharacter_data();
    void aValueKeepsEveryCharacter();
    void commentsAndEmptyLinesAreSkipped();
    void aSecondReadStartsAnew();
    void whatIsWrongIsSaid_data();
    void whatIsWrongIsSaid();
    void anEmptyFileIsRefused_data();
    void anEmptyFileIsRefused();
    void aMissingFileIsNamed();

private:
    QString write(const QByteArray &content) const;

    QTemporaryDir m_folder;
};

QString tst_TableFile::write(const QByteArray &content) const
{
    const QString file = m_folder.filePath(QStringLiteral("table.ini"));
    writeFile(file, content);
    return file;
}

void tst_TableFile::sectionsKeepTheirOrder()
{
    TableFile table;
    QString error;
    QVERIFY2(table.read(write("[z]\n[a]\n[ m ]\n"), &error), qPrintable(error));
    QStringList names;
    for (const hardware::TableSection &section : table.sections()) {
        names.append(section.name);
    }
    QCOMPARE(names, (QStringList{QStringLiteral("z"), QStringLiteral("a"), QStringLiteral("m")}));
}

void tst_TableFile::fieldsHaveValuesAndLines()
{
    TableFile table;
    QString error;
    QVERIFY2(table.read(write("\n[s]\na=1\n\n  b =  two words \n"), &error), qPrintable(error));
    const hardware::TableSection section = table.sections().at(0);
    QCOMPARE(section.line, 2);
    QCOMPARE(section.fields.size(), 2);
    QCOMPARE(section.fields.value(QStringLiteral("a")).value, QStringLiteral("1"));
    QCOMPARE(section.fields.value(QStringLiteral("a")).line, 3);
    QCOMPARE(section.fields.value(QStringLiteral("b")).value, QStringLiteral("two words"));
    QCOMPARE(section.fields.value(QStringLiteral("b")).line, 5);
}

void tst_TableFile::aValueKeepsEveryCharacter_data()
{
    QTest::addColumn<QString>("value");

    for (const char *value : {"a=b", "a;b", "a,b", "\"a\"", R"(a\nb)", "%41", "$(a)", "[a]", ""}) {
        QTest::newRow(value) << QString::fromLatin1(value);
    }
    QTest::newRow("letters") << QString::fromUtf8("ä漢");
}

void tst_TableFile::aValueKeepsEveryCharacter()
{
    QFETCH(QString, value);

    TableFile table;
    QString error;
    QVERIFY2(table.read(write("[s]\nf=" + value.toUtf8() + "\n"), &error), qPrintable(error));
    QCOMPARE(table.sections().at(0).fields.value(QStringLiteral("f")).value, value);
}

void tst_TableFile::commentsAndEmptyLinesAreSkipped()
{
    TableFile table;
    QString error;
    QVERIFY2(table.read(write("; a\n# b\n\r\n \t\n[s]\r\n;c=1\n  # d\nf=1"), &error),
             qPrintable(error));
    QCOMPARE(table.sections().size(), 1);
    QCOMPARE(table.sections().at(0).fields.size(), 1);
}

void tst_TableFile::aSecondReadStartsAnew()
{
    TableFile table;
    QString error;
    QVERIFY(table.read(write("[a]\n"), &error));
    QVERIFY(table.read(write("[a]\n"), &error));
    QCOMPARE(table.sections().size(), 1);
}

void tst_TableFile::whatIsWrongIsSaid_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("error");

    QTest::newRow("no table") << QByteArray("hello\n")
                              << R"(line 1: "hello" is neither "[name]" nor "field = value".)";
    QTest::newRow("section without name")
        << QByteArray("[a]\n[ ]\n") << R"(line 2: "[]" is not allowed; allowed is "[name]".)";
    const QString zero = QStringLiteral("line 3: a zero byte is not allowed; allowed is text.");
    QTest::newRow("zero byte in a value") << QByteArray("[a]\nf=1\ng=\0\n", 13) << zero;
    QTest::newRow("zero byte in a comment") << QByteArray("[a]\nf=1\n;\0\n", 12) << zero;
    QTest::newRow("section without end")
        << QByteArray("[a]\n[b\n") << R"(line 2: "[b" is neither "[name]" nor "field = value".)";
    QTest::newRow("field without name")
        << QByteArray("[a]\n= 1\n") << R"(line 2: "= 1" is neither "[name]" nor "field = value".)";
    QTest::newRow("field without section")
        << QByteArray("; x\na=1\n") << R"(line 2: "a" stands before the first "[name]".)";
    QTest::newRow("section twice")
        << QByteArray("[a]\n[b]\n[a]\n") << "line 3: [a] is there already, in line 1.";
    QTest::newRow("field twice") << QByteArray("[a]\nf=1\nf=2\n")
                                 << "line 3: f is there already, in line 2.";
}

void tst_TableFile::whatIsWrongIsSaid()
{
    QFETCH(QByteArray, content);
    QFETCH(QString, error);

    const QString file = write(content);
    TableFile table;
    QString said;
    QVERIFY(!table.read(file, &said));
    QCOMPARE(said, file + QStringLiteral(", ") + error);
}

void tst_TableFile::anEmptyFileIsRefused_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("no byte") << QByteArray("");
    QTest::newRow("only blanks") << QByteArray("\n  \r\n\t");
}

void tst_TableFile::anEmptyFileIsRefused()
{
    QFETCH(QByteArray, content);
    const QString file = write(content);
    TableFile table;
    QString error;
    QVERIFY(!table.read(file, &error));
    QCOMPARE(error,
             file
                 + QStringLiteral(" is empty. A file that is removed is made anew at the next "
                                  "start."));
}

void tst_TableFile::aMissingFileIsNamed()
{
    const QString file = m_folder.filePath(QStringLiteral("missing.ini"));
    TableFile table;
    QString error;
    QVERIFY(!table.read(file, &error));
    QCOMPARE(error, file + QStringLiteral(" cannot be read: No such file or directory."));
}

FACTORY_TEST_GUILESS_MAIN(tst_TableFile)
#include "tst_tablefile.moc"
