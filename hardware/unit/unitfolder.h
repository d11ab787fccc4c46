#pragma once

#include <QLockFile>
#include <QScopedPointer>
#include <QStringList>

namespace hardware
{

/// The folder that is the simulated unit: its media, devices, tables and state all lie below it.
class UnitFolder
{
public:
    /// \a root is taken relative to the current folder of this moment.
    explicit UnitFolder(const QString &root);
    Q_DISABLE_COPY(UnitFolder)

    /// Lays out what is missing (folders, default tables, the unit's own commands), keeps what is
    /// there, and locks the folder against a second simulator until this object's end. The lock
    /// that a dead simulator left behind is taken over. False with a sentence in \a error when
    /// that cannot be done.
    bool open(QString *error);

    /// Of a folder that is open: lays out again what has been removed since, without taking what
    /// other threads are writing for left over. False with a sentence in \a error as open().
    bool layOut(QString *error) const;

    /// The file is as in a new folder afterwards, or not there where a new one has none. False with
    /// a sentence in \a error when it cannot be removed or written.
    bool renew(const QString &unitPath, QString *error) const;

    /// What open() removed: files that a simulator which was killed had begun to write, and those
    /// of the processes that ended with it; as paths of the unit.
    QStringList leftovers() const;

    /// Absolute, without a trailing slash; empty when none was given.
    QString root() const;

    /// Host path of a path of the unit: "/media/usb0" gives "<root>/media/usb0".
    QString path(const QString &unitPath) const;

    /// Host path of the lock.
    QString lockFile() const;

private:
    bool isUsable(QString *error) const;
    bool lock(QString *error);
    void tidyUp();
    bool makeFolder(const QString &unitPath, QString *error) const;
    bool provide(const QString &unitPath, QString *error) const;

    const QString m_root;
    QScopedPointer<QLockFile> m_lock;
    QStringList m_leftovers;
};

} // namespace hardware
