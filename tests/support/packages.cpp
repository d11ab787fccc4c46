#include "packages.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QProcess>

namespace
{

const int patienceMs = 120000; // of a busy host

void run(const QString &script, const QStringList &arguments)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::ForwardedChannels);
    process.start(script, arguments);
    if (!process.waitForFinished(patienceMs) || process.exitCode() != 0) {
        qFatal("%s %s: %s", qPrintable(script), qPrintable(arguments.join(QLatin1Char(' '))),
               qPrintable(process.errorString()));
    }
}

/// Has the script make each package once: a Python that starts takes longer than what most tests do
/// with what it makes.
void make(const QString &script, const QStringList &ahead, const QString &file,
          const QStringList &behind)
{
    static QHash<QStringList, QByteArray> made;
    const QStringList key = QStringList(script) + ahead + behind;
    QFile package(file);
    if (!made.contains(key)) {
        run(script, ahead + QStringList(file) + behind);
        if (!package.open(QIODevice::ReadOnly)) {
            qFatal("%s cannot be read.", qPrintable(file));
        }
        made[key] = package.readAll();
        return;
    }
    const QByteArray bytes = made.value(key);
    if (!QDir().mkpath(QFileInfo(file).path()) || !package.open(QIODevice::WriteOnly)
        || package.write(bytes) != bytes.size()) {
        qFatal("%s cannot be written.", qPrintable(file));
    }
}

} // namespace

void makeUpdatePackage(const QString &file, const QStringList &options,
                       const QString &customerVersion, const QString &sdkVersion)
{
    make(QStringLiteral(MAKE_UPDATE_PACKAGE), options, file, {customerVersion, sdkVersion});
}

void makeGpsPackage(const QString &file, const QString &kind, const QString &version, int size)
{
    make(QStringLiteral(MAKE_GPS_PACKAGE), {kind}, file, {version, QString::number(size)});
}

void makeGpsPackages(const QString &folder, int bootloader, int firmware)
{
    makeGpsPackage(folder + QStringLiteral("/gps_bootloader.pkg"), QStringLiteral("valid"),
                   QStringLiteral("boot 3"), bootloader);
    makeGpsPackage(folder + QStringLiteral("/gps_firmware.pkg"), QStringLiteral("valid"),
                   QStringLiteral("GNSS 2.5.1"), firmware);
}
