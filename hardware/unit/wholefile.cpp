#include "wholefile.h"

#include "gatebypass.h"

#include <QDir>
#include <QFile>

#include <unistd.h>

#include <cerrno>
#include <cstdio>

namespace hardware
{

namespace wholefile
{

namespace
{

const QLatin1String partSuffix(".part");

/// Not left to the end, which does not tell when the last bytes find no room. What finds room for a
/// part of them only does not say why; the second attempt does.
bool writeOut(QFileDevice &file, const QByteArray &content)
{
    return file.write(content) == content.size() && (file.flush() || file.flush());
}

} // namespace

bool make(const QString &file, const QByteArray &content, QString *reason,
          QFileDevice::Permissions added)
{
    const GateBypass toFile;
    QFile part(file + partSuffix);
    if (part.open(QIODevice::WriteOnly) && writeOut(part, content)
        && part.setPermissions(part.permissions() | added) && part.rename(file)) {
        return true;
    }
    *reason = part.errorString();
    part.close();
    QFile::remove(part.fileName());
    return false;
}

bool replace(const QString &file, const QByteArray &content, QString *reason)
{
    const GateBypass toFile;
    QFile part(file + partSuffix);
    const bool isWritten = part.open(QIODevice::WriteOnly)
        && (!QFile::exists(file) || part.setPermissions(QFile::permissions(file)))
        && writeOut(part, content);
    // Its name is to lead to the new content only when the disk has that.
    if (isWritten && fsync(part.handle()) == 0
        && std::rename(QFile::encodeName(part.fileName()).constData(),
                       QFile::encodeName(file).constData())
            == 0) {
        return true;
    }
    *reason = isWritten ? qt_error_string(errno) : part.errorString();
    part.close();
    QFile::remove(part.fileName());
    return false;
}

QStringList removeParts(const QString &folder)
{
    const GateBypass toFiles;
    QStringList removed;
    const QStringList names =
        QDir(folder).entryList({QLatin1Char('*') + partSuffix}, QDir::Files | QDir::Hidden);
    for (const QString &name : names) {
        if (QFile::remove(folder + QLatin1Char('/') + name)) {
            removed.append(name);
        }
    }
    return removed;
}

} // namespace wholefile

} // namespace hardware
