#include "openfiles.h"

#include "hardware/unit/gatebypass.h"
#include "hardware/unit/kepterrno.h"

#include <QFile>
#include <QMutexLocker>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>

namespace hardware
{

namespace
{

/// A descriptor whose reads fail with EIO: a terminal's master whose line has hung up. -1 when the
/// host has none.
int openDeadEnd()
{
    const int master = posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
    char name[64];
    if (master >= 0 && grantpt(master) == 0 && unlockpt(master) == 0
        && ptsname_r(master, name, sizeof name) == 0) {
        close(open(name, O_RDWR | O_NOCTTY | O_CLOEXEC));
    }
    return master;
}

} // namespace

void OpenFiles::opened(int descriptor, const char *unitPath, const char *hostPath)
{
    const KeptErrno kept;
    struct stat64 status;
    if (descriptor < 0 || fstat64(descriptor, &status) != 0) {
        return;
    }
    const bool isRead =
        S_ISREG(status.st_mode) && (fcntl(descriptor, F_GETFL) & O_ACCMODE) != O_WRONLY;
    {
        const QMutexLocker locker(&m_mutex);
        if (S_ISCHR(status.st_mode)) {
            m_openers.insert(unitPath, Cause::current());
        }
        m_files.insert(descriptor, {unitPath, status.st_dev, status.st_ino, isRead});
        m_hasFiles = true;
    }
    const GateBypass toFile;
    if (isRead && access(hostPath, F_OK) != 0) {
        // Its stick was pulled while it was being opened.
        cut(unitPath);
    }
}

void OpenFiles::closing(int descriptor)
{
    if (m_hasFiles) {
        const QMutexLocker locker(&m_mutex);
        m_files.remove(descriptor);
        m_hasFiles = !m_files.isEmpty();
    }
}

QByteArray OpenFiles::path(int descriptor) const
{
    if (!m_hasFiles) {
        return QByteArray();
    }
    const QMutexLocker locker(&m_mutex);
    return m_files.value(descriptor).path;
}

QStringList OpenFiles::paths() const
{
    const QMutexLocker locker(&m_mutex);
    QStringList paths;
    for (const File &file : m_files) {
        paths.append(QFile::decodeName(file.path));
    }
    paths.sort();
    return paths;
}

Cause OpenFiles::opener(const QByteArray &unitPath) const
{
    const QMutexLocker locker(&m_mutex);
    return m_openers.value(unitPath);
}

void OpenFiles::cut(const QByteArray &mountRoot)
{
    const KeptErrno kept;
    const GateBypass toTerminal;
    const int deadEnd = openDeadEnd();
    lead(mountRoot, deadEnd);
    if (deadEnd >= 0) {
        // The gate tells of this as well.
        close(deadEnd);
    }
}

void OpenFiles::programsEnded()
{
    const KeptErrno kept;
    QHash<int, File> left;
    {
        const QMutexLocker locker(&m_mutex);
        left.swap(m_files);
        m_hasFiles = false;
    }
    // The gate tells of each.
    for (auto file = left.cbegin(); file != left.cend(); ++file) {
        if (isStill(file.key(), *file)) {
            close(file.key());
        }
    }
}

/// Has the descriptors of files there lead to a dead end, whatever has become of the files.
void OpenFiles::lead(const QByteArray &mountRoot, int deadEnd)
{
    struct stat64 status;
    const bool isThere = fstat64(deadEnd, &status) == 0;
    const QMutexLocker locker(&m_mutex);
    for (auto file = m_files.begin(); isThere && file != m_files.end(); ++file) {
        const bool isOnIt = file->path == mountRoot || file->path.startsWith(mountRoot + '/');
        if (isOnIt && file->isRead && isStill(file.key(), *file)
            && dup3(deadEnd, file.key(), O_CLOEXEC) == file.key()) {
            *file = {file->path, status.st_dev, status.st_ino, true};
        }
    }
}

/// Whether the descriptor still is that file.
bool OpenFiles::isStill(int descriptor, const File &file)
{
    struct stat64 status;
    return fstat64(descriptor, &status) == 0 && status.st_dev == file.device
        && status.st_ino == file.inode;
}

} // namespace hardware
