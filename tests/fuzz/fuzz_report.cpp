// Reports, which "headunit --from" unpacks: the bytes are what tar packs, and xz packs them here.

#include "fuzzing.h"

#include "simulator/session/reportarchive.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

using namespace simulator;

namespace
{

void pack(const std::uint8_t *data, std::size_t size, const QString &file)
{
    QProcess xz;
    xz.setStandardOutputFile(file);
    xz.start(QStringLiteral("xz"), {QStringLiteral("-0"), QStringLiteral("--stdout")});
    xz.write(reinterpret_cast<const char *>(data), qint64(size));
    xz.closeWriteChannel();
    require(xz.waitForFinished(-1) && xz.exitCode() == 0, "xz packs everything");
}

void requirePlain(const QString &folder)
{
    QDirIterator all(folder, QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                     QDirIterator::Subdirectories);
    while (all.hasNext()) {
        all.next();
        const QFileInfo info = all.fileInfo();
        require(!info.isSymLink() && (info.isFile() || info.isDir()),
                "a report has files and folders only");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QTemporaryDir folder;
    const QString report = folder.filePath(QStringLiteral("report.tar.xz"));
    const QString unit = folder.filePath(QStringLiteral("unit"));
    pack(data, size, report);
    QString error;
    const bool isUnpacked = reportarchive::unpack(report, unit, &error);
    require(isUnpacked == error.isEmpty(), "what is not unpacked is told");
    QStringList beside(QStringLiteral("report.tar.xz"));
    if (isUnpacked) {
        beside.append(QStringLiteral("unit"));
        requirePlain(unit);
    }
    const auto everything = QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot;
    require(QDir(folder.path()).entryList(everything, QDir::Name) == beside,
            "nothing lies outside of the unit's folder");
    return 0;
}
