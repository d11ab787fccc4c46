#pragma once

#include "slottable.h"
#include "stickfile.h"

#include <QList>
#include <QMutex>
#include <QObject>
#include <QStringList>

namespace hardware
{

class Journal;
class UnitFolder;

/// The unit's storage sockets. A stick is a folder: plugging makes it appear at the slot's mount
/// root, pulling makes it vanish from there with its content kept. What is plugged in, and in
/// which order, survives a restart. All functions may be called from any thread; signals come from
/// the thread that plugs or pulls.
class Storage : public QObject
{
    Q_OBJECT

public:
    Storage(const UnitFolder &folder, Journal &journal);

    /// Reads "slots.ini" and mounts what was plugged in before, without a signal. False with a
    /// sentence in \a error that names the file and what is wrong with it. Journal, for each stick
    /// of before: storage remembered <name> <mount root>, or, when it cannot be mounted any more,
    /// storage forgotten <name>: <sentence>.
    bool open(QString *error);

    QList<StorageSlot> slotTable() const;

    /// Plugs a stick into the named slot: \a folder is a host folder, or empty for the slot's own
    /// stick ("sticks/<name>", made when missing). False with a sentence in \a error for an unknown
    /// or occupied slot, a missing folder, or a mount root that something else is in the way of.
    /// Journal: storage plug <name> <mount root>.
    bool plug(const QString &name, const QString &folder, QString *error);

    /// Pulls the stick. False with a sentence in \a error for an unknown or empty slot.
    /// Journal: storage pull <name> <mount root>.
    bool pull(const QString &name, QString *error);

    /// Mount roots of the plugged sticks in the order in which they were plugged.
    QStringList mountRoots() const;
    QStringList mountRoots(int mediaType) const;

    /// Controller behind, and media type of, a mount root of the table; -1 for any other path.
    int controllerId(const QString &mountRoot) const;
    int mediaType(const QString &mountRoot) const;

    /// From now on the stick in the named slot takes no more bytes, or does again: a full stick
    /// still takes folders and empty files from the unit's shell. Lasts, also over a restart, until
    /// it is taken back. False with a sentence in \a error for an unknown slot.
    /// Journal: storage full <name>, storage free <name>.
    bool setFull(const QString &name, bool full, QString *error);
    /// False for an unknown slot, too.
    bool isFull(const QString &name) const;

signals:
    void mounted(const QString &mountRoot);
    void removed(const QString &mountRoot);

private:
    bool remount(const Stick &stick, QString *error);
    bool mount(const Stick &stick, QString *error) const;
    void unmount(const Stick &stick) const;
    QString fullMark(const StorageSlot &slot) const;
    int stickIn(const QString &slot) const;
    const StorageSlot *slotAt(const QString &mountRoot) const;

    const UnitFolder &m_folder;
    Journal &m_journal;
    const StickFile m_file;
    mutable QMutex m_mutex;
    SlotTable m_slots;
    QList<Stick> m_sticks;
};

} // namespace hardware
