#pragma once

#include "hardware/unit/journal.h"

#include <QStringList>

namespace simulator
{

/// What lines of the journal tell of effects, and what has appeared and gone on the screen, whose
/// texts \a before and \a after are from top to bottom. One line each, its kind in front:
/// "register  9C004A90 testMode0 00000000 -> 00000001". Without what differs from run to run:
/// times, what a read finds, how often a wait ends.
QStringList effects(const QList<hardware::Journal::Line> &lines, const QStringList &before,
                    const QStringList &after);

} // namespace simulator
