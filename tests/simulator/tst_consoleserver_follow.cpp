#include "simulator/console/consoleserver.h"

#include "servedunit.h"

#include "support/testmain.h"

#include <QLocalSocket>
#include <QtTest>

using namespace simulator;

/// Who follows the journal by the console's socket.
class TestConsoleServerFollow : public QObject
{
    Q_OBJECT

private slots:
    void tellsLinesAsTheyCome_data();
    void tellsLinesAsTheyCome();
    void tellsLinesFromBefore();
    void forgetsNoLine();
    void unitsEndEndsIt();
    void clientsEndEndsIt();
    void isRefusedWhereNothingEndsIt();
};

namespace
{

/// A client that follows the journal of a unit, from the constructor's end on.
class Follower
{
public:
    Follower(ServedUnit &served, const QByteArray &arguments)
    {
        m_socket.connectToServer(served.name());
        m_socket.write("journal --follow " + arguments + '\n');
        while (!m_told.contains("begins")) {
            // One for those who see only quiet lines.
            served.unit.journal().write("probe", "begins");
            served.unit.journal().write("touch", "begins");
            hear();
        }
    }

    /// Whether that line comes, in some time.
    bool hears(const QByteArray &line)
    {
        return QTest::qWaitFor(
            [&] {
                hear();
                return m_told.contains(line);
            },
            30000);
    }

    /// What it was told since it began, without times.
    QStringList told() const
    {
        QStringList lines = QString::fromUtf8(m_told).split('\n', Qt::SkipEmptyParts);
        lines.replaceInStrings(QRegularExpression("^>\\d+\\.\\d{3} "), ">");
        lines.removeAll(">probe begins");
        lines.removeAll(">touch begins");
        return lines;
    }

private:
    void hear()
    {
        m_socket.waitForReadyRead(5);
        m_told += m_socket.readAll();
    }

    QLocalSocket m_socket;
    QByteArray m_told;
};

} // namespace

void TestConsoleServerFollow::tellsLinesAsTheyCome_data()
{
    QTest::addColumn<QByteArray>("arguments");
    QTest::addColumn<QStringList>("told");
    QTest::newRow("what is not quiet")
        << QByteArray() << QStringList{">probe two", ">other one", ">probe end"};
    QTest::newRow("a text") << QByteArray("probe") << QStringList{">probe two", ">probe end"};
    QTest::newRow("all") << QByteArray("--all")
                         << QStringList{">probe two", ">asked of it", ">other one", ">touch end",
                                        ">probe end"};
    QTest::newRow("all with an expression")
        << QByteArray("--all '/^.{5} .*e/'")
        << QStringList{">other one", ">touch end", ">probe end"};
    QTest::newRow("a quiet source") << QByteArray("'/^touch .*e/'") << QStringList{">touch end"};
}

void TestConsoleServerFollow::tellsLinesAsTheyCome()
{
    QFETCH(QByteArray, arguments);
    ServedUnit served;
    hardware::Journal &journal = served.unit.journal();
    journal.write("probe", "one");
    Follower follower(served, arguments);
    journal.write("probe", "two");
    journal.write("asked", "of it");
    journal.write("other", "one");
    journal.write("touch", "end");
    journal.write("probe", "end");
    QVERIFY(follower.hears(arguments.contains("touch") ? "touch end" : "probe end"));
    QTEST(follower.told(), "told");
}

void TestConsoleServerFollow::tellsLinesFromBefore()
{
    ServedUnit served;
    served.unit.journal().write("probe", "before");
    Follower follower(served, "--from=0 probe");
    served.unit.journal().write("probe", "behind");
    QVERIFY(follower.hears("probe behind"));
    QCOMPARE(follower.told(), (QStringList{">probe before", ">probe behind"}));
}

void TestConsoleServerFollow::forgetsNoLine()
{
    ServedUnit served;
    Follower follower(served, "probe");
    const int count = 25000;
    for (int number = 1; number <= count; ++number) {
        served.unit.journal().write("probe", QString::number(number));
    }
    QVERIFY(follower.hears(QByteArray::number(count)));
    QCOMPARE(follower.told().size(), count);
}

void TestConsoleServerFollow::unitsEndEndsIt()
{
    auto served = std::make_unique<ServedUnit>();
    Follower follower(*served, "probe");
    served->unit.journal().write("probe", "last");
    served.reset();
    QVERIFY(follower.hears("\nok\n"));
    QCOMPARE(follower.told(), (QStringList{">probe last", "ok"}));
}

void TestConsoleServerFollow::clientsEndEndsIt()
{
    ServedUnit served;
    const auto threads = [] { return QDir("/proc/self/task").entryList().size(); };
    const int before = threads();
    {
        const Follower follower(served, QByteArray());
        QCOMPARE(threads(), before + 1);
    }
    // Nothing is written that could not be delivered.
    QTRY_COMPARE_WITH_TIMEOUT(threads(), before, 30000);
}

void TestConsoleServerFollow::isRefusedWhereNothingEndsIt()
{
    TestSimulator unit;
    QCOMPARE(unit.errorOf("journal --follow"),
             QString("only headunit-ctl can follow the journal; nothing would end it here"));
    QCOMPARE(unit.errorOf("journal --follow /(/"),
             QString("/(/ is no regular expression: missing closing parenthesis at character 1."));
    QCOMPARE(
        unit.errorOf("journal a b"),
        QString("usage: journal [--all] [--follow] [--from=LINE] [--causes or --json] [PATTERN]"));
}

FACTORY_TEST_MAIN(TestConsoleServerFollow)
#include "tst_consoleserver_follow.moc"
