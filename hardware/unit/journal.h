#pragma once

#include "clock.h"

#include <QElapsedTimer>
#include <QFile>
#include <QMutex>
#include <QRegularExpression>
#include <QSet>
#include <QStringList>
#include <QWaitCondition>

#include <deque>

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

    /// Whether it begins with one of the journal's quiet sources ("gate open", "/^asked .*/"), and
    /// so looks at their lines too.
    bool hearsQuietSources() const;

private:
    QString m_text;
    QRegularExpression m_expression;
    bool m_isExpression = false;
    bool m_hearsQuietSources = false;
};

class JournalReader;

/// Everything that the simulated unit was told or did, one line each, in order. A line reads
/// "<seconds with three decimals> <source> <text>", for example "12.345 shell sync", in the unit's
/// time; line breaks and other control characters in the text are written as C escapes. All
/// functions may be called from any thread.
///
/// The sources "touch", "asked" (calls of the stand-ins that tell the unit nothing) and "gate" (the
/// C library's calls) are quiet: readers see their lines only where they want all, or where their
/// pattern begins with that source.
class Journal
{
public:
    enum Detail { WithoutQuietSources, Everything };

    explicit Journal(const Clock &clock = Clock());
    ~Journal();
    Q_DISABLE_COPY(Journal)

    /// Appends from now on to this file too, beginning with a line \a head that is no line of the
    /// journal; without a head there is none. False when that cannot be done.
    bool appendTo(const QString &file, const QString &head = QString());

    void write(const QString &source, const QString &text);

    /// A file of the unit could not be written, for that \a reason. Said once for each file, on
    /// standard error. Journal: unit cannot write <file>: <reason>.
    void reportFailedWrite(const QString &file, const QString &reason);

    /// Whether that was ever reported, be it for the journal's own file.
    bool hasFailedWrites() const;

    /// Number of lines written so far; the next line gets this number. Lines are counted from 0.
    qint64 end() const;

    /// Lines from number \a from on that match, without their time. Lines that every reader has
    /// read are forgotten, the oldest first, once 20 000 are held in memory; the file keeps all.
    QStringList lines(const QString &pattern = QString(), qint64 from = 0,
                      Detail detail = WithoutQuietSources) const;

    /// The same with their time in front, which a pattern does not see.
    QStringList timedLines(const QString &pattern = QString(), qint64 from = 0,
                           Detail detail = WithoutQuietSources) const;

    /// Number of the first line from \a from on that matches; -1 when none does.
    qint64 find(const JournalPattern &pattern, qint64 from = 0) const;

    /// As find(), but waits up to \a hostMs milliseconds for such a line to be written.
    qint64 waitFor(const JournalPattern &pattern, qint64 from, int hostMs) const;

private:
    friend class JournalReader;

    struct Line
    {
        double seconds;
        QString text;
        bool isQuiet;
    };

    bool append(const QString &text, bool isQuiet);
    void forget();
    QList<Line> choose(const QString &pattern, qint64 from, Detail detail) const;
    qint64 findLocked(const JournalPattern &pattern, qint64 from) const;

    mutable QMutex m_mutex;
    mutable QWaitCondition m_written;
    const Clock m_clock;
    QElapsedTimer m_started;
    std::deque<Line> m_lines;
    qint64 m_forgotten = 0;
    QList<const JournalReader *> m_readers;
    QFile m_file;
    QSet<QString> m_failedFiles;
};

} // namespace hardware
