#include "hardware/unit/cause.h"
#include "hardware/unit/clock.h"
#include "hardware/unit/deviceloop.h"
#include "hardware/unit/journal.h"
#include "support/testmain.h"

#include <QTemporaryDir>
#include <QtTest>

#include <thread>

using hardware::Cause;
using hardware::CauseScope;
using hardware::Journal;

class TestCause : public QObject
{
    Q_OBJECT

private slots:
    void aLineFollowsFromWhatItsThreadDoes();
    void whatIsGivenIsWrittenAhead();
    void numbersAreGivenWithTheFirstLine();
    void theFileHasTheNumber();
    void aDevicesCallFollowsFromItsCaller();
    void whatADeviceDoesLaterFollowsFromWhoAskedForIt();
    void aDeviceActsByItselfToo();

private:
    /// "<cause> <text>" of every line.
    QStringList lines() const;
    void write(const QString &text) { m_journal->write(QStringLiteral("test"), text); }

    QScopedPointer<Journal> m_journal;

private slots:
    void init() { m_journal.reset(new Journal); }
};

QStringList TestCause::lines() const
{
    QStringList list;
    const QList<Journal::Line> all = m_journal->entries(QString(), 0, Journal::Everything);
    for (const Journal::Line &line : all) {
        list.append(QString::number(line.cause) + QLatin1Char(' ') + line.text);
    }
    return list;
}

void TestCause::aLineFollowsFromWhatItsThreadDoes()
{
    const Cause outer = Cause::begun();
    const Cause inner = Cause::begun();
    write(QStringLiteral("before"));
    {
        const CauseScope scope(outer);
        write(QStringLiteral("outer"));
        {
            const CauseScope innerScope(inner);
            QVERIFY(Cause::current() == inner);
            write(QStringLiteral("inner"));
        }
        std::thread([this] { write(QStringLiteral("other")); }).join();
        write(QStringLiteral("again"));
    }
    write(QStringLiteral("after"));
    QVERIFY(!Cause::current().isKnown());
    QCOMPARE(lines(),
             QStringList({"0 test before", "1 test outer", "2 test inner", "0 test other",
                          "1 test again", "0 test after"}));
    const QList<Journal::Line> all = m_journal->entries();
    QCOMPARE(all.at(4).causeText, QStringLiteral("test outer"));
    QCOMPARE(all.at(5).causeText, QString());
    QCOMPARE(all.at(4).number, qint64(4));
}

void TestCause::whatIsGivenIsWrittenAhead()
{
    const CauseScope scope(Cause::begun(QStringLiteral("console als 1\n")));
    write(QStringLiteral("first"));
    write(QStringLiteral("second"));
    QCOMPARE(lines(), QStringList({"1 console als 1\\n", "1 test first", "1 test second"}));
    // Which is a quiet source.
    QCOMPARE(m_journal->lines(), QStringList({"test first", "test second"}));
    QCOMPARE(m_journal->entries().constLast().causeText, QStringLiteral("console als 1\\n"));
}

void TestCause::numbersAreGivenWithTheFirstLine()
{
    const Cause first = Cause::begun();
    const Cause second = Cause::begun();
    QCOMPARE(m_journal->number(first), qint64(0));
    {
        const CauseScope scope(second);
        write(QStringLiteral("x"));
    }
    QCOMPARE(m_journal->number(second), qint64(1));
    QCOMPARE(m_journal->number(first), qint64(0));
    QCOMPARE(m_journal->number(Cause()), qint64(0));
}

void TestCause::theFileHasTheNumber()
{
    const QTemporaryDir folder;
    const QString name = folder.filePath(QStringLiteral("journal.log"));
    QVERIFY(m_journal->appendTo(name));
    write(QStringLiteral("unknown"));
    {
        const CauseScope scope(Cause::begun(QStringLiteral("console x")));
        write(QStringLiteral("known"));
    }
    QFile file(name);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QString text = QString::fromUtf8(file.readAll());
    static const QRegularExpression wanted("^\\d+\\.\\d{3} #\\? test unknown\n"
                                           "\\d+\\.\\d{3} #1 console x\n"
                                           "\\d+\\.\\d{3} #1 test known\n$");
    QVERIFY2(wanted.match(text).hasMatch(), qPrintable(text));
}

void TestCause::aDevicesCallFollowsFromItsCaller()
{
    const hardware::Clock clock;
    hardware::DeviceLoop loop(clock);
    loop.start();
    {
        const CauseScope scope(Cause::begun(QStringLiteral("console x")));
        loop.call([this] { write(QStringLiteral("asked for")); });
    }
    loop.call([this] { write(QStringLiteral("nobody knows")); });
    QCOMPARE(lines(), QStringList({"1 console x", "1 test asked for", "0 test nobody knows"}));
}

void TestCause::whatADeviceDoesLaterFollowsFromWhoAskedForIt()
{
    const hardware::Clock clock;
    hardware::DeviceLoop loop(clock);
    loop.start();
    {
        const CauseScope scope(Cause::begun(QStringLiteral("console x")));
        loop.after(1, [this, &loop] {
            write(QStringLiteral("later"));
            loop.after(1, [this] { write(QStringLiteral("still later")); });
        });
    }
    QVERIFY(m_journal->waitFor(hardware::JournalPattern(QStringLiteral("still later")), 0, 5000)
            > 0);
    QCOMPARE(lines(), QStringList({"1 console x", "1 test later", "1 test still later"}));
}

void TestCause::aDeviceActsByItselfToo()
{
    const hardware::Clock clock;
    hardware::DeviceLoop loop(clock);
    loop.start();
    loop.after(0, [this] { write(QStringLiteral("first")); });
    QVERIFY(m_journal->waitFor(hardware::JournalPattern(QStringLiteral("first")), 0, 5000) >= 0);
    loop.after(0, [this] { write(QStringLiteral("second")); });
    QVERIFY(m_journal->waitFor(hardware::JournalPattern(QStringLiteral("second")), 0, 5000) >= 0);
    QCOMPARE(lines(), QStringList({"1 test first", "2 test second"}));
}

FACTORY_TEST_GUILESS_MAIN(TestCause)
#include "tst_cause.moc"
