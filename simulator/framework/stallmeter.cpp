#include "stallmeter.h"

#include "hardware/unit/unit.h"

#include <QAbstractEventDispatcher>
#include <QMutexLocker>

#include <algorithm>

using hardware::CallTimes;
using hardware::Cause;

namespace simulator
{

namespace
{

constexpr double shortestCall = 0.0005; // seconds
constexpr int stallsKept = 10000;

const QLatin1String rest("rest");

QString inSeconds(double seconds)
{
    return QString::number(seconds, 'f', 3);
}

/// Those that are worth telling, the longest first.
QList<QPair<double, QString>> sorted(const QMap<QString, double> &calls)
{
    QList<QPair<double, QString>> list;
    for (auto call = calls.cbegin(); call != calls.cend(); ++call) {
        if (call.value() >= shortestCall) {
            list.append({call.value(), call.key()});
        }
    }
    std::stable_sort(list.begin(), list.end(),
                     [](const auto &left, const auto &right) { return left.first > right.first; });
    return list;
}

struct Sum
{
    int count = 0;
    double seconds = 0;
    double longest = 0;
    QMap<QString, double> calls;
};

} // namespace

StallMeter::StallMeter(hardware::Unit &unit)
    : m_unit(unit)
{
    // An event that waits in a loop of its own blocks nobody meanwhile.
    const QAbstractEventDispatcher *dispatcher = QAbstractEventDispatcher::instance();
    connect(dispatcher, &QAbstractEventDispatcher::awake, this, [this] { restart(); });
    connect(dispatcher, &QAbstractEventDispatcher::aboutToBlock, this, [this] {
        if (m_isInEvent) {
            measure();
        }
        m_busySince = idle;
    });
}

void StallMeter::begin()
{
    m_isInEvent = true;
    restart();
}

void StallMeter::end()
{
    measure();
    m_isInEvent = false;
}

double StallMeter::busySeconds() const
{
    const qint64 since = m_busySince;
    QElapsedTimer now;
    now.start();
    return since == idle ? 0 : double(now.msecsSinceReference() - since) / 1000;
}

QList<StallMeter::Stall> StallMeter::stalls() const
{
    const QMutexLocker locker(&m_mutex);
    return m_stalls;
}

QStringList StallMeter::summary(int ms) const
{
    QMap<QString, Sum> sums;
    const QList<Stall> all = stalls();
    for (const Stall &stall : all) {
        if (stall.seconds < ms / 1000.0) {
            continue;
        }
        Sum &sum = sums[stall.by];
        ++sum.count;
        sum.seconds += stall.seconds;
        sum.longest = std::max(sum.longest, stall.seconds);
        for (auto call = stall.calls.cbegin(); call != stall.calls.cend(); ++call) {
            sum.calls[call.key()] += call.value();
        }
    }
    QMap<QString, double> totals;
    for (auto sum = sums.cbegin(); sum != sums.cend(); ++sum) {
        totals[sum.key()] = sum->seconds;
    }
    QStringList lines;
    const auto byTotal = sorted(totals);
    for (const auto &total : byTotal) {
        const Sum &sum = sums[total.second];
        lines.append(QStringLiteral("%1: %2 s in %3, the longest %4 s")
                         .arg(total.second, inSeconds(sum.seconds))
                         .arg(sum.count)
                         .arg(inSeconds(sum.longest)));
        const auto calls = sorted(sum.calls);
        for (const auto &call : calls) {
            lines.append(QStringLiteral("    %1 %2").arg(inSeconds(call.first), call.second));
        }
    }
    return lines;
}

void StallMeter::restart()
{
    m_calls.take();
    m_busy.start();
    m_busySince = m_busy.msecsSinceReference();
}

/// What its calls waited counts in the unit's time, everything else as the host took it.
void StallMeter::measure()
{
    const QVector<CallTimes::Call> calls = m_calls.take();
    double unexplained = m_busy.nsecsElapsed() / 1e9;
    Stall stall = {QString(), 0, {}};
    const CallTimes::Call *longest = nullptr;
    for (const CallTimes::Call &call : calls) {
        unexplained -= call.hostSeconds;
        stall.seconds += call.unitSeconds;
        stall.calls[call.name] += call.unitSeconds;
        if (longest == nullptr || call.unitSeconds > longest->unitSeconds) {
            longest = &call;
        }
    }
    stall.seconds += unexplained;
    if (calls.isEmpty() && stall.seconds < shortestMs / 1000.0) {
        return;
    }
    stall.calls[rest] = unexplained;
    tell(stall, longest == nullptr ? Cause::current() : longest->cause);
}

void StallMeter::tell(const Stall &found, const Cause &cause)
{
    Stall stall = found;
    stall.by = button(cause);
    if (stall.seconds >= shortestMs / 1000.0) {
        QStringList calls;
        const auto longestFirst = sorted(stall.calls);
        for (const auto &call : longestFirst) {
            calls.append(call.second + QLatin1Char(' ') + inSeconds(call.first));
        }
        const hardware::CauseScope scope(cause);
        m_unit.journal().write(
            QStringLiteral("stall"),
            QStringLiteral("%1 %2: %3")
                .arg(inSeconds(stall.seconds), stall.by, calls.join(QStringLiteral(", "))));
    }
    const QMutexLocker locker(&m_mutex);
    m_stalls.append(stall);
    if (m_stalls.size() > stallsKept) {
        m_stalls.removeFirst();
    }
}

/// The id of the button that the touch has pressed, else what it was that came.
QString StallMeter::button(const Cause &cause) const
{
    const hardware::Journal &journal = m_unit.journal();
    const QList<hardware::Journal::Line> lines = journal.following(journal.number(cause));
    static const QRegularExpression signal(
        QStringLiteral("^touch (.+) (clicked|btnClicked|btnReleased)$"));
    for (const hardware::Journal::Line &line : lines) {
        const QRegularExpressionMatch match = signal.match(line.text);
        if (match.hasMatch()) {
            return match.captured(1);
        }
    }
    return lines.isEmpty() ? QStringLiteral("unknown") : lines.constFirst().causeText;
}

} // namespace simulator
