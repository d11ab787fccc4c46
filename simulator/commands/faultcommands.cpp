#include "allcommands.h"

#include "arguments.h"
#include "commandtable.h"

#include "hardware/unit/unit.h"
#include "simulator/simulator.h"
#include "unitlink/calls.h"

#include <limits>

namespace simulator
{

namespace
{

/// The calls of the C library that the gate can let fail: on a path of the unit, or a command.
QStringList callsOnPaths()
{
    return {QStringLiteral("access"), QStringLiteral("fopen"), QStringLiteral("mkdir"),
            QStringLiteral("open"),   QStringLiteral("stat"),  QStringLiteral("statx"),
            QStringLiteral("unlink")};
}

QStringList knownCalls()
{
    QStringList lines = unitlink::callsThatCanFail();
    const QStringList onPaths = callsOnPaths();
    for (const QString &name : onPaths) {
        lines.append(name + QStringLiteral(" PATH"));
    }
    lines.append(QStringLiteral("system COMMAND"));
    return lines;
}

/// Whether there is such a call, with what belongs to it.
bool isKnown(const QString &call, const QString &argument)
{
    if (callsOnPaths().contains(call)) {
        return argument.startsWith(QLatin1Char('/'));
    }
    return call == QLatin1String("system")
        ? !argument.isEmpty()
        : unitlink::callsThatCanFail().contains(call) && argument.isEmpty();
}

ConsoleResult addFault(hardware::CallFaults &faults, const QString &text, const QString &number)
{
    const QString call = text.section(QLatin1Char(' '), 0, 0);
    const QString argument = text.section(QLatin1Char(' '), 1);
    if (!isKnown(call, argument)) {
        return ConsoleResult::failed(
            QStringLiteral("there is no call \"%1\" that can fail; \"fail calls\" lists them")
                .arg(text));
    }
    int count = 0;
    QString error;
    if (!readNumber(number, QStringLiteral("N"), 1, std::numeric_limits<int>::max(), &count,
                    &error)) {
        return ConsoleResult::failed(error);
    }
    faults.add(text, count);
    return ConsoleResult::done();
}

ConsoleResult fail(Simulator &simulator, const QStringList &arguments, ConsoleSession &)
{
    hardware::CallFaults &faults = simulator.unit().callFaults();
    const QString call = arguments.value(0);
    if (arguments.isEmpty()) {
        return ConsoleResult::done(faults.pending());
    }
    if (call == QLatin1String("none") && arguments.size() == 1) {
        faults.clear();
        return ConsoleResult::done();
    }
    if (call == QLatin1String("calls") && arguments.size() == 1) {
        return ConsoleResult::done(knownCalls());
    }
    return addFault(faults, call, arguments.value(1, QStringLiteral("1")));
}

} // namespace

void addFaultCommands(Console &console, Simulator &simulator)
{
    addCommands(console, simulator,
                {
                    {"fail", Console::Place::AnyThread, fail},
                });
}

} // namespace simulator
