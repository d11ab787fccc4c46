#include "hardware/unit/journalreader.h"

#include "hardware/unit/journal.h"
#include "support/testmain.h"

#include <QtTest>

using namespace hardware;

class TestJournalReader : public QObject
{
    Q_OBJECT

private slots:
    void beginsAtTheEnd();
    void keepsWhatItHasNotRead();
    void theSlowestReaderCounts();
};

namespace
{

const int held = 20000; // Lines that are there in any case.

void write(Journal &journal, int count)
{
    for (int i = 0; i < count; ++i) {
        journal.write(QStringLiteral("n"), QString::number(i));
    }
}

} // namespace

void TestJournalReader::beginsAtTheEnd()
{
    Journal journal;
    write(journal, 3);
    JournalReader reader(journal);
    QCOMPARE(reader.position(), qint64(3));
    write(journal, 2);
    QCOMPARE(reader.position(), qint64(3));
    reader.goTo(4);
    QCOMPARE(reader.position(), qint64(4));
    reader.goToEnd();
    QCOMPARE(reader.position(), qint64(5));
}

void TestJournalReader::keepsWhatItHasNotRead()
{
    Journal journal;
    write(journal, 7);
    JournalReader reader(journal);
    write(journal, held + 100);
    QCOMPARE(journal.lines().size(), held + 100);
    QCOMPARE(journal.find(JournalPattern(QStringLiteral("/^n 0$/")), reader.position()), qint64(7));
    reader.goTo(17);
    write(journal, 1);
    QCOMPARE(journal.lines().size(), held + 91);
    reader.goToEnd();
    write(journal, 1);
    QCOMPARE(journal.lines().size(), held);
    QCOMPARE(journal.end(), qint64(held + 109));
}

void TestJournalReader::theSlowestReaderCounts()
{
    Journal journal;
    JournalReader quick(journal);
    {
        const JournalReader slow(journal);
        write(journal, held + 5);
        quick.goToEnd();
        write(journal, 1);
        QCOMPARE(journal.lines().size(), held + 6);
    }
    write(journal, 1);
    QCOMPARE(journal.lines().size(), held);
}

FACTORY_TEST_GUILESS_MAIN(TestJournalReader)
#include "tst_journalreader.moc"
