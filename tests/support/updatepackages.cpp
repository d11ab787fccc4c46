#include "updatepackages.h"

#include <QProcess>

namespace
{
const int patienceMs = 120000; // of a busy host
}

void makeUpdatePackage(const QString &file, const QStringList &options,
                       const QString &customerVersion, const QString &sdkVersion)
{
    QProcess script;
    script.setProcessChannelMode(QProcess::ForwardedChannels);
    script.start(QStringLiteral(MAKE_UPDATE_PACKAGE),
                 options + QStringList({file, customerVersion, sdkVersion}));
    if (!script.waitForFinished(patienceMs) || script.exitCode() != 0) {
        qFatal("The package %s cannot be made: %s", qPrintable(file),
               qPrintable(script.errorString()));
    }
}
