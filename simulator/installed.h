#pragma once

#include <QString>

namespace simulator
{

/// Host path of a file that comes with this program, given from the folder above the program's own:
/// the build's folder is laid out like the one that it is installed into.
QString installedPath(const QString &name);

} // namespace simulator
