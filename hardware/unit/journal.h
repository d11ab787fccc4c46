#pragma once

#include "cause.h"
#include "clock.h"
#include "journalpattern.h"

#include <QFile>
#include <QMutex>
#include <QSet>
#include <QStringList>
#include <QWaitCondition>

#include <deque>

namespace hardware
{

class JournalReader;

/// Everything that the simulated unit was told or did, one line each, in order. A line reads
/// "<seconds with three decimals> <source> <text>", for example "12.345 shell sync", in the unit's
/// time; line breaks and other control characters in the text are written as C escapes. All
/// functions may be called from any thread.
///
/// The sources "touch", "console" (its commands, where a line follows from one), "asked" (calls of
/// the stand-ins that tell the unit nothing), "gate" (the C library's calls) and "stall" are quiet:
/// readers see their lines only where they want all, or where their pattern begins with that
/// source.
///
/// Each line knows what it follows from: Cause::current() of the thread that writes it. In the file
/// its number stands behind the time, "12.345 #3 shell sync", or "#?" where nobody knows. The first
/// line with a number is the cause itself.
class Journal
{
public:
    enum Detail { WithoutQuietSources, Everything };

    struct Line
    {
        qint64 number;
        double seconds; ///< Of the unit.
        QString text;
        bool isQuiet;
        qint64 cause; ///< Its number, from 1 on; 0 for one that is not known.
        QString causeText;
    };

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

    /// The same, with all that is known of them.
    QList<Line> entries(const QString &pattern = QString(), qint64 from = 0,
                        Detail detail = WithoutQuietSources) const;

    /// Those in memory that follow from the cause with that number, quiet ones too.
    QList<Line> following(qint64 cause) const;

    /// A line with its time in front.
    static QString withTime(const Line &line);

    /// A line as the file has it.
    static QString withCause(const Line &line);

    /// Number of a cause; 0 for one that no line follows from yet.
    qint64 number(const Cause &cause) const;

    /// Number of the first line from \a from on that matches; -1 when none does.
    qint64 find(const JournalPattern &pattern, qint64 from = 0) const;

    /// As find(), but waits up to \a hostMs milliseconds for such a line to be written.
    qint64 waitFor(const JournalPattern &pattern, qint64 from, int hostMs) const;

private:
    friend class JournalReader;

    /// As a line is kept; its number is its place.
    struct Kept
    {
        double seconds;
        QString text;
        bool isQuiet;
        std::shared_ptr<const Cause::Origin> origin;
    };

    bool append(const QString &text, bool isQuiet, const Cause &cause);
    bool appendLine(const QString &text, bool isQuiet, const Cause &cause);
    Line entry(std::size_t index) const;
    void forget();
    qint64 findLocked(const JournalPattern &pattern, qint64 from) const;

    mutable QMutex m_mutex;
    mutable QWaitCondition m_written;
    const Clock m_clock;
    const qint64 m_started; // by the clock
    std::deque<Kept> m_lines;
    qint64 m_causes = 0;
    qint64 m_forgotten = 0;
    QList<const JournalReader *> m_readers;
    QFile m_file;
    QSet<QString> m_failedFiles;
};

} // namespace hardware
