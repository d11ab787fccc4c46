#pragma once

#include <QString>

#include <atomic>

namespace simulator
{

/// Number of the journal's line at which a reader goes on.
using JournalPosition = std::atomic<qint64>;

/// Where one user of the console stands: in the journal, and in the host's folders. Used by one
/// thread at a time; several sessions may share a position.
class ConsoleSession
{
public:
    explicit ConsoleSession(JournalPosition &position);

    JournalPosition &position() const;

    /// The folder from which relative file names count; the program's own at first.
    void setDirectory(const QString &directory);

    /// Absolute form of a file's or folder's name.
    QString path(const QString &name) const;

private:
    JournalPosition &m_position;
    QString m_directory;
};

} // namespace simulator
