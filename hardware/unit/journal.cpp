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

bool isQuietSource(const QString &source)
{
    return source == QLatin1String("touch") || source == QLatin1String("asked")
        || source == QLatin1String("gate");
}

QString timed(double seconds, const QString &line)
{
    return QStringLiteral("%1 %2").arg(seconds, 0, 'f', 3).arg(line);
}

} // namespace

JournalPattern::JournalPattern(const QString &text)
    : m_text(text)
    , m_isExpression(text.size() >= 2 && text.startsWith(QLatin1Char('/'))
                     && text.endsWith(QLatin1Char('/')))
{
    if (m_isExpression) {
        m_expression.setPattern(text.mid(1, text.size() - 2));
    }
    static const QRegularExpression firstWord(QStringLiteral("^/?\\^?(\\w+) "));
    m_hearsQuietSources = isQuietSource(firstWord.match(text).captured(1));
}

bool JournalPattern::isValid() const
{
    return m_expression.isValid();
}

QString JournalPattern::error() const
{
    return isValid() ? QString()
                     : QStringLiteral("%1 is no regular expression: %2 at character %3.")
                           .arg(m_text, m_expression.errorString())
                           .arg(m_expression.patternErrorOffset());
}

bool JournalPattern::matches(const QString &line) const
{
    if (m_isExpression) {
        return m_expression.isValid() && m_expression.match(line).hasMatch();
    }
    return line.contains(m_text);
}

bool JournalPattern::hearsQuietSources() const
{
    return m_hearsQuietSources;
}

Journal::Journal(const Clock &clock)
    : m_clock(clock)
{
    m_started.start();
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
    return m_file.write(line) == line.size() && m_file.flush();
}

void Journal::write(const QString &source, const QString &text)
{
    const QString line = onOneLine(source + QLatin1Char(' ') + text);

    QMutexLocker locker(&m_mutex);
    if (append(line, isQuietSource(source))) {
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
    append(onOneLine(QStringLiteral("unit cannot write %1: %2").arg(file, reason)), false);
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
    const QList<Line> chosen = choose(pattern, from, detail);
    QStringList found;
    for (const Line &line : chosen) {
        found.append(line.text);
    }
    return found;
}

QStringList Journal::timedLines(const QString &pattern, qint64 from, Detail detail) const
{
    const QList<Line> chosen = choose(pattern, from, detail);
    QStringList found;
    for (const Line &line : chosen) {
        found.append(timed(line.seconds, line.text));
    }
    return found;
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

/// False when the line did not reach the file.
bool Journal::append(const QString &text, bool isQuiet)
{
    const double seconds = m_clock.unitMs(m_started.elapsed()) / 1000.0;
    m_lines.push_back({seconds, text, isQuiet});
    forget();
    m_written.wakeAll();
    if (!m_file.isOpen()) {
        return true;
    }
    const QByteArray line = timed(seconds, text).toUtf8() + '\n';
    // A disk that has room for a part of it does not say why; the second attempt does.
    return m_file.write(line) == line.size() && (m_file.flush() || m_file.flush());
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

QList<Journal::Line> Journal::choose(const QString &pattern, qint64 from, Detail detail) const
{
    const JournalPattern wanted(pattern);
    const bool withQuiet = detail == Everything || wanted.hearsQuietSources();
    const QMutexLocker locker(&m_mutex);
    QList<Line> found;
    const qint64 first = qBound<qint64>(0, from - m_forgotten, qint64(m_lines.size()));
    std::copy_if(m_lines.cbegin() + first, m_lines.cend(), std::back_inserter(found),
                 [&wanted, withQuiet](const Line &line) {
                     return (withQuiet || !line.isQuiet) && wanted.matches(line.text);
                 });
    return found;
}

qint64 Journal::findLocked(const JournalPattern &pattern, qint64 from) const
{
    const qint64 first = qBound<qint64>(0, from - m_forgotten, qint64(m_lines.size()));
    const bool withQuiet = pattern.hearsQuietSources();
    const auto found = std::find_if(
        m_lines.cbegin() + first, m_lines.cend(), [&pattern, withQuiet](const Line &line) {
            return (withQuiet || !line.isQuiet) && pattern.matches(line.text);
        });
    return found == m_lines.cend() ? -1 : m_forgotten + (found - m_lines.cbegin());
}

} // namespace hardware
