#include "userupdate.h"

#include "hardware/unit/journal.h"
#include "hardware/unit/unitfolder.h"

#include <algorithm>
#include <iterator>

namespace hardware
{

namespace
{

const QLatin1String updateSource("update");

constexpr int mappingMs = 1500; // Until the service has mapped the package and found its keys.
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
    , m_journal(journal)
    , m_loop(clock)
{
    m_loop.start();
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
    m_journal.write(updateSource, QStringLiteral("verify %1").arg(unitPath));
    m_loop.after(0, [this, unitPath] {
        m_waiting.enqueue(unitPath);
        if (m_package == nullptr) {
            beginNext();
        }
    });
}

void UserUpdate::cancelVerifications()
{
    m_loop.call([this] {
        m_loop.dropAll();
        m_waiting.clear();
        m_package.reset();
    });
}

QByteArray UserUpdate::data(int device, const QString &language) const
{
    m_journal.write(updateSource, QStringLiteral("data device %1 %2").arg(device).arg(language));
    const QByteArray languageBytes = language.toUtf8().left(maxLanguageBytes);
    if (m_dataRefused || !isDevice(device)) {
        return QByteArray();
    }
    return QByteArray("UPD1") + char(device) + char(languageBytes.size()) + languageBytes
        + "/ORRERY_PACK.BIN";
}

void UserUpdate::setSilent(bool silent)
{
    m_silent = silent;
}

void UserUpdate::refuseData(bool refuse)
{
    m_dataRefused = refuse;
}

bool UserUpdate::isSilent() const
{
    return m_silent;
}

bool UserUpdate::refusesData() const
{
    return m_dataRefused;
}

void UserUpdate::beginNext()
{
    if (!m_waiting.isEmpty()) {
        m_package = std::make_unique<UpdatePackage>(m_folder.path(m_waiting.dequeue()));
        m_loop.after(mappingMs, [this] { readOn(); });
    }
}

void UserUpdate::readOn()
{
    if (m_package->readOn(pieceBytes)) {
        m_loop.after(pieceMs, [this] { readOn(); });
        return;
    }
    const UpdatePackage::Result result = m_package->result();
    m_package.reset();
    if (!m_silent) {
        m_journal.write(
            updateSource,
            QStringLiteral("verified %1 %2").arg(result).arg(UpdatePackage::name(result)));
        emit verified(result);
    }
    beginNext();
}

} // namespace hardware
