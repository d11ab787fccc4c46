#include "allcommands.h"

#include "arguments.h"
#include "commandtable.h"

#include "hardware/unit/unit.h"
#include "simulator/simulator.h"

namespace simulator
{

namespace
{

using hardware::DabTuner;

bool isToldStatus(int code)
{
    return code == DabTuner::Idle || code == DabTuner::Updating || code == DabTuner::UpdateFailed
        || code == DabTuner::UpdateSucceeded;
}

ConsoleResult dab(Simulator &simulator, const QStringList &arguments, ConsoleSession &)
{
    DabTuner &tuner = simulator.unit().dabTuner();
    if (arguments.isEmpty()) {
        return ConsoleResult::done(
            {QStringLiteral("status %1, progress %2 %").arg(tuner.status()).arg(tuner.progress())});
    }
    int code = 0;
    bool isWrong = false;
    QString error;
    if (!readWrong(arguments.value(1), &isWrong, &error)
        || !readNumber(arguments.first(), QStringLiteral("CODE"), 0, 255, &code, &error)) {
        return ConsoleResult::failed(error);
    }
    if (!isWrong && !isToldStatus(code)) {
        return ConsoleResult::failed(
            QStringLiteral("CODE is 0, 7, 8 or 9, not \"%1\"; \"wrong\" behind it allows others")
                .arg(arguments.first()));
    }
    tuner.setStatus(code);
    return ConsoleResult::done();
}

ConsoleResult version(Simulator &simulator, const QStringList &arguments, ConsoleSession &)
{
    hardware::Versions &versions = simulator.unit().versions();
    const QStringList names = hardware::Versions::names();
    if (arguments.isEmpty()) {
        QStringList lines;
        for (const QString &name : names) {
            lines.append(name + QLatin1Char(' ') + versions.value(name));
        }
        return ConsoleResult::done(lines);
    }
    if (!names.contains(arguments.first())) {
        return ConsoleResult::failed(QStringLiteral("there is no version of \"%1\"; there are: %2")
                                         .arg(arguments.first(), names.join(QLatin1String(", "))));
    }
    if (arguments.size() > 1) {
        QString error;
        return versions.setValue(arguments.first(), arguments.at(1), &error)
            ? ConsoleResult::done()
            : ConsoleResult::failed(error);
    }
    return ConsoleResult::done({versions.value(arguments.first())});
}

} // namespace

void addSystemCommands(Console &console, Simulator &simulator)
{
    const auto place = Console::Place::AnyThread;
    addCommands(console, simulator,
                {
                    {"dab", place, Effect::World, dab},
                    {"version", place, Effect::World, version},
                });
}

} // namespace simulator
