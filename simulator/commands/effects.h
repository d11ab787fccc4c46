#pragma once

#include "hardware/unit/journal.h"

#include <QStringList>

namespace simulator
{

/// What followed from a touch, as the journal has it and the screen shows it.
class Effects
{
public:
    /// \a before and \a after are the texts on the screen, from top to bottom.
    Effects(const QList<hardware::Journal::Line> &lines, const QStringList &before,
            const QStringList &after);

    /// One line each, its kind in front, in the order in which they came, and what has appeared
    /// and gone on the screen at the end: "register  9C004A90 testMode0 00000000 -> 00000001".
    /// Without what differs from run to run: times, what a read finds, how often a wait ends.
    QStringList lines() const;

private:
    QStringList m_lines;
};

/// What a line of the journal tells of effects; empty when that is nothing.
QString effect(const QString &line);

} // namespace simulator
