#pragma once

#include <QString>

namespace hardware
{
class JournalReader;
}

namespace simulator
{

/// Where one user of the console stands: in the journal, and in the host's folders. Used by one
/// thread at a time; several sessions may share a reader.
class ConsoleSession
{
public:
    explicit ConsoleSession(hardware::JournalReader &reader);

    /// Where the session goes on reading the journal.
    hardware::JournalReader &reader() const;

    /// The folder from which relative file names count; the program's own at first.
    void setDirectory(const QString &directory);

    /// Absolute form of a file's or folder's name.
    QString path(const QString &name) const;

private:
    hardware::JournalReader &m_reader;
    QString m_directory;
};

} // namespace simulator
