#include "hardware/unit/journal.h"
#include "support/testmain.h"

#include <QtTest>

using hardware::Journal;
using hardware::JournalPattern;

/// Which of the journal's lines a pattern finds when some are of quiet sources.
class TestJournalPattern : public QObject
{
    Q_OBJECT

private slots:
    void quietSourcesAreSeenByWhoAsks_data();
    void quietSourcesAreSeenByWhoAsks();
};

void TestJournalPattern::quietSourcesAreSeenByWhoAsks_data()
{
    QTest::addColumn<QString>("pattern");
    QTest::addColumn<QStringList>("seen");

    const auto touch = QStringLiteral("touch press 1 2");
    const auto asked = QStringLiteral("asked a() = \"gate open\"");
    const auto gate = QStringLiteral("gate open(\"/a\")");
    const auto told = QStringLiteral("mcu gate open");
    QTest::newRow("nothing") << QString() << QStringList{told};
    QTest::newRow("text") << "open" << QStringList{told};
    QTest::newRow("source") << "gate open" << QStringList({asked, gate, told});
    QTest::newRow("expression") << "/open/" << QStringList{told};
    QTest::newRow("expression with a source") << "/^gate open/" << QStringList{gate};
    QTest::newRow("expression with an unanchored source") << "/asked .*open/" << QStringList{asked};
    QTest::newRow("a source in the middle") << "mcu gate" << QStringList{told};
    QTest::newRow("a longer word") << "gates " << QStringList();
    QTest::newRow("touch") << "touch " << QStringList{touch};
}

void TestJournalPattern::quietSourcesAreSeenByWhoAsks()
{
    QFETCH(QString, pattern);
    QFETCH(QStringList, seen);
    Journal journal;
    journal.write(QStringLiteral("touch"), QStringLiteral("press 1 2"));
    journal.write(QStringLiteral("asked"), QStringLiteral("a() = \"gate open\""));
    journal.write(QStringLiteral("gate"), QStringLiteral("open(\"/a\")"));
    journal.write(QStringLiteral("mcu"), QStringLiteral("gate open"));

    QCOMPARE(journal.lines(pattern), seen);
    const qint64 first = journal.find(JournalPattern(pattern));
    QCOMPARE(first < 0 ? QString()
                       : journal.lines(QString(), first, Journal::Everything).constFirst(),
             seen.value(0));
    QCOMPARE(journal.lines(QString(), 0, Journal::Everything).size(), 4);
}

FACTORY_TEST_GUILESS_MAIN(TestJournalPattern)
#include "tst_journalpattern.moc"
