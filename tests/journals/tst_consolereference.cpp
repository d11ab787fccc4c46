#include "listreference.h"

#include "simulator/console/verbs.h"
#include "support/testmain.h"

#include <QtTest>

/// docs/console-reference.md tells every command of the console.
class TestConsoleReference : public QObject
{
    Q_OBJECT

private slots:
    void everyCommandIsTold();
};

void TestConsoleReference::everyCommandIsTold()
{
    QStringList lines = {
        QStringLiteral("# The console's commands"), QString(),
        QStringLiteral("Every command, as `help` tells of it. What stands in brackets may be left "
                       "out. [The console](console.md)"),
        QStringLiteral("tells how lines are written, and what their help has no room for.")};
    QString group;
    const QList<simulator::Verb> verbs = simulator::verbTable();
    for (const simulator::Verb &verb : verbs) {
        if (verb.group != group) {
            group = verb.group;
            lines += {QString(), QStringLiteral("## ") + group};
        }
        lines +=
            {QString(), QStringLiteral("### `%1`").arg(verb.synopsis()),      QString(), verb.help,
             QString(), QStringLiteral("For example: `%1`").arg(verb.example)};
    }
    const QString complaint = listComplaint(QStringLiteral("console-reference.md"), lines);
    QVERIFY2(complaint.isEmpty(), qPrintable(complaint));
}

FACTORY_TEST_GUILESS_MAIN(TestConsoleReference)
#include "tst_consolereference.moc"
