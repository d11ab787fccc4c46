#include "allcommands.h"

#include "commandtable.h"

#include "simulator/console/consolesession.h"
#include "simulator/session/bugreport.h"
#include "simulator/simulator.h"

namespace simulator
{

namespace
{

ConsoleResult record(Simulator &simulator, const QStringList &arguments, ConsoleSession &session)
{
    SessionRecorder &recorder = simulator.recorder();
    QString error;
    if (arguments.isEmpty()) {
        const QString file = recorder.fileName();
        return ConsoleResult::done({file.isEmpty() ? QStringLiteral("nothing") : file});
    }
    const bool isDone = arguments.first() == QLatin1String("stop")
        ? recorder.stop(&error)
        : recorder.start(session.path(arguments.first()), &error);
    return isDone ? ConsoleResult::done() : ConsoleResult::failed(error);
}

ConsoleResult report(Simulator &simulator, const QStringList &arguments, ConsoleSession &session)
{
    QString error;
    return bugreport::write(simulator, session.path(arguments.first()), &error)
        ? ConsoleResult::done()
        : ConsoleResult::failed(error);
}

} // namespace

void addSessionCommands(Console &console, Simulator &simulator)
{
    const auto place = Console::Place::AnyThread;
    addCommands(console, simulator,
                {
                    {"record", place, Effect::None, record},
                    {"report", place, Effect::None, report},
                });
}

} // namespace simulator
