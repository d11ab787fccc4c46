#pragma once

#include <QString>

namespace simulator
{

/// The unit's folder where none is named: "factorydebug/unit" below the user's folder for data,
/// which is $XDG_DATA_HOME or ~/.local/share.
QString defaultUnitFolder();

/// Name of the local socket on which the unit of that folder answers: the same however the folder,
/// which must exist, is written; empty when it does not exist.
QString consoleSocketName(const QString &unitFolder);

} // namespace simulator
