#pragma once

#include "hardware/unit/cause.h"

#include <QByteArray>
#include <QHash>
#include <QMutex>
#include <QStringList>

#include <atomic>

#include <sys/types.h>

namespace hardware
{

/// The files and devices that the unit's programs hold open, as a gate tells of them. When a stick
/// is pulled, every further read of a file on it fails with EIO, as on a unit; what a program has
/// read already, be it into a buffer, it keeps. It also knows who opened a device last. Every
/// function keeps errno. Thread-safe.
class OpenFiles
{
public:
    OpenFiles() = default;
    Q_DISABLE_COPY(OpenFiles)

    /// The file \a unitPath was opened as \a descriptor; \a hostPath is where it is found.
    void opened(int descriptor, const char *unitPath, const char *hostPath);

    /// The descriptor is about to be closed.
    void closing(int descriptor);

    /// Path of the unit; empty for a descriptor of no such file.
    QByteArray path(int descriptor) const;

    /// Paths of the unit of all that is open, sorted; as often as it is open.
    QStringList paths() const;

    /// What the device with that path of the unit was last opened for: what it hears since follows
    /// from that.
    Cause opener(const QByteArray &unitPath) const;

    /// What was mounted there is gone.
    void cut(const QByteArray &mountRoot);

    /// The programs have ended: what they left open is closed.
    void programsEnded();

private:
    struct File
    {
        QByteArray path;
        dev_t device; ///< with the inode: whether the descriptor still is that file
        ino64_t inode;
        bool isRead; ///< It is a file, no device, and open for reading.
    };

    void lead(const QByteArray &mountRoot, int deadEnd);
    static bool isStill(int descriptor, const File &file);

    mutable QMutex m_mutex;
    QHash<int, File> m_files; // by descriptor
    QHash<QByteArray, Cause> m_openers;
    // So that the many calls that have nothing to do with such files take no lock.
    std::atomic<bool> m_hasFiles{false};
};

} // namespace hardware
