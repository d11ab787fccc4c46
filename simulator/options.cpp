#include "options.h"

#include "exitstatus.h"
#include "installed.h"

#include "hardware/unit/clock.h"
#include "simulator/commands/arguments.h"
#include "simulator/console/unitaddress.h"
#include "simulator/framework/language.h"
#include "simulator/window/hostwindow.h"

#include <QCommandLineParser>
#include <QCoreApplication>

#include <cstdio>

namespace simulator
{

namespace
{

const char description[] =
    "Simulates a head unit with its 800 x 480 touch screen, and runs the factory-debug plug-in\n"
    "on it. The unit's state is kept in a folder. \"headunit-ctl help\" lists the commands of its\n"
    "console.\n"
    "\n"
    "Exit status:\n"
    "  0  all went well\n"
    "  1  a command of the script failed, the script could not be read on, or its report not\n"
    "     be written; or something does not work in the self-test\n"
    "  2  the command line or the name of a script or session is wrong\n"
    "  3  the plug-in cannot be used\n"
    "  4  the unit's folder cannot be used, another headunit uses it, or a report cannot be\n"
    "     unpacked into it\n"
    "  5  there is no display, or its font is missing\n"
    "  6  a file of the unit could not be written\n"
    "  7  it was to end, but its screen was blocked";

bool end(int *exitStatus, int status, FILE *stream, const QString &text)
{
    std::fprintf(stream, "%s\n", qUtf8Printable(text));
    *exitStatus = status;
    return false;
}

void addOptions(QCommandLineParser &parser)
{
    parser.setApplicationDescription(QString::fromLatin1(description));
    parser.addOptions({
        {{"h", "help"}, "Shows this."},
        {{"v", "version"}, "Says which version this is."},
        {"unit",
         QStringLiteral("The unit's folder; made when missing. Default: %1")
             .arg(defaultUnitFolder()),
         "dir", defaultUnitFolder()},
        {"plugin", "The plug-in to load. Default: the one that comes with this program.", "file",
         installedPath(QStringLiteral(INSTALLED_PLUGIN))},
        {"script", "Runs console commands, one a line, and ends; \"-\" is standard input.", "file"},
        {"report", "Writes there, as JUnit does, how the script went.", "file.xml"},
        {"record", "Writes what is done to the unit as such a script.", "file"},
        {"from", "Unpacks a report into the unit's folder, which must be empty.", "file"},
        {"language",
         QStringLiteral("Shows the plug-in's texts in that language: %1. Default: en")
             .arg(Language::names().join(QStringLiteral(", "))),
         "name", "en"},
        {"headless", "Shows no window."},
        {"verbose", "Shows the plug-in's traces, which the journal has, on standard error too."},
        {"speed",
         QStringLiteral("Lets the unit's time pass that many times faster, %1 to %2. Default: 1")
             .arg(hardware::Clock::slowest)
             .arg(hardware::Clock::fastest),
         "factor", "1"},
        {"scale",
         QStringLiteral("Opens the window at that many times its size, %1 to %2. Default: 1")
             .arg(HostWindow::smallestScale)
             .arg(HostWindow::largestScale),
         "factor", "1"},
        {"self-test", "Tries each page of the plug-in on a new unit, says what works, and ends."},
        {"stalls", "Says at the end what blocked the screen for 100 ms or more."},
        {"no-socket", "Does not listen for headunit-ctl."},
    });
}

/// What is wrong with the command line; empty when nothing is.
QString complaint(const QCommandLineParser &parser, double *speed, double *scale)
{
    if (!parser.positionalArguments().isEmpty()) {
        return QStringLiteral("Unexpected argument \"%1\".")
            .arg(parser.positionalArguments().constFirst());
    }
    if (parser.isSet("report") && !parser.isSet("script")) {
        return QStringLiteral("Only a script has a report.");
    }
    for (const char *option : {"unit", "script", "record", "from", "language"}) {
        if (parser.isSet("self-test") && parser.isSet(option)) {
            return QStringLiteral("The self-test goes without --%1.").arg(QLatin1String(option));
        }
    }
    const QString language = parser.value("language");
    if (!Language::names().contains(language)) {
        return QStringLiteral("There is no language \"%1\"; there are %2.")
            .arg(language, Language::names().join(QStringLiteral(", ")));
    }
    QString error;
    return readSpeed(parser.value("speed"), QStringLiteral("The speed"), speed, &error)
            && readFactor(parser.value("scale"), QStringLiteral("The scale"),
                          HostWindow::smallestScale, HostWindow::largestScale, scale, &error)
        ? QString()
        : error + QLatin1Char('.');
}

} // namespace

bool Options::read(int argc, char *argv[], int *exitStatus)
{
    const QCoreApplication application(argc, argv);
    QCommandLineParser parser;
    addOptions(parser);
    if (!parser.parse(QCoreApplication::arguments())) {
        return end(exitStatus, ExitWrongUsage, stderr, parser.errorText());
    }
    if (parser.isSet("help")) {
        return end(exitStatus, ExitFine, stdout, parser.helpText().trimmed());
    }
    if (parser.isSet("version")) {
        return end(exitStatus, ExitFine, stdout,
                   QStringLiteral("headunit ") + QCoreApplication::applicationVersion());
    }
    const QString wrong = complaint(parser, &speed, &scale);
    if (!wrong.isEmpty()) {
        return end(exitStatus, ExitWrongUsage, stderr, wrong);
    }
    unitFolder = parser.value("unit");
    plugin = parser.value("plugin");
    script = parser.value("script");
    report = parser.value("report");
    record = parser.value("record");
    from = parser.value("from");
    language = parser.value("language");
    selfTest = parser.isSet("self-test");
    headless = selfTest || parser.isSet("headless");
    verbose = parser.isSet("verbose");
    stalls = parser.isSet("stalls");
    socket = !selfTest && !parser.isSet("no-socket");
    return true;
}

} // namespace simulator
