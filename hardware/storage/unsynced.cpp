#include "unsynced.h"

#include "hardware/unit/gatebypass.h"
#include "hardware/unit/unitfolder.h"

#include <QDir>
#include <QFile>

#include <algorithm>
#include <filesystem>

namespace hardware
{

namespace
{

std::filesystem::path onHost(const QString &path)
{
    return QFile::encodeName(path).toStdString();
}

/// Path of the unit that a record is about; empty for one that was not finished, ahead of the
/// change.
QString pathOf(const QString &record)
{
    QFile file(record + QStringLiteral("/path"));
    return file.open(QIODevice::ReadOnly) ? QFile::decodeName(file.readAll()).chopped(1)
                                          : QString();
}

} // namespace

Unsynced::Unsynced(const UnitFolder &folder)
    : m_folder(folder)
{
}

QStringList Unsynced::lose() const
{
    const GateBypass toDisks;
    QStringList lost;
    QStringList all = records();
    std::reverse(all.begin(), all.end());
    for (const QString &record : qAsConst(all)) {
        const QString path = pathOf(record);
        const std::filesystem::path place = onHost(m_folder.path(path));
        std::error_code ignored;
        if (path.isEmpty() || !std::filesystem::exists(place.parent_path(), ignored)) {
            continue;
        }
        std::filesystem::remove_all(place, ignored);
        const std::filesystem::path before = onHost(record + QStringLiteral("/was"));
        if (std::filesystem::exists(before, ignored)) {
            std::filesystem::copy(before, place,
                                  std::filesystem::copy_options::recursive
                                      | std::filesystem::copy_options::copy_symlinks,
                                  ignored);
        }
        lost.append(path);
    }
    forget();
    return lost;
}

void Unsynced::forget() const
{
    const GateBypass toRecords;
    QDir(m_folder.path(QStringLiteral("/unsynced"))).removeRecursively();
}

void Unsynced::forget(const QString &mountRoot) const
{
    const GateBypass toRecords;
    const QStringList all = records();
    for (const QString &record : all) {
        if (pathOf(record).startsWith(mountRoot + QLatin1Char('/'))) {
            // Its number stays taken.
            QFile::remove(record + QStringLiteral("/path"));
        }
    }
}

/// In the order in which they were made.
QStringList Unsynced::records() const
{
    const QString folder = m_folder.path(QStringLiteral("/unsynced"));
    QStringList paths;
    const QStringList names = QDir(folder).entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name);
    for (const QString &name : names) {
        paths.append(folder + QLatin1Char('/') + name);
    }
    return paths;
}

} // namespace hardware
