#include "consoleclient.h"
#include "unitaddress.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDir>

#include <cstdio>

using namespace simulator;

namespace
{

enum ExitStatus { ExitFine = 0, ExitCommandFailed = 1, ExitWrongUsage = 2, ExitNoUnit = 3 };

const char description[] =
    "Runs one console command on a headunit that runs. The command \"help\" lists them all.\n"
    "\n"
    "Exit status:\n"
    "  0  all went well\n"
    "  1  the command failed\n"
    "  2  the command line is wrong\n"
    "  3  no unit runs on that folder";

int fail(ExitStatus status, const QString &sentence)
{
    std::fprintf(stderr, "%s\n", qUtf8Printable(sentence));
    return status;
}

void addOptions(QCommandLineParser &parser)
{
    parser.setApplicationDescription(QString::fromLatin1(description));
    // What begins with a dash behind the command belongs to the command.
    parser.setOptionsAfterPositionalArgumentsMode(QCommandLineParser::ParseAsPositionalArguments);
    parser.addOptions({
        {{"h", "help"}, "Shows this."},
        {{"v", "version"}, "Says which version this is."},
        {"unit", QStringLiteral("The unit's folder. Default: %1").arg(defaultUnitFolder()), "dir",
         defaultUnitFolder()},
    });
    parser.addPositionalArgument("command", "The command.");
    parser.addPositionalArgument("arguments", "Its arguments.", "[arguments...]");
}

int runCommand(const QString &unitFolder, const QStringList &command)
{
    ConsoleClient client;
    QStringList lines;
    QString error;
    if (!client.connectTo(unitFolder, &error)) {
        return fail(ExitNoUnit, error);
    }
    // The unit's program runs in a folder of its own, but names are meant from here.
    const bool successful = client.run({QStringLiteral("cd"), QDir::currentPath()}, &lines, &error)
        && client.run(command, &lines, &error);
    FILE *stream = successful ? stdout : stderr;
    if (!successful) {
        fail(ExitCommandFailed, error);
    }
    for (const QString &line : qAsConst(lines)) {
        std::fprintf(stream, "%s\n", qUtf8Printable(line));
    }
    return successful ? ExitFine : ExitCommandFailed;
}

} // namespace

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("headunit-ctl"));
    QCoreApplication::setApplicationVersion(QStringLiteral(FACTORYDEBUG_VERSION));

    QCommandLineParser parser;
    addOptions(parser);
    if (!parser.parse(QCoreApplication::arguments())) {
        return fail(ExitWrongUsage, parser.errorText());
    }
    if (parser.isSet("help")) {
        std::printf("%s", qUtf8Printable(parser.helpText()));
        return ExitFine;
    }
    if (parser.isSet("version")) {
        std::printf("headunit-ctl %s\n", FACTORYDEBUG_VERSION);
        return ExitFine;
    }
    if (parser.positionalArguments().isEmpty()) {
        return fail(ExitWrongUsage, QStringLiteral("A command is missing; --help tells more."));
    }
    return runCommand(parser.value("unit"), parser.positionalArguments());
}
