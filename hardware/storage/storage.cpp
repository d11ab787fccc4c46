#include "storage.h"

#include "hardware/unit/gatebypass.h"
#include "hardware/unit/journal.h"
#include "hardware/unit/kepterrno.h"
#include "hardware/unit/unitfolder.h"

#include <QDir>
#include <QFileInfo>
#include <QMutexLocker>

#include <algorithm>
#include <filesystem>

namespace hardware
{

namespace
{

std::filesystem::path hostPath(const QString &path)
{
    return QFile::encodeName(path).toStdString();
}

/// What a mount root's symbolic link holds. A slot's own stick is named from there, so that the
/// unit's folder can be moved.
QString linkTarget(const QString &slot, const QString &folder)
{
    return folder.isEmpty() ? QStringLiteral("../sticks/") + slot : folder;
}

/// What the journal says of it.
QString line(const QString &slot, StickTrait trait, int value)
{
    switch (trait) {
    case StickTrait::Full:
        return (value == 0 ? QStringLiteral("free ") : QStringLiteral("full ")) + slot;
    case StickTrait::WriteProtected:
        return (value == 0 ? QStringLiteral("writable ") : QStringLiteral("write-protected "))
            + slot;
    case StickTrait::Slow:
        break;
    }
    return value == 0 ? QStringLiteral("fast ") + slot
                      : QStringLiteral("slow %1 %2").arg(slot, QString::number(value));
}

} // namespace

Storage::Storage(const UnitFolder &folder, Journal &journal)
    : m_folder(folder)
    , m_journal(journal)
    , m_file(folder.path(QStringLiteral("/storage.ini")), journal)
    , m_marks(folder)
{
}

bool Storage::open(QString *error)
{
    const QMutexLocker locker(&m_mutex);
    QList<Stick> sticks;
    if (!m_slots.read(m_folder.path(QStringLiteral("/slots.ini")), error)
        || !m_file.read(&sticks, error)) {
        return false;
    }
    m_sticks.clear();
    std::for_each(sticks.cbegin(), sticks.cend(), [this](const Stick &stick) { unmount(stick); });
    for (const Stick &stick : qAsConst(sticks)) {
        QString reason;
        if (!remount(stick, &reason)) {
            m_journal.write(QStringLiteral("storage"),
                            QStringLiteral("forgotten %1: %2").arg(stick.slot, reason));
        }
    }
    return sticks.isEmpty() || m_file.write(m_sticks, error);
}

QList<StorageSlot> Storage::slotTable() const
{
    const QMutexLocker locker(&m_mutex);
    return m_slots.all();
}

bool Storage::plug(const QString &name, const QString &folder, QString *error)
{
    QMutexLocker locker(&m_mutex);
    const StorageSlot *slot = m_slots.find(name, error);
    if (slot == nullptr) {
        return false;
    }
    const int occupant = stickIn(name);
    if (occupant >= 0) {
        *error = QStringLiteral("There is a stick in slot \"%1\" already: \"%2\".")
                     .arg(name, linkTarget(name, m_sticks.at(occupant).folder));
        return false;
    }
    const QString mountRoot = slot->mountRoot;
    const Stick stick{
        name, folder.isEmpty() ? QString() : QDir::cleanPath(QDir().absoluteFilePath(folder)),
        mountRoot};
    if (stick.folder.isEmpty()) {
        QDir().mkpath(m_folder.path(QStringLiteral("/sticks/") + name));
    }
    // Written first: a stop between the two steps then ends with the stick mounted at the next
    // start, not with a link that nobody answers for.
    m_sticks.append(stick);
    if (!m_file.write(m_sticks, error) || !mount(stick, error)) {
        m_sticks.removeLast();
        QString ignored;
        m_file.write(m_sticks, &ignored);
        return false;
    }
    m_journal.write(QStringLiteral("storage"), QStringLiteral("plug %1 %2").arg(name, mountRoot));
    locker.unlock();
    emit mounted(mountRoot);
    return true;
}

bool Storage::pull(const QString &name, QString *error)
{
    QMutexLocker locker(&m_mutex);
    if (m_slots.find(name, error) == nullptr) {
        return false;
    }
    const int index = stickIn(name);
    if (index < 0) {
        *error = QStringLiteral("There is no stick in slot \"%1\".").arg(name);
        return false;
    }
    const Stick stick = m_sticks.takeAt(index);
    unmount(stick);
    QString reported;
    m_file.write(m_sticks, &reported);
    m_journal.write(QStringLiteral("storage"),
                    QStringLiteral("pull %1 %2").arg(name, stick.mountRoot));
    locker.unlock();
    emit removed(stick.mountRoot);
    return true;
}

QStringList Storage::mountRoots() const
{
    const QMutexLocker locker(&m_mutex);
    QStringList roots;
    for (const Stick &stick : m_sticks) {
        roots.append(stick.mountRoot);
    }
    return roots;
}

QStringList Storage::mountRoots(int mediaType) const
{
    const QMutexLocker locker(&m_mutex);
    QStringList roots;
    for (const Stick &stick : m_sticks) {
        QString ignored;
        if (m_slots.find(stick.slot, &ignored)->mediaType == mediaType) {
            roots.append(stick.mountRoot);
        }
    }
    return roots;
}

int Storage::controllerId(const QString &mountRoot) const
{
    const QMutexLocker locker(&m_mutex);
    const StorageSlot *slot = slotAt(mountRoot);
    return slot == nullptr ? -1 : slot->controllerId;
}

int Storage::mediaType(const QString &mountRoot) const
{
    const QMutexLocker locker(&m_mutex);
    const StorageSlot *slot = slotAt(mountRoot);
    return slot == nullptr ? -1 : slot->mediaType;
}

const StorageSlot *Storage::slotAt(const QString &mountRoot) const
{
    const QList<StorageSlot> &slotList = m_slots.all();
    const auto found =
        std::find_if(slotList.cbegin(), slotList.cend(),
                     [&mountRoot](const StorageSlot &slot) { return slot.mountRoot == mountRoot; });
    return found == slotList.cend() ? nullptr : &*found;
}

bool Storage::setTrait(const QString &name, StickTrait trait, int value, QString *error)
{
    const QMutexLocker locker(&m_mutex);
    const StorageSlot *slot = m_slots.find(name, error);
    if (slot == nullptr || !m_marks.set(trait, slot->mountRoot, value, error)) {
        return false;
    }
    m_journal.write(QStringLiteral("storage"), line(name, trait, value));
    return true;
}

int Storage::trait(const QString &name, StickTrait trait) const
{
    const QMutexLocker locker(&m_mutex);
    QString ignored;
    const StorageSlot *slot = m_slots.find(name, &ignored);
    return slot == nullptr ? 0 : m_marks.value(trait, slot->mountRoot);
}

int Storage::traitAt(const QByteArray &unitPath, StickTrait trait) const
{
    const KeptErrno kept;
    const QString path = QFile::decodeName(unitPath) + QLatin1Char('/');
    const QMutexLocker locker(&m_mutex);
    const auto stick = std::find_if(m_sticks.cbegin(), m_sticks.cend(), [&path](const Stick &each) {
        return path.startsWith(each.mountRoot + QLatin1Char('/'));
    });
    return stick == m_sticks.cend() ? 0 : m_marks.value(trait, stick->mountRoot);
}

bool Storage::remount(const Stick &stick, QString *error)
{
    const StorageSlot *slot = m_slots.find(stick.slot, error);
    if (slot == nullptr) {
        return false;
    }
    const Stick again{stick.slot, stick.folder, slot->mountRoot};
    if (!mount(again, error)) {
        return false;
    }
    m_sticks.append(again);
    m_journal.write(QStringLiteral("storage"),
                    QStringLiteral("remembered %1 %2").arg(again.slot, again.mountRoot));
    return true;
}

bool Storage::mount(const Stick &stick, QString *error) const
{
    const GateBypass toStick;
    const QString folder = stick.folder.isEmpty()
        ? m_folder.path(QStringLiteral("/sticks/") + stick.slot)
        : stick.folder;
    if (!QFileInfo(folder).isDir()) {
        *error = QStringLiteral("There is no folder \"%1\" to plug into slot \"%2\".")
                     .arg(folder, stick.slot);
        return false;
    }
    const QString link = m_folder.path(stick.mountRoot);
    std::error_code failure;
    if (std::filesystem::is_symlink(hostPath(link), failure)
        && std::filesystem::equivalent(hostPath(link), hostPath(folder), failure)) {
        // It leads to the stick already, be it by another name.
        std::filesystem::remove(hostPath(link), failure);
    }
    std::filesystem::create_directory_symlink(hostPath(linkTarget(stick.slot, stick.folder)),
                                              hostPath(link), failure);
    if (failure) {
        *error = QStringLiteral("\"%1\" cannot become a link to the stick in slot \"%2\": %3.")
                     .arg(link, stick.slot, QString::fromStdString(failure.message()));
        return false;
    }
    return true;
}

void Storage::unmount(const Stick &stick) const
{
    const GateBypass toLink;
    const std::filesystem::path link = hostPath(m_folder.path(stick.mountRoot));
    std::error_code failure;
    const std::filesystem::path target = std::filesystem::read_symlink(link, failure);
    if (!failure && target == hostPath(linkTarget(stick.slot, stick.folder))) {
        std::filesystem::remove(link, failure);
    }
}

int Storage::stickIn(const QString &slot) const
{
    for (int i = 0; i < m_sticks.size(); ++i) {
        if (m_sticks.at(i).slot == slot) {
            return i;
        }
    }
    return -1;
}

} // namespace hardware
