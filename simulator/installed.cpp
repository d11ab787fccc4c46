#include "installed.h"

#include <QCoreApplication>
#include <QDir>

namespace simulator
{

QString installedPath(const QString &name)
{
    return QDir::cleanPath(QCoreApplication::applicationDirPath() + QLatin1String("/../") + name);
}

} // namespace simulator
