#include "consoleclient.h"
#include "unitaddress.h"
#include "verbs.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDir>

#include <cstdio>

using namespace simulator;

namespace
{

enum ExitStatus { ExitFine = 0, ExitCommandFailed = 1, ExitWrongUsage = 2, ExitNoUnit = 3 };

const char description[] =
    "Runs one console command on a headunit that runs. The command \"help\" lists them all,\n"
    "and needs no unit.\n"
    "\n"
    "Exit status:\n"
    "  0  all went well\n"
    "  1  the command failed\n"
    "  2  the command line is wrong\n"
    "  3  no unit runs on that folder";

void print(FILE *stream, const QStringList &lines)
{
    for (const QString &line : lines) {
        std::fprintf(stream, "%s\n", qUtf8Printable(line));
    }
}

int fail(ExitStatus status, const QString &sentence)
{
    print(stderr, {sentence});
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

/// Tells of the commands, which it knows without a unit.
int help(const QStringList &names)
{
    const QList<Verb> verbs = verbTable();
    if (names.size() > 1) {
        return fail(ExitCommandFailed,
                    QStringLiteral("usage: ")
                        + findVerb(verbs, QStringLiteral("help"))->synopsis());
    }
    const Verb *verb = names.isEmpty() ? nullptr : findVerb(verbs, names.first());
    if (verb == nullptr && !names.isEmpty()) {
        return fail(ExitCommandFailed, unknownVerb(verbs, names.first()));
    }
    print(stdout, verb == nullptr ? helpOnAll(verbs) : helpOn(*verb));
    return ExitFine;
}

int runCommand(const QString &unitFolder, const QStringList &command)
{
    ConsoleClient client;
    QStringList lines;
    QString error;
    if (!client.connectTo(unitFolder, &error)) {
        return fail(ExitNoUnit, error);
    }
    client.setListener([](const QString &line) {
        print(stdout, {line});
        std::fflush(stdout);
    });
    // The unit's program runs in a folder of its own, but names are meant from here.
    const bool successful = client.run({QStringLiteral("cd"), QDir::currentPath()}, &lines, &error)
        && client.run(command, &lines, &error);
    FILE *stream = successful ? stdout : stderr;
    if (!successful) {
        fail(ExitCommandFailed, error);
    }
    print(stream, lines);
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
    const QStringList command = parser.positionalArguments();
    return command.first() == QLatin1String("help") ? help(command.mid(1))
                                                    : runCommand(parser.value("unit"), command);
}
