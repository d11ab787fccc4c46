#pragma once

#include <QString>
#include <QStringList>

namespace hardware
{

class UnitFolder;

/// What lies on the unit's disks since the last "sync" and would be lost with the power: the unit's
/// own "cp", "mkdir" and "rm" keep what was there before each change. Changes by other ways are not
/// known. Any thread, but not while a command runs.
class Unsynced
{
public:
    explicit Unsynced(const UnitFolder &folder);

    /// Has everything be as it was at the last "sync". The paths of the unit that were changed, the
    /// last one first.
    QStringList lose() const;

    /// All is safe.
    void forget() const;

    /// What is there is safe, or gone with its stick.
    void forget(const QString &mountRoot) const;

private:
    QStringList records() const;

    const UnitFolder &m_folder;
};

} // namespace hardware
