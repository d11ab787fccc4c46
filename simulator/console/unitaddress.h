#pragma once

#include <QString>

namespace simulator
{

/// The unit's folder where none is named: "factorydebug/unit" below the user's folder for data,
/// which is $XDG_DATA_HOME or ~/.local/share.
QString defaultUnitFolder();

/// Host path of the local socket on which the unit of that folder answers: the same however the
/// folder, which must exist, is written; empty when it does not exist. All such sockets of a user
/// lie in one folder, below the one for temporary files.
QString consoleSocketName(const QString &unitFolder);

/// Makes the folder of a socket when it is missing. False with a sentence in \a error when that
/// cannot be done, or it is not the user's alone.
bool makeSocketFolder(const QString &socket, QString *error);

/// Whether the folder of a socket is the user's own and closed to everybody else, so that nobody
/// else can have put the socket there. False with a sentence in \a error.
bool hasOwnFolder(const QString &socket, QString *error);

} // namespace simulator
