#pragma once

#include <QList>
#include <QString>

namespace hardware
{

class Journal;

/// A stick in a slot.
struct Stick
{
    QString slot;
    QString folder;    ///< empty for the slot's own
    QString mountRoot; ///< where it is mounted, also when the table has changed since
};

/// The file "storage.ini", which remembers over a restart what is plugged in. Not thread-safe.
class StickFile
{
public:
    StickFile(const QString &fileName, Journal &journal);

    /// In the order in which they were plugged. False with a sentence in \a error when the file
    /// cannot be read or is damaged.
    bool read(QList<Stick> *sticks, QString *error) const;

    /// False with a sentence in \a error, and reported to the journal, when it cannot be written.
    bool write(const QList<Stick> &sticks, QString *error) const;

private:
    const QString m_fileName;
    Journal &m_journal;
};

} // namespace hardware
