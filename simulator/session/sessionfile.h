#pragma once

#include <QFile>
#include <QStringList>

namespace simulator
{

/// The file of a recorded session: commands of the console with the times between them. Each is in
/// the file as soon as it is added. Times are milliseconds of the unit since the file was opened.
/// What cannot be written is false, and error() says why; the file then ends with the last whole
/// line.
class SessionFile
{
public:
    /// Makes the file, which must not exist, with these comments at its head.
    bool open(const QString &file, const QStringList &comments);
    void close();

    bool isOpen() const;
    QString fileName() const; ///< Empty when no file has been opened.
    QString error() const;

    /// Adds a command that was given at \a ms.
    bool add(const QStringList &words, double ms);

    /// Whoever gave the last command had to wait for it until \a ms.
    void lastEndedAt(double ms);

    /// Something else is done while the last command is still being handled: if that is a touch,
    /// it is not to be waited for.
    bool lastIsNotWaitedFor();

    /// Takes back what was added since there were \a count commands, which are fewer than now.
    bool goBack(int count);
    int count() const;

private:
    struct Entry
    {
        QStringList words;
        qint64 offset;  ///< Of its first line in the file.
        double startMs; ///< When it was given.
        double endMs;   ///< When whoever gave it could go on.
    };

    bool writeLast();
    bool write(const QString &text);
    QString lastLines() const;

    QFile m_file;
    QString m_error;
    QList<Entry> m_entries;
};

} // namespace simulator
