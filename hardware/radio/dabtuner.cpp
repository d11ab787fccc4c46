#include "dabtuner.h"

#include "hardware/unit/journal.h"
#include "hardware/unit/unitfolder.h"

#include <QFile>
#include <QMutexLocker>

namespace hardware
{

namespace
{
const int steps = 10;
const int stepMs = DabTuner::updateMs / steps;
} // namespace

const char DabTuner::firmwareFile[] = "/dab_firmware.bin";

DabTuner::DabTuner(const UnitFolder &folder, const Clock &clock, Journal &journal)
    : m_folder(folder)
    , m_journal(journal)
    , m_loop(clock)
{
    m_loop.start();
}

int DabTuner::status() const
{
    const QMutexLocker locker(&m_mutex);
    return m_status;
}

int DabTuner::progress() const
{
    const QMutexLocker locker(&m_mutex);
    return m_progress;
}

bool DabTuner::startUpdate(const QByteArray &mountRoot)
{
    const QMutexLocker locker(&m_mutex);
    const QString file = QFile::decodeName(mountRoot + firmwareFile);
    if (m_status == Updating) {
        journal(QStringLiteral("refused update %1: one is running").arg(file));
        return false;
    }
    journal(QStringLiteral("update %1").arg(file));
    m_update.reset(new Update{m_folder.path(file)});
    m_progress = 0;
    goOnLater(stepMs);
    take(Updating);
    return true;
}

void DabTuner::restart()
{
    const QMutexLocker locker(&m_mutex);
    m_update.reset();
    m_untold.clear();
    m_progress = 0;
    m_status = Idle;
    journal(QStringLiteral("restarted"));
}

void DabTuner::setStatus(int status)
{
    const QMutexLocker locker(&m_mutex);
    m_update.reset();
    take(status);
}

DabTuner::Fault DabTuner::fault(int *percent) const
{
    const QMutexLocker locker(&m_mutex);
    *percent = m_faultPercent;
    return m_fault;
}

void DabTuner::setFault(Fault fault, int percent)
{
    const QMutexLocker locker(&m_mutex);
    m_fault = fault;
    m_faultPercent = percent;
    if (m_update && m_update->isHeldUp) {
        m_update->isHeldUp = false;
        goOnLater(0);
    }
}

void DabTuner::tellNext()
{
    QMutexLocker locker(&m_mutex);
    if (m_untold.isEmpty()) {
        return;
    }
    const int status = m_untold.dequeue();
    journal(QStringLiteral("tells %1").arg(status));
    // Whoever hears of it may well ask for the status.
    locker.unlock();
    emit statusTold(status);
}

void DabTuner::goOnLater(double unitMs)
{
    m_loop.after(unitMs, [this, update = m_update] { goOn(update); });
}

/// The next step of that update, if it is still the one that runs.
void DabTuner::goOn(const std::shared_ptr<Update> &update)
{
    const QMutexLocker locker(&m_mutex);
    if (update != m_update) {
        return;
    }
    m_update->isHeldUp = m_fault == Stalls && percent() >= m_faultPercent;
    if (m_update->isHeldUp) {
        return;
    }
    carryOutStep();
    if (m_update) {
        goOnLater(stepMs);
    }
}

void DabTuner::carryOutStep()
{
    // Opened anew for each step, since the stick may have been pulled.
    QFile firmware(m_update->file);
    if (!firmware.open(QIODevice::ReadOnly)) {
        finish(UpdateFailed, QStringLiteral("failed: %1").arg(firmware.errorString()));
        return;
    }
    if (m_update->size < 0) {
        m_update->size = firmware.size();
    }
    if (firmware.size() != m_update->size || m_update->size == 0) {
        finish(UpdateFailed, QStringLiteral("failed: the firmware is empty or has changed"));
        return;
    }
    if (m_fault == WriteFails && percent() >= m_faultPercent) {
        finish(UpdateFailed, QStringLiteral("failed: write error at %1 %").arg(percent()));
        return;
    }
    firmware.seek(m_update->written);
    const QByteArray part = firmware.read((m_update->size + steps - 1) / steps);
    if (part.isEmpty()) {
        finish(UpdateFailed, QStringLiteral("failed: %1").arg(firmware.errorString()));
        return;
    }
    m_update->written += part.size();
    m_progress = percent();
    journal(QStringLiteral("progress %1").arg(m_progress));
    if (m_update->written >= m_update->size) {
        finish(UpdateSucceeded, QStringLiteral("ok, %1 bytes").arg(m_update->written));
    }
}

void DabTuner::take(int status)
{
    m_status = status;
    if (m_fault != IsMute) {
        m_untold.enqueue(status);
        m_loop.after(0, [this] { tellNext(); });
    }
}

void DabTuner::finish(int status, const QString &result)
{
    journal(QStringLiteral("update ") + result);
    m_update.reset();
    take(status);
}

int DabTuner::percent() const
{
    return m_update->size > 0 ? int(m_update->written * 100 / m_update->size) : 0;
}

void DabTuner::journal(const QString &text) const
{
    m_journal.write(QStringLiteral("dab"), text);
}

} // namespace hardware
