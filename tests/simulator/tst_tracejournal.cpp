#include "simulator/framework/tracejournal.h"

#include "hardware/unit/journal.h"
#include "support/testmain.h"

#include <QLoggingCategory>
#include <QtTest>

using namespace simulator;

Q_DECLARE_METATYPE(TraceJournal::Place)

class TestTraceJournal : public QObject
{
    Q_OBJECT

private slots:
    void debugLinesOfTheDefaultCategoryAreKept();
    void othersAreNot();
    void theFormerHandlerHearsEverything_data();
    void theFormerHandlerHearsEverything();
    void nothingIsKeptAfterwards();
    void linesMayComeFromAnyThread();
};

namespace
{

Q_LOGGING_CATEGORY(otherCategory, "other", QtDebugMsg)

QStringList &heard()
{
    static QStringList lines;
    return lines;
}

void remember(QtMsgType, const QMessageLogContext &, const QString &message)
{
    heard().append(message);
}

} // namespace

void TestTraceJournal::debugLinesOfTheDefaultCategoryAreKept()
{
    hardware::Journal journal;
    const TraceJournal trace(journal, TraceJournal::JournalAndOutput);
    QTest::ignoreMessage(QtDebugMsg, "id: \"usbtest\"");
    qDebug() << "id:" << QString("usbtest");
    QCOMPARE(journal.lines(), QStringList{"trace id: \"usbtest\""});
}

void TestTraceJournal::othersAreNot()
{
    hardware::Journal journal;
    const TraceJournal trace(journal, TraceJournal::JournalAndOutput);
    QTest::ignoreMessage(QtDebugMsg, "another category");
    QTest::ignoreMessage(QtInfoMsg, "information");
    QTest::ignoreMessage(QtWarningMsg, "warning");
    qCDebug(otherCategory) << "another category";
    qInfo("information");
    qWarning("warning");
    QVERIFY(journal.lines().isEmpty());
}

void TestTraceJournal::theFormerHandlerHearsEverything_data()
{
    QTest::addColumn<TraceJournal::Place>("place");
    QTest::addColumn<QStringList>("lines");
    QTest::newRow("output too") << TraceJournal::JournalAndOutput
                                << QStringList{"traced", "noted", "warned", "later"};
    QTest::newRow("but for traces")
        << TraceJournal::JournalOnly << QStringList{"noted", "warned", "later"};
}

void TestTraceJournal::theFormerHandlerHearsEverything()
{
    QFETCH(TraceJournal::Place, place);
    heard().clear();
    const QtMessageHandler testsOwn = qInstallMessageHandler(remember);
    {
        hardware::Journal journal;
        const TraceJournal trace(journal, place);
        qDebug("traced");
        qCDebug(otherCategory) << "noted";
        qWarning("warned");
    }
    qDebug("later");
    qInstallMessageHandler(testsOwn);
    QTEST(heard(), "lines");
}

void TestTraceJournal::nothingIsKeptAfterwards()
{
    hardware::Journal journal;
    {
        const TraceJournal trace(journal, TraceJournal::JournalAndOutput);
    }
    QTest::ignoreMessage(QtDebugMsg, "too late");
    qDebug("too late");
    QVERIFY(journal.lines().isEmpty());
}

void TestTraceJournal::linesMayComeFromAnyThread()
{
    heard().clear();
    hardware::Journal journal;
    const TraceJournal trace(journal, TraceJournal::JournalAndOutput);
    QTest::ignoreMessage(QtDebugMsg, "from a worker");
    const QScopedPointer<QThread> worker(QThread::create([] { qDebug("from a worker"); }));
    worker->start();
    QVERIFY(worker->wait(5000));
    QCOMPARE(journal.lines(), QStringList{"trace from a worker"});
}

FACTORY_TEST_GUILESS_MAIN(TestTraceJournal)
#include "tst_tracejournal.moc"
