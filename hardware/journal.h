#pragma once

#include <QElapsedTimer>
#include <QFile>
#include <QMutex>
#include <QRegularExpression>
#include <QStringList>
#include <QWaitCondition>

namespace hardware
{

/// What a reader of the journal looks for: plain text found anywhere in a line, or, written
/// between slashes ("/^mcu .* FF$/"), a regular expression.
class JournalPattern
{
public:
    explicit JournalPattern(const QString &text);

    /// False when the regular expression does not compile; error() then says why.
    bool isValid() const;
    QString error() const;
    bool matches(const QString &line) const;

private:
    QString m_text;
    QRegularExpression m_expression;
    bool m_isExpression = false;
};

/// Everything that the simulated unit was told or did, one line each, in order. A line reads
/// "<seconds with three decimals> <source> <text>", for example "12.345 shell sync"; line breaks
/// and other control characters in the text are written as C escapes. All functions may be called
/// from any thread.
class Journal
{
public:
    Journal();
    ~Journal();
    Q_DISABLE_COPY(Journal)

    /// Appends from now on to this file too; false when it cannot be opened.
    bool appendTo(const QString &file);

    void write(const QString &source, const QString &text);

    /// Number of lines written so far; the next line gets this number. Lines are counted from 0.
    qint64 end() const;

    /// Lines from number \a from on that match, without their time. The oldest lines are forgotten
    /// once 20 000 are held in memory; the file keeps them all.
    QStringList lines(const QString &pattern = QString(), qint64 from = 0) const;

    /// Number of the first line from \a from on that matches; -1 when none does.
    qint64 find(const JournalPattern &pattern, qint64 from = 0) const;

    /// As find(), but waits up to \a hostMs milliseconds for such a line to be written.
    qint64 waitFor(const JournalPattern &pattern, qint64 from, int hostMs) const;

private:
    qint64 findLocked(const JournalPattern &pattern, qint64 from) const;

    mutable QMutex m_mutex;
    mutable QWaitCondition m_written;
    QElapsedTimer m_clock;
    QStringList m_lines;
    qint64 m_forgotten = 0;
    QFile m_file;
};

} // namespace hardware
