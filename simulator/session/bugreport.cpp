#include "bugreport.h"

#include "reportarchive.h"

#include "hardware/unit/gatebypass.h"
#include "hardware/unit/unit.h"
#include "hardware/unit/wholefile.h"
#include "simulator/simulator.h"

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QDir>
#include <QTemporaryDir>

namespace simulator
{

namespace bugreport
{

namespace
{

QString checksum(const QString &file)
{
    QFile content(file);
    QCryptographicHash hash(QCryptographicHash::Sha256);
    return content.open(QIODevice::ReadOnly) && hash.addData(&content)
        ? QString::fromLatin1(hash.result().toHex())
        : QStringLiteral("unknown: ") + content.errorString();
}

QByteArray versions(Simulator &simulator)
{
    const QStringList lines{
        reportarchive::head,
        QStringLiteral("headunit ") + QCoreApplication::applicationVersion(),
        QStringLiteral("speed %1").arg(simulator.unit().clock().factor()),
        QStringLiteral("language ") + simulator.language(),
        QStringLiteral("Qt ") + QString::fromLatin1(qVersion()),
        QStringLiteral("plug-in ") + QFileInfo(simulator.plugin()).absoluteFilePath(),
        QStringLiteral("plug-in's SHA-256 ") + checksum(simulator.plugin()),
    };
    return (lines.join(QLatin1Char('\n')) + QLatin1Char('\n')).toUtf8();
}

/// Writes what is not in the unit's folder.
bool gather(Simulator &simulator, const QDir &folder, QString *error)
{
    const QString session = simulator.recorder().fileName();
    const QString file = folder.filePath(QStringLiteral("report/screen.png"));
    // There is none before the window was painted for the first time.
    const QImage picture = simulator.frame().copy(simulator.bezel().screenRect());
    return folder.mkdir(reportarchive::reportFolder)
        && hardware::wholefile::make(folder.filePath(reportarchive::versionsFile),
                                     versions(simulator), error)
        && (picture.isNull() || picture.save(file, "PNG"))
        && (session.isEmpty()
            || QFile::copy(session, folder.filePath(QStringLiteral("report/session.txt"))));
}

} // namespace

bool write(Simulator &simulator, const QString &file, QString *error)
{
    const hardware::GateBypass toFiles;
    const QTemporaryDir extra;
    const hardware::Unit &unit = simulator.unit();
    if (!extra.isValid() || !gather(simulator, QDir(extra.path()), error)) {
        *error = QStringLiteral("The folder \"%1\" cannot be written.").arg(extra.path());
        return false;
    }
    return reportarchive::pack(unit.folder().root(), unit.passingFiles(), extra.path(), file,
                               error);
}

} // namespace bugreport

} // namespace simulator
