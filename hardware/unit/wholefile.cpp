#include "wholefile.h"

#include "gatebypass.h"

#include <QFile>
#include <QSaveFile>

namespace hardware
{

namespace wholefile
{

namespace
{

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
    QFile part(file + QStringLiteral(".part"));
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
    QSaveFile whole(file);
    if (whole.open(QIODevice::WriteOnly) && writeOut(whole, content) && whole.commit()) {
        return true;
    }
    *reason = whole.errorString();
    return false;
}

} // namespace wholefile

} // namespace hardware
