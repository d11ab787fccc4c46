#include "unitfolder.h"

#include "wholefile.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <csignal>

namespace hardware
{

namespace
{

const QLatin1String unitFiles(":/unit");
const QLatin1String commandFolder("/bin/");

constexpr QFileDevice::Permissions executable =
    QFileDevice::ExeOwner | QFileDevice::ExeGroup | QFileDevice::ExeOther;

const QLatin1String folders[] = {
    QLatin1String("/bin"),
    QLatin1String("/dev"),
    QLatin1String("/media/flash/nvm"),
    QLatin1String("/media/flash/userdata"),
    QLatin1String("/proc/sys/kernel"),
    QLatin1String("/run"),
    QLatin1String("/sticks"),
    QLatin1String("/sys/devices/platform"),
    QLatin1String("/sys/module"),
};

/// Where state is written, beside the folders of the files that a new unit has.
const char *const written[] = {"/dev", "/full", "/receiver", "/slow", "/write-protected"};

/// Whether a lock lacks its end, and whoever began to write it is no more: QLockFile would take it
/// for that of another machine.
bool isHalfWritten(const QString &lock)
{
    QFile file(lock);
    const QByteArray text = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("\n");
    const int process = text.left(text.indexOf('\n')).toInt();
    return !text.endsWith('\n') && (process <= 0 || (kill(process, 0) != 0 && errno == ESRCH));
}

QString absolute(const QString &root)
{
    return root.isEmpty() ? QString() : QDir::cleanPath(QDir(root).absolutePath());
}

} // namespace

UnitFolder::UnitFolder(const QString &root)
    : m_root(absolute(root))
{
}

bool UnitFolder::open(QString *error)
{
    if (!isUsable(error) || !lock(error)) {
        return false;
    }
    tidyUp();
    return layOut(error);
}

bool UnitFolder::renew(const QString &unitPath, QString *error) const
{
    QFile file(path(unitPath));
    if (file.exists() && !file.remove()) {
        *error = QStringLiteral("\"%1\" cannot be removed.").arg(file.fileName());
        return false;
    }
    return !QFile::exists(unitFiles + unitPath) || provide(unitPath, error);
}

QStringList UnitFolder::leftovers() const
{
    return m_leftovers;
}

QString UnitFolder::root() const
{
    return m_root;
}

QString UnitFolder::path(const QString &unitPath) const
{
    return unitPath.startsWith(QLatin1Char('/')) ? m_root + unitPath
                                                 : m_root + QLatin1Char('/') + unitPath;
}

QString UnitFolder::lockFile() const
{
    return path(QStringLiteral("/lock"));
}

bool UnitFolder::isUsable(QString *error) const
{
    if (m_root.isEmpty()) {
        *error = QStringLiteral("No folder is named for the unit.");
        return false;
    }
    if (m_root.contains(QLatin1Char(':'))) {
        *error = QStringLiteral("The unit's folder \"%1\" holds a colon, which separates the "
                                "folders of a command search path.")
                     .arg(m_root);
        return false;
    }
    const QFileInfo info(m_root);
    if (info.exists() && !info.isDir()) {
        *error = QStringLiteral("The unit's folder \"%1\" is a file, not a folder.").arg(m_root);
        return false;
    }
    if (!QDir().mkpath(m_root)) {
        *error = QStringLiteral("The unit's folder \"%1\" cannot be made.").arg(m_root);
        return false;
    }
    if (QDir(m_root).canonicalPath() == QLatin1String("/")) {
        *error = QStringLiteral("The unit's folder \"%1\" is the host's root, whose devices and "
                                "media are real.")
                     .arg(m_root);
        return false;
    }
    return true;
}

bool UnitFolder::lock(QString *error)
{
    m_lock.reset(new QLockFile(lockFile()));
    m_lock->setStaleLockTime(0);
    if (m_lock->tryLock()
        || (isHalfWritten(lockFile()) && QFile::remove(lockFile()) && m_lock->tryLock())) {
        return true;
    }
    if (m_lock->error() != QLockFile::LockFailedError) {
        *error = QStringLiteral("The unit's folder \"%1\" is not writable.").arg(m_root);
        return false;
    }
    qint64 processId = 0;
    QString host;
    QString program;
    m_lock->getLockInfo(&processId, &host, &program);
    *error = QStringLiteral("The unit's folder \"%1\" is in use by %2, process %3 on %4.")
                 .arg(m_root, program)
                 .arg(processId)
                 .arg(host);
    return false;
}

void UnitFolder::tidyUp()
{
    m_leftovers.clear();
    QStringList places{QString()};
    for (const char *folder : written) {
        places.append(QString::fromLatin1(folder));
    }
    QDirIterator resources(unitFiles, QDir::Dirs | QDir::NoDotAndDotDot,
                           QDirIterator::Subdirectories);
    while (resources.hasNext()) {
        places.append(resources.next().mid(unitFiles.size()));
    }
    for (const QString &folder : qAsConst(places)) {
        const QStringList names = wholefile::removeParts(path(folder));
        for (const QString &name : names) {
            m_leftovers.append(folder + QLatin1Char('/') + name);
        }
    }
    const QString processes = QStringLiteral("/run/");
    const QStringList names = QDir(path(processes)).entryList(QDir::Files);
    for (const QString &name : names) {
        if (QFile::remove(path(processes) + name)) {
            m_leftovers.append(processes + name);
        }
    }
}

bool UnitFolder::layOut(QString *error) const
{
    for (const QLatin1String &folder : folders) {
        if (!makeFolder(folder, error)) {
            return false;
        }
    }
    QDirIterator files(unitFiles, QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        if (!provide(files.next().mid(unitFiles.size()), error)) {
            return false;
        }
    }
    return true;
}

bool UnitFolder::makeFolder(const QString &unitPath, QString *error) const
{
    if (QDir().mkpath(path(unitPath))) {
        return true;
    }
    *error = QStringLiteral("The folder \"%1\" of the unit cannot be made.").arg(path(unitPath));
    return false;
}

bool UnitFolder::provide(const QString &unitPath, QString *error) const
{
    const QString file = path(unitPath);
    if (QFile::exists(file)) {
        return true;
    }
    if (!makeFolder(unitPath.left(unitPath.lastIndexOf(QLatin1Char('/'))), error)) {
        return false;
    }
    QFile resource(unitFiles + unitPath);
    resource.open(QIODevice::ReadOnly);
    const bool isCommand = unitPath.startsWith(commandFolder);
    QString reason;
    if (wholefile::make(file, resource.readAll(), &reason,
                        isCommand ? executable : QFileDevice::Permissions())) {
        return true;
    }
    *error = QStringLiteral("The file \"%1\" of the unit cannot be written: %2.").arg(file, reason);
    return false;
}

} // namespace hardware
