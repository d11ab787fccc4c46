#pragma once

#include "hardware/unit/statefile.h"

#include <QMutex>
#include <QObject>
#include <QStringList>

#include <functional>
#include <optional>

namespace hardware
{

class Journal;

/// The unit's day or night mode. While detection is automatic, a reading of the light sensor above
/// the day threshold makes it day, one below the night threshold makes it night, and one between
/// changes nothing. Thresholds and switch are kept in "daynight.ini"; the mode starts as day.
/// Thread-safe.
class DayNight : public QObject
{
    Q_OBJECT

public:
    enum Mode { Day, Night };

    explicit DayNight(Journal &journal);
    Q_DISABLE_COPY(DayNight)

    /// False with a sentence in \a error that names the file, the line, the value and what is
    /// allowed, or as soon as \a prepare is, which comes first and shuts other threads out.
    bool open(
        const QString &file, QString *error,
        const std::function<bool()> &prepare = [] { return true; });

    int threshold(Mode mode) const;
    /// Any number is taken. Journal: als <day|night> threshold <value>.
    void setThreshold(Mode mode, int value);

    bool isAutomatic() const;
    /// Journal: als automatic <0|1>.
    void setAutomatic(bool automatic);

    /// The light sensor's newest reading.
    void takeReading(int value);

    /// Journal of a change: unit mode <day|night>.
    Mode mode() const;

    /// One line for each thing that there is to know, for people.
    QStringList description() const;

signals:
    /// Sent on the thread of the reading or of whoever changed a threshold or the switch.
    void modeChanged();

private:
    bool read(const TableRow &row);
    bool detect();

    Journal &m_journal;
    mutable QMutex m_mutex;
    StateFile m_state;
    int m_thresholds[2] = {0, 0};
    bool m_automatic = false;
    std::optional<int> m_reading;
    Mode m_mode = Day;
};

} // namespace hardware
