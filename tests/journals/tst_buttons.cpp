#include "furnishing.h"
#include "listreference.h"

#include "scenarios/headunitrun.h"
#include "support/testmain.h"

#include <QTemporaryDir>
#include <QtTest>

namespace
{

/// A page, or a state of one, by its title, and the commands that lead to it from the one before.
struct Stop
{
    const char *title;
    const char *commands;
};

const Stop stops[] = {
    {"Home screen", ""},
    {"Menu", "key FACTORY"},
    {"USB Test", "press usbtest"},
    {"USB Eye", "press return\npress usbeye"},
    {"USB Eye: Use UPHY", "press usePhy"},
    {"NCM Test", "press return\npress ncmtest"},
    {"KeyColor", "press return\npress keycolor"},
    {"Vendordata", "press return\npress vendordata"},
    {"Vendordata: a package is found", "tap 200 190\nsee \"Verify Pass\" 10000"},
    {"ALS Test", "press popupview_cancel\npress return\npress als"},
    {"Product", "press return\npress pdtVer"},
    {"SysCtrl", "press return\npress sysCtrl"},
    {"Panel Config", "press return\npress idPanel"},
    {"GPS Update", "press return\npress gps\nvisible idUpdateBtn"},
};

QString script()
{
    QString text = QStringLiteral("plug usb0\nplug usb1\n");
    for (const Stop &stop : stops) {
        text += QStringLiteral("%1\nwait 500\nlook\n").arg(QLatin1String(stop.commands));
    }
    return text;
}

/// A row of the table for each button that "look" tells of.
QStringList tableOf(const QStringList &look)
{
    static const QRegularExpression form(
        QStringLiteral("^  button (\"[^\"]*\"|\\S+) (\\d+ \\d+ \\d+ \\d+) "
                       "((?:en|dis)abled(?: (?:un)?checked)?(?: is covered)?)(?: by \\S+)?"
                       "((?: (?:\"[^\"]*\"|\\S+))*)$"));
    QStringList rows = {QStringLiteral("| id | left, top, width, height | state | text |"),
                        QStringLiteral("| --- | --- | --- | --- |")};
    for (const QString &line : look) {
        const QRegularExpressionMatch match = form.match(line);
        if (match.hasMatch()) {
            rows.append(QStringLiteral("| `%1` | %2 | %3 | %4 |")
                            .arg(match.captured(1), match.captured(2), match.captured(3),
                                 match.captured(4).remove(QLatin1Char('"')).trimmed()));
        }
    }
    return rows;
}

} // namespace

/// docs/buttons.md tells the buttons of every page by the names that "press" takes.
class TestButtons : public QObject
{
    Q_OBJECT

private slots:
    void everyPageIsListed();
};

void TestButtons::everyPageIsListed()
{
    HeadunitRun run;
    furnish(run);
    run.write(QStringLiteral("/buttons.txt"), script().toUtf8());
    const HeadunitRun::End end =
        run.start({QStringLiteral("--speed"), QStringLiteral("5"), QStringLiteral("--script"),
                   run.path(QStringLiteral("/buttons.txt"))});
    QVERIFY2(end.status == 0, qPrintable(end.error));
    const QStringList pages = end.output.split(QStringLiteral("  activity ")).mid(1);
    QCOMPARE(pages.size(), int(std::extent<decltype(stops)>::value));

    QStringList lines = {
        QStringLiteral("# The buttons of each page"), QString(),
        QStringLiteral("What `look` tells of them on a unit that has just been started, with "
                       "packages on two sticks. `press`"),
        QStringLiteral("takes the id; rows of lists have none and are tapped.")};
    for (int page = 0; page < pages.size(); ++page) {
        lines +=
            {QString(), QStringLiteral("## %1").arg(QLatin1String(stops[page].title)), QString()};
        lines += tableOf(pages.at(page).split(QLatin1Char('\n')));
    }
    const QString complaint = listComplaint(QStringLiteral("buttons.md"), lines);
    QVERIFY2(complaint.isEmpty(), qPrintable(complaint));
}

FACTORY_TEST_GUILESS_MAIN(TestButtons)
#include "tst_buttons.moc"
