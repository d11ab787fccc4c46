#include "unit.h"

#include <QDateTime>
#include <QDir>
#include <QFile>

#include <cmath>

namespace hardware
{

namespace
{

const QLatin1String settingsFile("/settings.ini");
const QLatin1String vendorFile("/vendor.bin");
const QLatin1String dayNightFile("/daynight.ini");

/// What tells one start in the journal's file from another.
QString journalHead(const Clock &clock)
{
    return QStringLiteral("# %1, version %2, speed %3")
        .arg(QDateTime::currentDateTime().toString(QStringLiteral("yyyy-MM-dd HH:mm:ss")),
             QStringLiteral(FACTORYDEBUG_VERSION), QString::number(clock.factor()));
}

} // namespace

Unit::Unit(const QString &root, double timeFactor)
    : m_clock(timeFactor)
    , m_journal(m_clock)
    , m_folder(root)
    , m_settings(m_journal)
    , m_storage(m_folder, m_journal)
    , m_mcu(m_journal)
    , m_memory(m_journal)
    , m_memoryDevice(m_memory, m_journal)
    , m_ncmTest(m_clock, m_folder, m_journal)
    , m_shell(m_folder, m_clock, m_journal)
    , m_usbPhy(m_memory, m_folder)
    , m_dabTuner(m_folder, m_clock, m_journal)
    , m_usbPorts(m_journal)
    , m_userUpdate(m_folder, m_clock, m_journal)
    , m_vendorData(m_journal)
    , m_versions(m_journal)
    , m_dayNight(m_journal)
    , m_keyLight(m_journal, m_mcu)
    , m_lightSensor(m_journal, m_clock, m_dayNight)
    , m_panel(m_journal, m_mcu, m_vendorData)
    , m_gpsReceiver(m_folder, m_clock, m_journal, m_versions,
                    [this] { return m_openFiles.opener("/dev/ttyS3"); })
{
    QObject::connect(
        &m_storage, &Storage::removed, &m_storage,
        [this](const QString &mountRoot) {
            m_openFiles.cut(QFile::encodeName(mountRoot));
            m_unsynced.forget(mountRoot);
        },
        Qt::DirectConnection);
    QObject::connect(
        &m_mcu, &Mcu::rebootRequested, &m_mcu, [this] { m_gpsReceiver.restart(); },
        Qt::DirectConnection);
    QObject::connect(&m_mcu, &Mcu::rebootRequested, &m_dabTuner, &DabTuner::restart,
                     Qt::DirectConnection);
}

void Unit::setTimeFactor(double factor)
{
    m_clock.setFactor(factor);
    m_journal.write(QStringLiteral("unit"), QStringLiteral("speed %1").arg(factor));
}

bool Unit::open(QString *error)
{
    const CauseScope start(Cause::begun());
    if (!std::isfinite(m_clock.factor()) || m_clock.factor() <= 0) {
        *error = QStringLiteral("The time factor %1 is not allowed; it must be greater than 0.")
                     .arg(m_clock.factor());
        return false;
    }
    if (!m_folder.open(error)) {
        return false;
    }
    const QString journalFile = m_folder.path(QStringLiteral("/journal.log"));
    if (!m_journal.appendTo(journalFile, journalHead(m_clock))) {
        *error = QStringLiteral("The journal \"%1\" cannot be written.").arg(journalFile);
        return false;
    }
    m_unsynced.forget();
    const QStringList leftovers = m_folder.leftovers();
    for (const QString &file : leftovers) {
        m_journal.write(QStringLiteral("unit"), QStringLiteral("removed ") + file);
    }
    const auto keepStored = [](const QString &) { return true; };
    const bool opened = openStored(keepStored, error) && m_storage.open(error)
        && m_memory.open(m_folder.path(QStringLiteral("/registers.ini")),
                         m_folder.path(QStringLiteral("/dev/mem")), error)
        && m_defaults.open(m_folder.path(QStringLiteral("/defaults.ini")), error)
        && m_usbPorts.open(m_folder.path(QStringLiteral("/usb.ini")), error)
        && m_versions.open(m_folder.path(QStringLiteral("/versions.ini")), error)
        && m_gpsReceiver.open(error);
    if (opened) {
        m_panel.powerOn();
    }
    return opened;
}

/// What a factory reset makes anew; each after its file has been prepared.
bool Unit::openStored(const std::function<bool(const QString &file)> &prepare, QString *error)
{
    const auto prepared = [&prepare](const QString &file) {
        return [&prepare, file] { return prepare(file); };
    };
    return m_settings.open(m_folder.path(settingsFile), error, prepared(settingsFile))
        && m_vendorData.open(m_folder.path(QStringLiteral("/vendor.ini")),
                             m_folder.path(vendorFile), error, prepared(vendorFile))
        && m_dayNight.open(m_folder.path(dayNightFile), error, prepared(dayNightFile));
}

bool Unit::resetToFactory(QString *error)
{
    m_journal.write(QStringLiteral("unit"), QStringLiteral("factory reset"));
    // The flash last: what cannot be made again once it is gone stays when anything else fails.
    const auto renew = [this, error](const QString &file) { return m_folder.renew(file, error); };
    if (!m_folder.layOut(error) || !openStored(renew, error)) {
        return false;
    }
    m_panel.powerOn();
    m_unsynced.forget(QStringLiteral("/media/flash"));
    const QString flash = m_folder.path(QStringLiteral("/media/flash"));
    if (!QDir(flash).removeRecursively()) {
        *error = QStringLiteral("What lies in \"%1\" cannot be removed.").arg(flash);
        return false;
    }
    return m_folder.layOut(error);
}

void Unit::cutPower()
{
    m_journal.write(QStringLiteral("unit"), QStringLiteral("power cut"));
    m_shell.powerOff();
    const QStringList lost = m_unsynced.lose();
    for (const QString &path : lost) {
        m_journal.write(QStringLiteral("unit"), QStringLiteral("lost ") + path);
    }
    m_mcu.reboot();
}

void Unit::programsEnded()
{
    m_shell.powerOn();
    m_memoryDevice.programsEnded();
    m_openFiles.programsEnded();
}

QStringList Unit::passingFiles() const
{
    return {m_folder.lockFile(), m_gpsReceiver.portFile()};
}

} // namespace hardware
