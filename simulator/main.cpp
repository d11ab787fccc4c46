#include "exitstatus.h"
#include "options.h"
#include "programend.h"
#include "selftest.h"
#include "simulator.h"

#include "gate/gate.h"
#include "hardware/unit/unit.h"
#include "simulator/commands/allcommands.h"
#include "simulator/console/commandline.h"
#include "simulator/console/console.h"
#include "simulator/console/consoleserver.h"
#include "simulator/console/scriptrunner.h"
#include "simulator/console/unitaddress.h"
#include "simulator/framework/unitapplication.h"
#include "simulator/session/reportarchive.h"
#include "simulator/window/appearance.h"
#include "simulator/window/displaycheck.h"
#include "simulator/window/hostwindow.h"

#include <QDir>
#include <QTemporaryDir>

#include <cstdio>
#include <optional>

using namespace simulator;

namespace
{

int fail(ExitStatus status, const QString &sentence)
{
    std::fprintf(stderr, "%s\n", qUtf8Printable(sentence));
    return status;
}

QApplication *makeApplication(char *argv[], bool headless)
{
    // Qt would take options of ours for its own.
    static int programNameOnly = 1;
    appearance::prepareEnvironment();
    const DisplayCheck check(headless);
    return new UnitApplication(programNameOnly, argv);
}

/// For who sees no window.
void sayWhereItIs(const Options &options)
{
    const QString folder = QDir(options.unitFolder).absolutePath();
    const QString talk = options.socket
        ? QStringLiteral("talk to it with: headunit-ctl --unit %1").arg(commandline::join({folder}))
        : QStringLiteral("without a socket nothing but a signal reaches it");
    std::printf("The unit is in %s; %s\n", qUtf8Printable(folder), qUtf8Printable(talk));
    std::fflush(stdout);
}

/// Runs the unit until it is quit.
int simulate(hardware::Unit &unit, const Options &options, ProgramEnd &end)
{
    QString error;
    const hardware::Gate gate(unit);

    Simulator simulator(unit, options.plugin,
                        options.verbose ? TraceJournal::JournalAndOutput
                                        : TraceJournal::JournalOnly,
                        options.language);
    end.leaveNothingOf({simulator.temporaryFolder()});
    QObject::connect(&simulator, &Simulator::quitRequested, &end, &ProgramEnd::request,
                     Qt::DirectConnection);
    std::optional<HostWindow> window;
    if (!options.headless) {
        window.emplace(simulator.bezel());
    }
    if (!simulator.start(&error)) {
        return fail(ExitPlugin, error);
    }
    if (window) {
        window->open(options.scale);
    }

    if (!options.record.isEmpty() && !simulator.recorder().start(options.record, &error)) {
        return fail(ExitWrongUsage, error);
    }

    Console console(simulator.graphicalThread());
    addAllCommands(console, simulator);
    ScriptRunner script(console, unit.journal());
    if (!options.script.isEmpty() && !script.open(options.script, &error)) {
        return fail(ExitWrongUsage, error);
    }
    script.setReport(options.report);
    ConsoleServer server(console);
    const QString link = unit.folder().path(QStringLiteral("/console.socket"));
    if (options.socket
        && !(server.listen(consoleSocketName(options.unitFolder), unit.journal(), &error)
             && server.linkFrom(link, &error))) {
        return fail(ExitUnitFolder, error);
    }
    end.leaveNothingOf({server.socketFile(), link});
    QObject::connect(&script, &ScriptRunner::over, qApp, [](bool successful) {
        QCoreApplication::exit(successful ? ExitFine : ExitFailed);
    });
    std::optional<SelfTest> selfTest;

    if (options.selfTest) {
        selfTest.emplace(console, simulator);
        QObject::connect(&*selfTest, &QThread::finished, qApp, &QCoreApplication::quit);
        selfTest->start();
    } else if (!options.script.isEmpty()) {
        // Behind what the activity has posted while it was made.
        QMetaObject::invokeMethod(
            &script, [&script] { script.start(); }, Qt::QueuedConnection);
    } else if (options.headless) {
        sayWhereItIs(options);
    }

    const int exitStatus = QApplication::exec();
    if (selfTest) {
        selfTest->requestInterruption();
    }
    console.close();
    if (options.stalls) {
        const QStringList summary = simulator.stallMeter().summary();
        for (const QString &line : summary) {
            std::puts(qUtf8Printable(line));
        }
    }
    return selfTest && !selfTest->isPassed() ? ExitFailed : exitStatus;
}

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication::setApplicationName(QStringLiteral("headunit"));
    QCoreApplication::setApplicationVersion(QStringLiteral(FACTORYDEBUG_VERSION));
    QString error;

    Options options;
    int exitStatus = ExitFine;
    if (!options.read(argc, argv, &exitStatus)) {
        return exitStatus;
    }

    const QScopedPointer<QApplication> application(makeApplication(argv, options.headless));
    if (!appearance::apply(&error)) {
        return fail(ExitDisplay, error);
    }

    if (!options.from.isEmpty()
        && !reportarchive::unpack(options.from, options.unitFolder, &error)) {
        return fail(ExitUnitFolder, error);
    }
    std::optional<QTemporaryDir> folder;
    if (options.selfTest) {
        folder.emplace();
        options.unitFolder = folder->path();
    }
    hardware::Unit unit(options.unitFolder, options.speed);
    ProgramEnd end(unit.journal());
    if (options.selfTest) {
        end.leaveNothingOf({options.unitFolder});
    }
    if (!unit.open(&error)) {
        return fail(ExitUnitFolder, error);
    }
    end.leaveNothingOf(unit.passingFiles());

    exitStatus = simulate(unit, options, end);
    return exitStatus == ExitFine && unit.journal().hasFailedWrites() ? ExitNotKept : exitStatus;
}
