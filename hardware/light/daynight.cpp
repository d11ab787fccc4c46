#include "daynight.h"

#include "hardware/unit/journal.h"
#include "hardware/unit/tablerow.h"

#include <QMutexLocker>

#include <limits>

namespace hardware
{

namespace
{

const char *const modeNames[] = {"day", "night"};
const QLatin1String dayNightSource("als");
const QLatin1String automaticField("automatic");
const QLatin1String yes("true");
const QLatin1String no("false");

QString nameOf(DayNight::Mode mode)
{
    return QLatin1String(modeNames[mode]);
}

} // namespace

DayNight::DayNight(Journal &journal)
    : m_journal(journal)
    , m_state(QStringLiteral("daynight"), {nameOf(Day), nameOf(Night), automaticField}, journal)
{
}

bool DayNight::open(const QString &file, QString *error, const std::function<bool()> &prepare)
{
    const QMutexLocker locker(&m_mutex);
    return prepare()
        && m_state.open(
            file, [this](const TableRow &row) { return read(row); }, error);
}

int DayNight::threshold(Mode mode) const
{
    const QMutexLocker locker(&m_mutex);
    return m_thresholds[mode];
}

void DayNight::setThreshold(Mode mode, int value)
{
    bool changed;
    {
        const QMutexLocker locker(&m_mutex);
        m_thresholds[mode] = value;
        m_state.setValue(nameOf(mode), QString::number(value));
        m_journal.write(dayNightSource,
                        QStringLiteral("%1 threshold %2").arg(nameOf(mode)).arg(value));
        changed = detect();
    }
    if (changed) {
        emit modeChanged();
    }
}

bool DayNight::isAutomatic() const
{
    const QMutexLocker locker(&m_mutex);
    return m_automatic;
}

void DayNight::setAutomatic(bool automatic)
{
    bool changed;
    {
        const QMutexLocker locker(&m_mutex);
        m_automatic = automatic;
        m_state.setValue(automaticField, automatic ? yes : no);
        m_journal.write(dayNightSource, QStringLiteral("automatic %1").arg(int(automatic)));
        changed = detect();
    }
    if (changed) {
        emit modeChanged();
    }
}

void DayNight::takeReading(int value)
{
    bool changed;
    {
        const QMutexLocker locker(&m_mutex);
        m_reading = value;
        changed = detect();
    }
    if (changed) {
        emit modeChanged();
    }
}

DayNight::Mode DayNight::mode() const
{
    const QMutexLocker locker(&m_mutex);
    return m_mode;
}

QStringList DayNight::description() const
{
    const QMutexLocker locker(&m_mutex);
    return {
        QStringLiteral("day threshold %1").arg(m_thresholds[Day]),
        QStringLiteral("night threshold %1").arg(m_thresholds[Night]),
        QStringLiteral("automatic %1").arg(int(m_automatic)),
        QStringLiteral("mode %1").arg(nameOf(m_mode)),
    };
}

bool DayNight::read(const TableRow &row)
{
    if (!row.hasFields({nameOf(Day), nameOf(Night), automaticField})) {
        return false;
    }
    for (const Mode mode : {Day, Night}) {
        if (!row.readNumber(nameOf(mode), std::numeric_limits<int>::min(),
                            std::numeric_limits<int>::max(), &m_thresholds[mode])) {
            return false;
        }
    }
    const QString automatic = row.text(automaticField);
    m_automatic = automatic == yes;
    return m_automatic || automatic == no
        || row.refuse(automaticField, QStringLiteral("allowed is true or false"));
}

/// Goes by the newest reading; true when the mode is another one now.
bool DayNight::detect()
{
    if (!m_automatic || !m_reading) {
        return false;
    }
    Mode detected = m_mode;
    if (*m_reading > m_thresholds[Day]) {
        detected = Day;
    } else if (*m_reading < m_thresholds[Night]) {
        detected = Night;
    }
    if (detected == m_mode) {
        return false;
    }
    m_mode = detected;
    m_journal.write(QStringLiteral("unit"), QStringLiteral("mode ") + nameOf(m_mode));
    return true;
}

} // namespace hardware
