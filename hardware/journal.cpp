#include "journal.h"

#include <QDeadlineTimer>
#include <QMutexLocker>

namespace hardware
{

namespace
{

constexpr int linesInMemory = 20000;

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

} // namespace

JournalPattern::JournalPattern(const QString &text)
    : m_text(text)
    , m_isExpression(text.size() >= 2 && text.startsWith(QLatin1Char('/'))
                     && text.endsWith(QLatin1Char('/')))
{
    if (m_isExpression) {
        m_expression.setPattern(text.mid(1, text.size() - 2));
    }
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

Journal::Journal()
{
    m_clock.start();
}

Journal::~Journal() = default;

bool Journal::appendTo(const QString &file)
{
    const QMutexLocker locker(&m_mutex);
    m_file.close();
    m_file.setFileName(file);
    return m_file.open(QIODevice::WriteOnly | QIODevice::Append);
}

void Journal::write(const QString &source, const QString &text)
{
    const QString line = onOneLine(source + QLatin1Char(' ') + text);

    const QMutexLocker locker(&m_mutex);
    m_lines.append(line);
    if (m_lines.size() > linesInMemory) {
        m_lines.removeFirst();
        ++m_forgotten;
    }
    if (m_file.isOpen()) {
        const double seconds = m_clock.elapsed() / 1000.0;
        m_file.write(QStringLiteral("%1 %2\n").arg(seconds, 0, 'f', 3).arg(line).toUtf8());
        m_file.flush();
    }
    m_written.wakeAll();
}

qint64 Journal::end() const
{
    const QMutexLocker locker(&m_mutex);
    return m_forgotten + m_lines.size();
}

QStringList Journal::lines(const QString &pattern, qint64 from) const
{
    const JournalPattern wanted(pattern);
    const QMutexLocker locker(&m_mutex);
    QStringList found;
    for (qint64 i = qMax<qint64>(0, from - m_forgotten); i < m_lines.size(); ++i) {
        const QString &line = m_lines.at(int(i));
        if (wanted.matches(line)) {
            found.append(line);
        }
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
        from = qMax(from, m_forgotten + m_lines.size());
        if (!m_written.wait(&m_mutex, deadline)) {
            return findLocked(pattern, from);
        }
        found = findLocked(pattern, from);
    }
    return found;
}

qint64 Journal::findLocked(const JournalPattern &pattern, qint64 from) const
{
    for (qint64 i = qMax<qint64>(0, from - m_forgotten); i < m_lines.size(); ++i) {
        if (pattern.matches(m_lines.at(int(i)))) {
            return m_forgotten + i;
        }
    }
    return -1;
}

} // namespace hardware
