#include "faultycalls.h"

#include "arguments.h"

#include "hardware/unit/callfaults.h"
#include "hardware/unit/falliblecall.h"
#include "simulator/console/nearest.h"
#include "unitlink/calls.h"

#include <algorithm>
#include <limits>

namespace simulator
{

using hardware::CallFaults;
using hardware::FallibleCall;

namespace
{

QString asLine(const FallibleCall &call)
{
    const QString of = call.of == FallibleCall::Path ? QStringLiteral(" [PATH]")
        : call.of == FallibleCall::Command           ? QStringLiteral(" [COMMAND]")
                                                     : QString();
    return QLatin1String(call.name) + of + QStringLiteral(": ")
        + call.failures.join(QStringLiteral(", "));
}

QStringList callsThatCanFail()
{
    QStringList lines = unitlink::callsThatCanFail();
    const QVector<FallibleCall> &ofTheLibrary = hardware::fallibleCalls();
    std::transform(ofTheLibrary.begin(), ofTheLibrary.end(), std::back_inserter(lines), asLine);
    return lines;
}

/// Whether there is such a call, with what belongs to it.
bool isCall(const QString &call, const QString &argument)
{
    const FallibleCall *const ofTheLibrary = hardware::fallibleCall(call);
    if (ofTheLibrary == nullptr) {
        return unitlink::callsThatCanFail().contains(call) && argument.isEmpty();
    }
    return argument.isEmpty() || ofTheLibrary->of == FallibleCall::Command
        || (ofTheLibrary->of == FallibleCall::Path && argument.startsWith(QLatin1Char('/')));
}

/// What may follow behind the call: N, with what it fails, and "on".
bool readHow(const QString &call, QStringList words, int *number, QString *failure,
             CallFaults::Span *span, QString *error)
{
    if (!words.isEmpty()
        && !readNumber(words.takeFirst(), QStringLiteral("N"), 1, std::numeric_limits<int>::max(),
                       number, error)) {
        return false;
    }
    if (!words.isEmpty() && words.last() == QLatin1String("on")) {
        words.removeLast();
        *span = CallFaults::FromThenOn;
    }
    if (words.isEmpty()) {
        return true;
    }
    const FallibleCall *const known = hardware::fallibleCall(call.section(QLatin1Char(' '), 0, 0));
    if (known == nullptr || words.size() > 1 || !known->failures.contains(words.first())) {
        const QString allowed = known == nullptr
            ? QStringLiteral("only N and \"on\"")
            : QStringLiteral("only N, one of %1, and \"on\"")
                  .arg(known->failures.join(QStringLiteral(", ")));
        *error = QStringLiteral("%1 may follow behind \"%2\"").arg(allowed, call);
        return false;
    }
    *failure = words.first();
    return true;
}

bool addCallFault(CallFaults &faults, const QStringList &words, QString *error)
{
    const QString &text = words.first();
    const QString call = text.section(QLatin1Char(' '), 0, 0);
    if (!isCall(call, text.section(QLatin1Char(' '), 1))) {
        *error = QStringLiteral("there is no call \"%1\" that can fail; \"fault call\" lists them")
                     .arg(text)
            + nearHint(call, unitlink::callsThatCanFail());
        return false;
    }
    int number = 1;
    QString failure;
    CallFaults::Span span = CallFaults::Once;
    if (!readHow(text, words.mid(1), &number, &failure, &span, error)) {
        return false;
    }
    faults.add(text, number, failure, span);
    return true;
}

} // namespace

FaultDevice faultyCalls(CallFaults &faults)
{
    return {QStringLiteral("call"), callsThatCanFail, [&faults] { return faults.pending(); },
            [&faults](const QStringList &words, QString *error) {
                return addCallFault(faults, words, error);
            },
            [&faults] { faults.clear(); }};
}

} // namespace simulator
