#include "daynight.h"

#include "journal.h"

#include <QMutexLocker>
#include <QSettings>

namespace hardware
{

namespace
{

const char *const modeNames[] = {"day", "night"};
const auto source = QStringLiteral("als");
const auto automaticKey = QStringLiteral("daynight/automatic");

QString nameOf(DayNight::Mode mode)
{
    return QLatin1String(modeNames[mode]);
}

QString thresholdKey(DayNight::Mode mode)
{
    return QStringLiteral("daynight/") + nameOf(mode);
}

} // namespace

DayNight::DayNight(Journal &journal)
    : m_journal(journal)
{
}

bool DayNight::open(const QString &file, QString *error)
{
    const QSettings state(file, QSettings::IniFormat);
    // QSettings looks at the lines when it is first asked for a key.
    state.allKeys();
    if (state.status() != QSettings::NoError || !state.isWritable()) {
        *error = QStringLiteral("The thresholds of day and night, \"%1\", cannot be read and "
                                "written.")
                     .arg(file);
        return false;
    }
    const QMutexLocker locker(&m_mutex);
    m_file = file;
    for (const Mode mode : {Day, Night}) {
        m_thresholds[mode] = state.value(thresholdKey(mode)).toInt();
    }
    m_automatic = state.value(automaticKey).toBool();
    return true;
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
        keep(thresholdKey(mode), value);
        m_journal.write(source, QStringLiteral("%1 threshold %2").arg(nameOf(mode)).arg(value));
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
        keep(automaticKey, automatic);
        m_journal.write(source, QStringLiteral("automatic %1").arg(int(automatic)));
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

void DayNight::keep(const QString &key, const QVariant &value) const
{
    QSettings(m_file, QSettings::IniFormat).setValue(key, value);
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
