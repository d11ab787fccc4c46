#pragma once

#include "slottable.h"
#include "stickfile.h"
#include "stickmarks.h"

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

    /// From now on the stick in the named slot is like that, or with 0 is not. Lasts, also over a
    /// restart and with another stick, until it is taken back. False with a sentence in \a error
    /// for an unknown slot.
    /// Journal: storage full <name>, storage free <name>; storage write-protected <name>, storage
    /// writable <name>; storage slow <name> <bytes per second>, storage fast <name>.
    bool setTrait(const QString &name, StickTrait trait, int value, QString *error);
    /// 0 for an unknown slot, too.
    int trait(const QString &name, StickTrait trait) const;
    /// Of the plugged stick that a plain path of the unit leads to; 0 for any other path. Keeps
    /// errno.
    int traitAt(const QByteArray &unitPath, StickTrait trait) const;

signals:
    void mounted(const QString &mountRoot);
    void removed(const QString &mountRoot);

private:
    bool remount(const Stick &stick, QString *error);
    bool mount(const Stick &stick, QString *error) const;
    void unmount(const Stick &stick) const;
    int stickIn(const QString &slot) const;
    const StorageSlot *slotAt(const QString &mountRoot) const;

    const UnitFolder &m_folder;
    Journal &m_journal;
    const StickFile m_file;
    const StickMarks m_marks;
    mutable QMutex m_mutex;
    SlotTable m_slots;
    QList<Stick> m_sticks;
};

} // namespace hardware
