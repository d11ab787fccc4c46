#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

namespace hardware
{

/// A call of the C library's that can be made to fail, and with what it then really can.
struct FallibleCall
{
    enum Of {
        Path, ///< or of a descriptor that was opened as one: "read /dev/ttyS3"
        Command,
        Nothing
    };

    const char *name;
    Of of;
    /// Names of errno's values; "short" for half of what was asked for; of a command also the
    /// status that it ends with, and "killed". The first is the usual one.
    QStringList failures;
};

/// All of them, by their names.
const QVector<FallibleCall> &fallibleCalls();

/// The one with that name; null for none.
const FallibleCall *fallibleCall(const QString &name);

/// The value of errno with that name, one of those of the table above; EIO for an empty one.
int errorNumber(const QString &name);

} // namespace hardware
