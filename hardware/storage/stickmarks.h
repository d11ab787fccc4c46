#pragma once

#include <QString>

namespace hardware
{

class UnitFolder;

/// What the stick in a slot can be like, with the value that says so; 0 says that it is not.
enum class StickTrait {
    Full,           ///< 1: it takes no more bytes, but still folders and empty files
    WriteProtected, ///< 1: nothing on it can be changed, and what is there can be read
    Slow,           ///< the bytes that it reads or writes in a second of the unit's time
};

/// How the sticks are, as files in the unit's folder, where the unit's own commands look for them:
/// "<mark>/<last name of the mount root>", which holds the value.
class StickMarks
{
public:
    explicit StickMarks(const UnitFolder &folder);

    /// False with a sentence in \a error when the file cannot be written.
    bool set(StickTrait trait, const QString &mountRoot, int value, QString *error) const;

    /// Of a file that holds no number: 1, but for a slow stick, which it does not make.
    int value(StickTrait trait, const QString &mountRoot) const;

private:
    QString file(StickTrait trait, const QString &mountRoot) const;

    const UnitFolder &m_folder;
};

} // namespace hardware
