#include "userupdate.h"

#include "updatepackage.h"

#include "hardware/unit/clock.h"
#include "hardware/unit/journal.h"
#include "hardware/unit/unitfolder.h"

#include <QDeadlineTimer>
#include <QMutexLocker>
#include <QThread>

#include <algorithm>
#include <iterator>

namespace hardware
{

namespace
{

const auto source = QStringLiteral("update");

constexpr int startMs = 1500; // Until the service has mapped the package and found its keys.
constexpr int pieceBytes = 1024 * 1024;
constexpr int pieceMs = 50; // A slow stick: 20 MiB a second.

constexpr int devices[] = {0, 1, 2, 3, 5};
constexpr int maxLanguageBytes = 255;

bool isDevice(int device)
{
    return std::find(std::begin(devices), std::end(devices), device) != std::end(devices);
}

} // namespace

UserUpdate::UserUpdate(const UnitFolder &folder, const Clock &clock, Journal &journal)
    : m_folder(folder)
    , m_clock(clock)
    , m_journal(journal)
    , m_thread(QThread::create([this] { work(); }))
{
    m_thread->setObjectName(QStringLiteral("userUpdate"));
}

UserUpdate::~UserUpdate()
{
    cancelVerifications();
    {
        const QMutexLocker locker(&m_mutex);
        m_ending = true;
        m_changed.wakeAll();
    }
    m_thread->wait();
}

QString UserUpdate::customerVersion(const QString &unitPath) const
{
    return UpdatePackage(m_folder.path(unitPath)).customerVersion();
}

QString UserUpdate::sdkVersion(const QString &unitPath) const
{
    return UpdatePackage(m_folder.path(unitPath)).sdkVersion();
}

void UserUpdate::startVerification(const QString &unitPath)
{
    m_journal.write(source, QStringLiteral("verify %1").arg(unitPath));
    const QMutexLocker locker(&m_mutex);
    m_waiting.enqueue(unitPath);
    if (!m_thread->isRunning()) {
        m_thread->start();
    }
    m_changed.wakeAll();
}

void UserUpdate::cancelVerifications()
{
    const QMutexLocker locker(&m_mutex);
    m_waiting.clear();
    m_cancelled = true;
    m_changed.wakeAll();
    while (m_working) {
        m_changed.wait(&m_mutex);
    }
    m_cancelled = false;
}

QByteArray UserUpdate::data(int device, const QString &language) const
{
    m_journal.write(source, QStringLiteral("data device %1 %2").arg(device).arg(language));
    const QByteArray languageBytes = language.toUtf8().left(maxLanguageBytes);
    const QMutexLocker locker(&m_mutex);
    if (m_dataRefused || !isDevice(device)) {
        return QByteArray();
    }
    return QByteArray("UPD1") + char(device) + char(languageBytes.size()) + languageBytes
        + "/ORRERY_PACK.BIN";
}

void UserUpdate::setSilent(bool silent)
{
    const QMutexLocker locker(&m_mutex);
    m_silent = silent;
}

void UserUpdate::refuseData(bool refuse)
{
    const QMutexLocker locker(&m_mutex);
    m_dataRefused = refuse;
}

void UserUpdate::work()
{
    QMutexLocker locker(&m_mutex);
    while (!m_ending) {
        if (m_waiting.isEmpty()) {
            m_changed.wait(&m_mutex);
            continue;
        }
        const QString unitPath = m_waiting.dequeue();
        m_working = true;
        locker.unlock();
        verify(unitPath);
        locker.relock();
        m_working = false;
        m_changed.wakeAll();
    }
}

void UserUpdate::verify(const QString &unitPath)
{
    UpdatePackage package(m_folder.path(unitPath));
    bool goesOn = pause(startMs);
    while (goesOn && package.readOn(pieceBytes)) {
        goesOn = pause(pieceMs);
    }
    QMutexLocker locker(&m_mutex);
    if (m_cancelled || m_silent) {
        return;
    }
    locker.unlock();
    m_journal.write(source,
                    QStringLiteral("verified %1 %2")
                        .arg(package.result())
                        .arg(UpdatePackage::name(package.result())));
    emit verified(package.result());
}

bool UserUpdate::pause(int unitMs)
{
    const QDeadlineTimer end(m_clock.hostMs(unitMs));
    const QMutexLocker locker(&m_mutex);
    while (!m_cancelled && m_changed.wait(&m_mutex, end)) { }
    return !m_cancelled;
}

} // namespace hardware
