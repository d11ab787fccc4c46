#include "unitaddress.h"

#include <QCryptographicHash>
#include <QFileInfo>
#include <QStandardPaths>

namespace simulator
{

namespace
{
const int digits = 12;
}

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
    return QLatin1String("headunit-") + QString::fromLatin1(hash.left(digits));
}

} // namespace simulator
