#include "unitaddress.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

#include <sys/stat.h>
#include <unistd.h>

namespace simulator
{

namespace
{

const int digits = 12;

QString folderOf(const QString &socket)
{
    return QFileInfo(socket).path();
}

} // namespace

QString defaultUnitFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation)
        + QLatin1String("/factorydebug/unit");
}

QString consoleSocketName(const QString &unitFolder)
{
    const QString path = QFileInfo(unitFolder).canonicalFilePath();
    if (path.isEmpty()) {
        return QString();
    }
    const QByteArray hash =
        QCryptographicHash::hash(path.toUtf8(), QCryptographicHash::Sha1).toHex();
    return QStringLiteral("%1/headunit-%2/%3")
        .arg(QDir::tempPath(), QString::number(geteuid()), QString::fromLatin1(hash.left(digits)));
}

bool makeSocketFolder(const QString &socket, QString *error)
{
    mkdir(QFile::encodeName(folderOf(socket)).constData(), S_IRWXU);
    return hasOwnFolder(socket, error);
}

bool hasOwnFolder(const QString &socket, QString *error)
{
    // Of the folder itself: a link to it could be somebody else's.
    struct stat status = {};
    const bool isFolder = lstat(QFile::encodeName(folderOf(socket)).constData(), &status) == 0
        && S_ISDIR(status.st_mode);
    if (!isFolder || status.st_uid != geteuid() || (status.st_mode & (S_IRWXG | S_IRWXO)) != 0) {
        *error = QStringLiteral("The consoles' folder \"%1\" is not yours, or open to others.")
                     .arg(folderOf(socket));
        return false;
    }
    return true;
}

} // namespace simulator
