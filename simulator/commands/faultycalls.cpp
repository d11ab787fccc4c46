#include "faultycalls.h"

#include "arguments.h"

#include "hardware/unit/callfaults.h"
#include "simulator/console/nearest.h"
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

QStringList callsThatCanFail()
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
bool isCall(const QString &call, const QString &argument)
{
    if (callsOnPaths().contains(call)) {
        return argument.startsWith(QLatin1Char('/'));
    }
    return call == QLatin1String("system")
        ? !argument.isEmpty()
        : unitlink::callsThatCanFail().contains(call) && argument.isEmpty();
}

bool addCallFault(hardware::CallFaults &faults, const QStringList &words, QString *error)
{
    const QString &text = words.first();
    const QString call = text.section(QLatin1Char(' '), 0, 0);
    int count = 1;
    if (!isCall(call, text.section(QLatin1Char(' '), 1))) {
        *error = QStringLiteral("there is no call \"%1\" that can fail; \"fault call\" lists them")
                     .arg(text)
            + nearHint(call, unitlink::callsThatCanFail());
        return false;
    }
    if (words.size() > 2) {
        *error = QStringLiteral(
                     "only a number may follow behind \"%1\"; a call with blanks stands in quotes")
                     .arg(text);
        return false;
    }
    if (!readNumber(words.value(1, QStringLiteral("1")), QStringLiteral("N"), 1,
                    std::numeric_limits<int>::max(), &count, error)) {
        return false;
    }
    faults.add(text, count);
    return true;
}

} // namespace

FaultDevice faultyCalls(hardware::CallFaults &faults)
{
    return {QStringLiteral("call"), callsThatCanFail, [&faults] { return faults.pending(); },
            [&faults](const QStringList &words, QString *error) {
                return addCallFault(faults, words, error);
            },
            [&faults] { faults.clear(); }};
}

} // namespace simulator
