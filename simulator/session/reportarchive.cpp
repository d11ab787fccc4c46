#include "reportarchive.h"

#include "hardware/unit/gatebypass.h"

#include <QDir>
#include <QDirIterator>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>

namespace simulator
{

namespace reportarchive
{

const QLatin1String reportFolder("report");
const QLatin1String versionsFile("report/versions.txt");
const QLatin1String head("headunit report 1");

namespace
{

/// Of tar, where files have changed while they were read.
const int filesChanged = 1;

const int withoutEnd = -1;

QString program(const QStringList &arguments)
{
    return QLatin1String("tar ") + arguments.first();
}

/// Runs tar; false with a sentence in \a error.
bool runTar(const QStringList &arguments, int worstStatus, QByteArray *output, QString *error)
{
    QProcess tar;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("LC_ALL"), QStringLiteral("C"));
    tar.setProcessEnvironment(environment);
    tar.start(QStringLiteral("tar"), arguments);
    if (!tar.waitForStarted(withoutEnd)) {
        *error =
            QStringLiteral("%1 cannot be started (%2); the packages tar and xz-utils have what "
                           "reports are packed with")
                .arg(program(arguments), tar.errorString());
        return false;
    }
    tar.closeWriteChannel();
    tar.waitForFinished(withoutEnd);
    *output = tar.readAllStandardOutput();
    if (tar.exitStatus() == QProcess::NormalExit && tar.exitCode() <= worstStatus) {
        return true;
    }
    const QString said = QString::fromLocal8Bit(tar.readAllStandardError()).trimmed();
    *error = QStringLiteral("%1 failed: %2")
                 .arg(program(arguments), said.section(QLatin1Char('\n'), 0, 0));
    return false;
}

/// Links lead out of the folder, or nowhere on another host.
QStringList linksBelow(const QString &folder)
{
    QStringList links;
    QDirIterator all(folder, QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                     QDirIterator::Subdirectories);
    while (all.hasNext()) {
        all.next();
        if (all.fileInfo().isSymLink()) {
            links.append(all.filePath());
        }
    }
    return links;
}

/// Why a line of tar's listing tells of no member that a report has; empty when it does.
QString complaint(const QString &line)
{
    // Type and rights, owner, length, date, time, name.
    const QString name = line.section(QLatin1Char(' '), 5, -1, QString::SectionSkipEmpty);
    const bool isPlain = line.startsWith(QLatin1Char('-')) || line.startsWith(QLatin1Char('d'));
    if (!isPlain) {
        return QStringLiteral("\"%1\" is neither file nor folder").arg(name);
    }
    const bool isOutside = name.startsWith(QLatin1Char('/'))
        || name.split(QLatin1Char('/')).contains(QStringLiteral(".."));
    return isOutside ? QStringLiteral("\"%1\" lies outside of the folder").arg(name) : QString();
}

bool checkMembers(const QString &file, QString *error)
{
    QByteArray listing;
    if (!runTar({QStringLiteral("--list"), QStringLiteral("--verbose"), QStringLiteral("--xz"),
                 QStringLiteral("--numeric-owner"), QStringLiteral("--quoting-style=escape"),
                 QStringLiteral("--file"), file},
                0, &listing, error)) {
        return false;
    }
    const QStringList lines =
        QString::fromLocal8Bit(listing).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    for (const QString &line : lines) {
        *error = complaint(line);
        if (!error->isEmpty()) {
            return false;
        }
    }
    return true;
}

bool extract(const QString &file, const QString &folder, QString *error)
{
    QByteArray ignored;
    return runTar({QStringLiteral("--extract"), QStringLiteral("--xz"),
                   QStringLiteral("--no-same-owner"), QStringLiteral("--no-same-permissions"),
                   QStringLiteral("--file"), file, QStringLiteral("--directory"), folder},
                  0, &ignored, error);
}

/// Whether what has been unpacked is a report that this program knows.
bool isReport(const QDir &folder, QString *error)
{
    QFile versions(folder.filePath(versionsFile));
    if (versions.open(QIODevice::ReadOnly)
        && QString::fromUtf8(versions.readLine()).trimmed() == head) {
        return true;
    }
    *error = QStringLiteral("it has no \"%1\" that begins with \"%2\"").arg(versionsFile, head);
    return false;
}

QString because(const QString &reason)
{
    return reason.isEmpty() ? QString() : QLatin1String(": ") + reason;
}

bool isEmptyOrMissing(const QString &folder)
{
    const QFileInfo info(folder);
    return info.isDir() ? QDir(folder).isEmpty(QDir::AllEntries | QDir::Hidden | QDir::System
                                               | QDir::NoDotAndDotDot)
                        : !info.exists() && !info.isSymLink();
}

} // namespace

bool pack(const QString &unitFolder, const QStringList &passing, const QString &extraFolder,
          const QString &file, QString *error)
{
    const hardware::GateBypass toFiles;
    if (QFileInfo::exists(file)) {
        *error = QStringLiteral("There is a file \"%1\" already.").arg(file);
        return false;
    }
    QStringList arguments{QStringLiteral("--create"),
                          QStringLiteral("--xz"),
                          QStringLiteral("--sparse"),
                          QStringLiteral("--owner=0"),
                          QStringLiteral("--group=0"),
                          QStringLiteral("--hard-dereference"),
                          QStringLiteral("--warning=no-file-changed"),
                          QStringLiteral("--anchored"),
                          QStringLiteral("--no-wildcards")};
    const QStringList leftOut = linksBelow(unitFolder) + passing
        + QStringList({file, QDir(unitFolder).filePath(reportFolder)});
    for (const QString &path : leftOut) {
        arguments.append(QLatin1String("--exclude=./") + QDir(unitFolder).relativeFilePath(path));
    }
    const QString part = file + QStringLiteral(".part");
    arguments += {QStringLiteral("--file"),
                  part,
                  QStringLiteral("--directory"),
                  extraFolder,
                  reportFolder,
                  QStringLiteral("--directory"),
                  unitFolder,
                  QStringLiteral(".")};
    QByteArray ignored;
    QString reason;
    if (runTar(arguments, filesChanged, &ignored, &reason) && QFile::rename(part, file)) {
        return true;
    }
    QFile::remove(part);
    *error = QStringLiteral("The report \"%1\" cannot be made%2.").arg(file, because(reason));
    return false;
}

bool unpack(const QString &file, const QString &unitFolder, QString *error)
{
    const QString folder = QDir::cleanPath(QDir(unitFolder).absolutePath());
    if (!isEmptyOrMissing(folder)) {
        *error = QStringLiteral("The unit's folder \"%1\" is not empty; a report is unpacked into "
                                "an empty or a new one.")
                     .arg(folder);
        return false;
    }
    // Beside the folder, whose place it takes when it is whole.
    QDir().mkpath(QFileInfo(folder).path());
    const QTemporaryDir part(folder + QStringLiteral(".XXXXXX"));
    const QString whole = part.filePath(QStringLiteral("unit"));
    QString reason = part.errorString();
    if (part.isValid() && QDir().mkdir(whole) && checkMembers(file, &reason)
        && extract(file, whole, &reason) && isReport(whole, &reason)
        && (!QFileInfo::exists(folder) || QDir().rmdir(folder)) && QDir().rename(whole, folder)) {
        return true;
    }
    *error = QStringLiteral("The report \"%1\" cannot be unpacked into \"%2\"%3.")
                 .arg(file, folder, because(reason));
    return false;
}

} // namespace reportarchive

} // namespace simulator
