#pragma once

#include <QString>

namespace simulator
{

class Simulator;

/// What a bug report needs, in one file: the unit's folder as it is (journal, tables, stored
/// state), the session that is being recorded, the screen's picture, and versions.
namespace bugreport
{

/// Makes the file, which must not exist. Any thread, also while the graphical thread is blocked.
/// False with a sentence in \a error.
bool write(Simulator &simulator, const QString &file, QString *error);

} // namespace bugreport

} // namespace simulator
