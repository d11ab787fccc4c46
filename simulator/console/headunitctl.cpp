#include "completion.h"
#include "unitaddress.h"
#include "unitcontrol.h"
#include "verbs.h"

#include <QCommandLineParser>
#include <QCoreApplication>

#include <cstdio>

using namespace simulator;

namespace
{

const char description[] =
    "Runs a console command on a headunit that runs; without one, the commands that are typed,\n"
    "or those of standard input up to the first that fails. The command \"help\" lists them all,\n"
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

int fail(ControlStatus status, const QString &sentence)
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
        {"complete", "Lists what the last word of that line of the console can become.", "line"},
    });
    parser.addPositionalArgument("command", "The command.", "[command");
    parser.addPositionalArgument("arguments", "Its arguments.", "[arguments...]]");
}

/// Tells of the commands, which it knows without a unit.
int help(const QStringList &names)
{
    const QList<Verb> verbs = verbTable();
    if (names.size() > 1) {
        return fail(ControlCommandFailed,
                    QStringLiteral("usage: ")
                        + findVerb(verbs, QStringLiteral("help"))->synopsis());
    }
    const Verb *verb = names.isEmpty() ? nullptr : findVerb(verbs, names.first());
    if (verb == nullptr && !names.isEmpty()) {
        return fail(ControlCommandFailed, unknownVerb(verbs, names.first()));
    }
    print(stdout, verb == nullptr ? helpOnAll(verbs) : helpOn(*verb));
    return ControlFine;
}

/// What the end of a line can become; without a unit no button.
int complete(const QString &unitFolder, const QString &line)
{
    print(stdout, completions(line, [&unitFolder] {
              UnitControl control;
              return control.connectTo(unitFolder) == ControlFine ? control.buttons()
                                                                  : QStringList();
          }));
    return ControlFine;
}

int control(const QString &unitFolder, const QStringList &command)
{
    UnitControl control;
    const ControlStatus status = control.connectTo(unitFolder);
    if (status != ControlFine) {
        return status;
    }
    return command.isEmpty() ? control.runInput() : control.run(command);
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
        return fail(ControlWrongUsage, parser.errorText());
    }
    if (parser.isSet("help")) {
        std::printf("%s", qUtf8Printable(parser.helpText()));
        return ControlFine;
    }
    if (parser.isSet("version")) {
        std::printf("headunit-ctl %s\n", FACTORYDEBUG_VERSION);
        return ControlFine;
    }
    const QString unitFolder = parser.value("unit");
    if (parser.isSet("complete")) {
        return complete(unitFolder, parser.value("complete"));
    }
    const QStringList command = parser.positionalArguments();
    return command.value(0) == QLatin1String("help") ? help(command.mid(1))
                                                     : control(unitFolder, command);
}
