#include "allcommands.h"

#include "commandtable.h"

#include "hardware/unit/unit.h"
#include "simulator/installed.h"
#include "simulator/simulator.h"

#include <QDir>
#include <QProcess>

#include <algorithm>

namespace simulator
{

namespace
{

/// A file that a tool makes on a stick.
struct PackageFile
{
    const char *kind;
    const char *tool;
    QStringList ahead; ///< Of the file's name.
    const char *name;
    QStringList behind;
};

const QList<PackageFile> &packageFiles()
{
    static const QList<PackageFile> files = {
        {"gps", "make-gps-package", {"valid"}, "gps_bootloader.pkg", {"boot 3", "5000"}},
        {"gps", "make-gps-package", {"valid"}, "gps_firmware.pkg", {"GNSS 2.5.1", "60000"}},
        {"gps-bad", "make-gps-package", {"valid"}, "gps_bootloader.pkg", {"boot 3", "5000"}},
        {"gps-bad", "make-gps-package", {"bad-sum"}, "gps_firmware.pkg", {}},
        {"update", "make-update-package", {}, "ORRERY_PACK.BIN", {}},
        {"update-bad", "make-update-package", {"--corrupt"}, "ORRERY_PACK.BIN", {}},
    };
    return files;
}

QStringList kinds()
{
    QStringList kinds;
    for (const PackageFile &file : packageFiles()) {
        kinds.append(QLatin1String(file.kind));
    }
    kinds.removeDuplicates();
    return kinds;
}

/// Host path of the stick that is in the slot, or of the slot's own; empty for an unknown slot.
QString stickIn(hardware::Unit &unit, const QString &name)
{
    const QList<hardware::StorageSlot> table = unit.storage().slotTable();
    const auto slot = std::find_if(table.cbegin(), table.cend(),
                                   [&name](const auto &slot) { return slot.name == name; });
    if (slot == table.cend()) {
        return QString();
    }
    return unit.storage().mountRoots().contains(slot->mountRoot)
        ? unit.folder().path(slot->mountRoot)
        : unit.folder().path(QStringLiteral("/sticks/") + name);
}

/// False with a sentence in \a error.
bool make(const PackageFile &file, const QString &stick, QString *error)
{
    const QString tool = installedPath(QLatin1String(PACKAGE_TOOLS "/") + QLatin1String(file.tool));
    QProcess process;
    process.start(tool,
                  file.ahead + QStringList(QDir(stick).filePath(QLatin1String(file.name)))
                      + file.behind);
    if (!process.waitForStarted()) {
        *error = QStringLiteral("%1 cannot be started: %2").arg(tool, process.errorString());
        return false;
    }
    process.waitForFinished(-1);
    if (process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0) {
        return true;
    }
    const QString said = QString::fromLocal8Bit(process.readAllStandardError()).trimmed();
    *error = QStringLiteral("%1 failed: %2")
                 .arg(QLatin1String(file.tool), said.section(QLatin1Char('\n'), -1));
    return false;
}

ConsoleResult package(Simulator &simulator, const QStringList &arguments, ConsoleSession &)
{
    const QString &slot = arguments.first();
    const QString &kind = arguments.at(1);
    if (!kinds().contains(kind)) {
        return ConsoleResult::failed(QStringLiteral("there is no kind \"%1\", only: %2")
                                         .arg(kind, kinds().join(QLatin1String(", "))));
    }
    const QString stick = stickIn(simulator.unit(), slot);
    if (stick.isEmpty()) {
        return ConsoleResult::failed(QStringLiteral("There is no slot \"%1\".").arg(slot));
    }
    QString error;
    for (const PackageFile &file : packageFiles()) {
        if (QLatin1String(file.kind) == kind && !make(file, stick, &error)) {
            return ConsoleResult::failed(error);
        }
    }
    simulator.unit().journal().write(QStringLiteral("storage"),
                                     QStringLiteral("package %1 %2").arg(slot, kind));
    return ConsoleResult::done();
}

} // namespace

void addPackageCommands(Console &console, Simulator &simulator)
{
    addCommands(console, simulator,
                {{"package", Console::Place::AnyThread, Effect::World, package}});
}

} // namespace simulator
