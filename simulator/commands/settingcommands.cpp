#include "allcommands.h"

#include "commandtable.h"

#include "hardware/unit/unit.h"
#include "simulator/simulator.h"

namespace simulator
{

namespace
{

ConsoleResult setting(Simulator &simulator, const QStringList &arguments, ConsoleSession &)
{
    hardware::Settings &settings = simulator.unit().settings();
    const QString &key = arguments.first();
    if (arguments.size() > 1) {
        settings.setValue(key, arguments.at(1));
        return ConsoleResult::done();
    }
    const QVariant value = settings.value(key);
    return value.isValid()
        ? ConsoleResult::done({value.toString()})
        : ConsoleResult::failed(QStringLiteral("there is no setting \"%1\"").arg(key));
}

} // namespace

void addSettingCommands(Console &console, Simulator &simulator)
{
    addCommands(console, simulator,
                {
                    {"setting", Console::Place::AnyThread, Effect::World, setting},
                });
}

} // namespace simulator
