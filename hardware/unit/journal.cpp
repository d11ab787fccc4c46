#include "journal.h"

#include "journalreader.h"

#include <QDeadlineTimer>
#include <QMutexLocker>

#include <algorithm>
#include <cstdio>

namespace hardware
{

namespace
{

constexpr std::size_t linesInMemory = 20000;

QString escaped(QChar character)
{
    switch (character.unicode()) {
    case '\n':
        return QStringLiteral("\\n");
    case '\r':
        return QStringLiteral("\\r");
    case '\t':
        return QStringLiteral("\\t");
    }
    const int code = character.unicode();
    return code < 0x100 ? QStringLiteral("\\x%1").arg(code, 2, 16, QLatin1Char('0'))
                        : QStringLiteral("\\u%1").arg(code, 4, 16, QLatin1Char('0'));
}

bool breaksLine(QChar character)
{
    const QChar::Category category = character.category();
    return category == QChar::Other_Control || category == QChar::Separator_Line
        || category == QChar::Separator_Paragraph;
}

QString onOneLine(const QString &text)
{
    QString line;
    line.reserve(text.size());
    for (const QChar character : text) {
        if (breaksLine(character)) {
            line += escaped(character);
        } else {
            line += character;
        }
    }
    return line;
}

/// As the file of a program does that was killed, or whose disk was full.
bool endsWithinLine(const QString &fileName)
{
    QFile file(fileName);
    return file.open(QIODevice::ReadOnly) && file.size() > 0 && file.seek(file.size() - 1)
        && file.read(1) != "\n";
}

QString timed(double seconds, const QString &line)
{
    return QStringLiteral("%1 %2").arg(seconds, 0, 'f', 3).arg(line);
}

} // namespace

Journal::Journal(const Clock &clock)
    : m_clock(clock)
    , m_started(clock.elapsed())
{
}

Journal::~Journal() = default;

bool Journal::appendTo(const QString &file, const QString &head)
{
    const QMutexLocker locker(&m_mutex);
    m_file.close();
    m_file.setFileName(file);
    if (!m_file.open(QIODevice::WriteOnly | QIODevice::Append)) {
        return false;
    }
    const QByteArray line = head.isEmpty() ? QByteArray() : head.toUtf8() + '\n';
    const QByteArray mended = endsWithinLine(file) ? " ... cut off\n" + line : line;
    return m_file.write(mended) == mended.size() && m_file.flush();
}

void Journal::write(const QString &source, const QString &text)
{
    const QString line = onOneLine(source + QLatin1Char(' ') + text);

    QMutexLocker locker(&m_mutex);
    if (append(line, isQuietSource(source), Cause::current())) {
        return;
    }
    const QString file = m_file.fileName();
    const QString reason = m_file.errorString();
    locker.unlock();
    reportFailedWrite(file, reason);
}

void Journal::reportFailedWrite(const QString &file, const QString &reason)
{
    const QMutexLocker locker(&m_mutex);
    if (m_failedFiles.contains(file)) {
        return;
    }
    m_failedFiles.insert(file);
    std::fprintf(stderr, "The unit's file \"%s\" cannot be written: %s.\n", qUtf8Printable(file),
                 qUtf8Printable(reason));
    append(onOneLine(QStringLiteral("unit cannot write %1: %2").arg(file, reason)), false,
           Cause::current());
}

bool Journal::hasFailedWrites() const
{
    const QMutexLocker locker(&m_mutex);
    return !m_failedFiles.isEmpty();
}

qint64 Journal::end() const
{
    const QMutexLocker locker(&m_mutex);
    return m_forgotten + qint64(m_lines.size());
}

QStringList Journal::lines(const QString &pattern, qint64 from, Detail detail) const
{
    const QList<Line> chosen = entries(pattern, from, detail);
    QStringList found;
    for (const Line &line : chosen) {
        found.append(line.text);
    }
    return found;
}

QList<Journal::Line> Journal::entries(const QString &pattern, qint64 from, Detail detail) const
{
    const JournalPattern wanted(pattern);
    const bool withQuiet = detail == Everything || wanted.hearsQuietSources();
    const QMutexLocker locker(&m_mutex);
    QList<Line> found;
    const qint64 first = qBound<qint64>(0, from - m_forgotten, qint64(m_lines.size()));
    for (std::size_t index = std::size_t(first); index < m_lines.size(); ++index) {
        const Kept &line = m_lines[index];
        if ((withQuiet || !line.isQuiet) && wanted.matches(line.text)) {
            found.append(entry(index));
        }
    }
    return found;
}

QList<Journal::Line> Journal::following(qint64 cause) const
{
    const QMutexLocker locker(&m_mutex);
    QList<Line> found;
    for (std::size_t index = 0; index < m_lines.size(); ++index) {
        const auto &origin = m_lines[index].origin;
        if (origin != nullptr && origin->number == cause) {
            found.append(entry(index));
        }
    }
    return found;
}

QString Journal::withTime(const Line &line)
{
    return timed(line.seconds, line.text);
}

QString Journal::withCause(const Line &line)
{
    const QString cause = line.cause == 0 ? QStringLiteral("?") : QString::number(line.cause);
    return timed(line.seconds, QLatin1Char('#') + cause + QLatin1Char(' ') + line.text);
}

qint64 Journal::number(const Cause &cause) const
{
    const QMutexLocker locker(&m_mutex);
    return cause.isKnown() ? cause.m_origin->number : 0;
}

qint64 Journal::find(const JournalPattern &pattern, qint64 from) const
{
    const QMutexLocker locker(&m_mutex);
    return findLocked(pattern, from);
}

qint64 Journal::waitFor(const JournalPattern &pattern, qint64 from, int hostMs) const
{
    const QDeadlineTimer deadline(qMax(0, hostMs));
    const QMutexLocker locker(&m_mutex);
    qint64 found = findLocked(pattern, from);
    while (found < 0 && pattern.isValid()) {
        // Only lines that are not yet looked at, however long the journal has become.
        from = qMax(from, m_forgotten + qint64(m_lines.size()));
        if (!m_written.wait(&m_mutex, deadline)) {
            return findLocked(pattern, from);
        }
        found = findLocked(pattern, from);
    }
    return found;
}

/// Ahead of the first line that follows from a cause, the one that tells what it is. False when
/// something did not reach the file.
bool Journal::append(const QString &text, bool isQuiet, const Cause &cause)
{
    bool isKept = true;
    if (cause.isKnown() && cause.m_origin->number == 0) {
        cause.m_origin->number = ++m_causes;
        QString &told = cause.m_origin->line;
        if (told.isEmpty()) {
            told = text;
        } else {
            told = onOneLine(told);
            isKept = appendLine(told, isQuietSource(told.section(QLatin1Char(' '), 0, 0)), cause);
        }
    }
    return appendLine(text, isQuiet, cause) && isKept;
}

bool Journal::appendLine(const QString &text, bool isQuiet, const Cause &cause)
{
    const double seconds = double(m_clock.elapsed() - m_started) / 1e9;
    m_lines.push_back({seconds, text, isQuiet, cause.m_origin});
    forget();
    m_written.wakeAll();
    if (!m_file.isOpen()) {
        return true;
    }
    const QByteArray line = withCause(entry(m_lines.size() - 1)).toUtf8() + '\n';
    // A disk that has room for a part of it does not say why; the second attempt does.
    return m_file.write(line) == line.size() && (m_file.flush() || m_file.flush());
}

Journal::Line Journal::entry(std::size_t index) const
{
    const Kept &line = m_lines[index];
    return {m_forgotten + qint64(index),
            line.seconds,
            line.text,
            line.isQuiet,
            line.origin == nullptr ? 0 : line.origin->number,
            line.origin == nullptr ? QString() : line.origin->line};
}

void Journal::forget()
{
    if (m_lines.size() <= linesInMemory) {
        return;
    }
    qint64 count = qint64(m_lines.size() - linesInMemory);
    for (const JournalReader *reader : qAsConst(m_readers)) {
        count = qMin(count, reader->m_position - m_forgotten);
    }
    if (count > 0) {
        m_lines.erase(m_lines.begin(), m_lines.begin() + count);
        m_forgotten += count;
    }
}

qint64 Journal::findLocked(const JournalPattern &pattern, qint64 from) const
{
    const qint64 first = qBound<qint64>(0, from - m_forgotten, qint64(m_lines.size()));
    const bool withQuiet = pattern.hearsQuietSources();
    const auto found = std::find_if(
        m_lines.cbegin() + first, m_lines.cend(), [&pattern, withQuiet](const Kept &line) {
            return (withQuiet || !line.isQuiet) && pattern.matches(line.text);
        });
    return found == m_lines.cend() ? -1 : m_forgotten + (found - m_lines.cbegin());
}

} // namespace hardware
