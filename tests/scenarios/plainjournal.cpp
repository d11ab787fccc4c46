#include "plainjournal.h"

#include <QRegularExpression>
#include <QSet>

namespace
{

/// Without what differs from run to run, or with every change of a source: times and numbers of
/// causes, the lines of trace lines, how much of an answer a read finds.
QString plain(QString line)
{
    static const QRegularExpression time(QStringLiteral("^[0-9.]+ #(\\d+|\\?) "));
    static const QRegularExpression traceHead(
        QStringLiteral("^trace \\[Info\\] \\[FactoryDebug\\] \\[ (\\S+) : \\d+ \\]  "));
    static const QRegularExpression duration(QStringLiteral("^(gate .*) <[0-9.]+>$"));
    return line.remove(time)
        .replace(traceHead, QStringLiteral("trace \\1: "))
        .replace(duration, QStringLiteral("\\1"));
}

/// What devices on other threads say at a time of their own, how often a wait for them ends, and
/// how long that took.
bool isOfAnotherThread(const QString &line)
{
    static const QRegularExpression other(QStringLiteral(
        "^(receiver |stall |threads end|gate select|dab (tells|update (ok|failed))|# "
        "|trace gpscomage.cpp: threadPoolCallback check software exit)"));
    return other.match(line).hasMatch();
}

/// The waits of the upgrade for a text of the receiver's that is not there in whole: one for each
/// piece of it, and how many pieces there are is up to the host. Waits for a single byte are as
/// many as the bytes.
class TextWaits
{
public:
    /// Whether the line is one more of the wait before it.
    bool goOn(const QString &line)
    {
        const bool isWait = m_isBehindSelect && line == QLatin1String("gate usleep(50000) = 0");
        if (line.startsWith(QLatin1String("gate "))) {
            m_isBehindSelect = line.startsWith(QLatin1String("gate select"));
        }
        if (m_isBehindSelect || isOfAnotherThread(line)) {
            return false;
        }
        const bool isMore = isWait && m_isWaiting;
        m_isWaiting = isWait;
        return isMore;
    }

private:
    bool m_isBehindSelect = false;
    bool m_isWaiting = false;
};

/// What lists say and ask while they are painted.
bool isOfPainting(const QString &line, bool isBehindPainting)
{
    static const QRegularExpression painting(QStringLiteral(
        "^trace "
        "(usbtestmodel|usbtestdelegate|vendordatamodel|vendordatadelegate|lvscrollbar)\\.cpp"));
    return painting.match(line).hasMatch()
        || (isBehindPainting && line.startsWith(QLatin1String("asked Data")));
}

/// With a mark in front: "#12", or "#?".
QString causeOf(const QString &line)
{
    return line.section(QLatin1Char(' '), 1, 1);
}

} // namespace

QStringList plainJournal(const QString &text)
{
    const QString unknown = QStringLiteral("#?");
    QSet<QString> looks = {unknown};
    TextWaits waits;
    QStringList lines;
    bool isPainting = false;
    bool hasWorker = false; // which runs beside the rest of the touch that has started it
    const QStringList all = text.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    for (const QString &one : all) {
        const QString line = plain(one);
        isPainting = isOfPainting(line, isPainting);
        hasWorker = line.startsWith(QLatin1String("threads start"))
            || (hasWorker && !line.startsWith(QLatin1String("touch press")));
        const bool isLeftOut = hasWorker && line == QLatin1String("touch handled");
        if (line.startsWith(QLatin1String("console "))) {
            looks.insert(causeOf(one));
        }
        // Qt asks for the number of rows again and again.
        const bool isAgain = isPainting && lines.value(lines.size() - 1) == line;
        const bool isPainted = isAgain || (isPainting && looks.contains(causeOf(one)));
        const bool isMore = waits.goOn(line);
        if (!isPainted && !isLeftOut && !isMore && !isOfAnotherThread(line)) {
            const bool isUnknown = causeOf(one) == unknown;
            lines.append(isUnknown ? QStringLiteral("from something unknown: ") + line : line);
        }
    }
    return lines;
}
