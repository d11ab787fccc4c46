#include "hardware/unit/statefile.h"

#include "hardware/unit/journal.h"
#include "hardware/unit/tablerow.h"
#include "support/fulldisk.h"
#include "support/openunit.h"
#include "support/testmain.h"

#include <QTemporaryDir>
#include <QtTest>

using namespace hardware;

class TestStateFile : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void readsAndRemembers();
    void commentsStay();
    void aMissingFieldIsEmptyUntilItIsSet();
    void refuses_data();
    void refuses();
    void aFailedWriteIsReportedOnce();

private:
    bool open(StateFile *state)
    {
        return state->open(
            m_file,
            [](const TableRow &row) {
                int number = 0;
                return !row.contains(QStringLiteral("number"))
                    || row.readNumber(QStringLiteral("number"), 1, 9, &number);
            },
            &m_error);
    }

    QScopedPointer<QTemporaryDir> m_folder;
    QScopedPointer<Journal> m_journal;
    QScopedPointer<StateFile> m_state;
    QString m_file;
    QString m_error;
};

void TestStateFile::init()
{
    m_folder.reset(new QTemporaryDir);
    m_file = m_folder->filePath(QStringLiteral("state.ini"));
    m_journal.reset(new Journal);
    m_state.reset(new StateFile(QStringLiteral("state"),
                                {QStringLiteral("number"), QStringLiteral("text")}, *m_journal));
}

void TestStateFile::readsAndRemembers()
{
    writeFile(m_file, "[state]\nnumber=3\ntext = a, b; c\n");
    QVERIFY2(open(m_state.data()), qPrintable(m_error));
    QCOMPARE(m_state->value(QStringLiteral("text")), QStringLiteral("a, b; c"));
    m_state->setValue(QStringLiteral("number"), QStringLiteral("4"));
    QCOMPARE(m_state->value(QStringLiteral("number")), QStringLiteral("4"));
    QCOMPARE(readFile(m_file), QByteArray("[state]\nnumber = 4\ntext = a, b; c\n"));
}

void TestStateFile::commentsStay()
{
    writeFile(m_file, "; above\n[state]\n# between\nnumber=3\n\n; below");
    QVERIFY2(open(m_state.data()), qPrintable(m_error));
    m_state->setValue(QStringLiteral("number"), QStringLiteral("4"));
    QCOMPARE(readFile(m_file), QByteArray("; above\n[state]\n# between\nnumber = 4\n\n; below\n"));
}

void TestStateFile::aMissingFieldIsEmptyUntilItIsSet()
{
    writeFile(m_file, "[state]\n");
    QVERIFY2(open(m_state.data()), qPrintable(m_error));
    QCOMPARE(m_state->value(QStringLiteral("text")), QString());
    for (const char *text : {"one", "two"}) {
        m_state->setValue(QStringLiteral("text"), QString::fromLatin1(text));
    }
    QCOMPARE(readFile(m_file), QByteArray("[state]\ntext = two\n"));
}

void TestStateFile::refuses_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("error");
    QTest::newRow("empty") << QByteArray()
                           << " is empty. A file that is removed is made anew at the next start.";
    QTest::newRow("no section") << QByteArray("; nothing\n") << " has no section [state].";
    QTest::newRow("another section")
        << QByteArray("[state]\n[more]\n")
        << ", line 2: section \"more\": this name is not allowed; allowed is \"state\".";
    QTest::newRow("unknown field") << QByteArray("[state]\nnumbers=1\n")
                                   << ", line 2: section \"state\": field \"numbers\" is not "
                                      "allowed; allowed is number, text.";
    QTest::newRow("value")
        << QByteArray("[state]\nnumber=10\n")
        << ", line 2: section \"state\": number \"10\" is not allowed; allowed is "
           "a whole number from 1 to 9.";
}

void TestStateFile::refuses()
{
    QFETCH(QByteArray, content);
    QFETCH(QString, error);
    writeFile(m_file, content);
    QVERIFY(!open(m_state.data()));
    QCOMPARE(m_error, m_file + error);
    QCOMPARE(readFile(m_file), content);
}

void TestStateFile::aFailedWriteIsReportedOnce()
{
    writeFile(m_file, "[state]\nnumber=3\n");
    QVERIFY2(open(m_state.data()), qPrintable(m_error));
    {
        const FullDisk full(5);
        m_state->setValue(QStringLiteral("number"), QStringLiteral("4"));
        m_state->setValue(QStringLiteral("number"), QStringLiteral("5"));
    }
    QCOMPARE(readFile(m_file), QByteArray("[state]\nnumber=3\n"));
    QCOMPARE(m_state->value(QStringLiteral("number")), QStringLiteral("5"));
    QCOMPARE(m_journal->lines(),
             QStringList(QStringLiteral("unit cannot write %1: File too large").arg(m_file)));
    QVERIFY(m_journal->hasFailedWrites());
}

FACTORY_TEST_GUILESS_MAIN(TestStateFile)
#include "tst_statefile.moc"
