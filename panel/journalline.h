#pragma once

#include <QMetaType>
#include <QString>
#include <QVector>

#include <optional>

namespace panel
{

/// A line of the unit's journal.
struct JournalLine
{
    qint64 number;  ///< Counted from 0 since the unit's start.
    double seconds; ///< Of the unit, since its start.
    QString source;
    QString text;
    qint64 cause; ///< Number of what it follows from; 0 where nobody knows.
    QString causeText;

    /// From the object that the console tells of a line; none for anything else.
    static std::optional<JournalLine> read(const QString &json);
};

using JournalLines = QVector<JournalLine>;

} // namespace panel
