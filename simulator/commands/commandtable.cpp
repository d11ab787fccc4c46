#include "commandtable.h"

#include "arguments.h"

#include "hardware/unit/unit.h"
#include "simulator/simulator.h"

#include <limits>

namespace simulator
{

namespace
{
const int leastPatienceMs = 2000;
}

int patienceMs(Simulator &simulator, int unitMs)
{
    return qMax(leastPatienceMs, simulator.unit().clock().hostMs(unitMs));
}

bool readWait(Simulator &simulator, const QString &word, int *unitMs, int *hostMs, QString *error)
{
    if (word.isEmpty()) {
        *hostMs = patienceMs(simulator, *unitMs);
        return true;
    }
    const bool isRead =
        readNumber(word, QStringLiteral("MS"), 0, std::numeric_limits<int>::max(), unitMs, error);
    *hostMs = simulator.unit().clock().hostMs(*unitMs);
    return isRead;
}

void addCommands(Console &console, Simulator &simulator, std::initializer_list<CommandRow> table)
{
    for (const CommandRow &row : table) {
        const auto function = row.function;
        console.add(QString::fromLatin1(row.name), row.place, row.effect,
                    [&simulator, function](const QStringList &arguments, ConsoleSession &session) {
                        return function(simulator, arguments, session);
                    });
    }
}

} // namespace simulator
