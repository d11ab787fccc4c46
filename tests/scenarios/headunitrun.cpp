#include "headunitrun.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QtTest>

namespace
{

const int patienceMs = 120000;

/// The end of what the program said, where the reason is; QtTest shows no more of a long message.
QString lastWords(QProcess &process)
{
    return QString::fromLocal8Bit(process.readAll().right(1200));
}

} // namespace

HeadunitRun::HeadunitRun() = default;

QString HeadunitRun::scenario(const QString &script, double speed)
{
    QDir().mkpath(pictures());
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.setWorkingDirectory(pictures());
    process.start(QStringLiteral(HEADUNIT),
                  {QStringLiteral("--headless"), QStringLiteral("--unit"), path(QString()),
                   QStringLiteral("--plugin"), QStringLiteral(FACTORYDEBUG_PLUGIN),
                   QStringLiteral("--speed"), QString::number(speed), QStringLiteral("--script"),
                   QStringLiteral(SCENARIOS) + QLatin1Char('/') + script});
    if (!process.waitForFinished(patienceMs)) {
        process.kill();
        process.waitForFinished();
        return QStringLiteral("%1 does not end:\n").arg(script) + lastWords(process);
    }
    if (process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0) {
        return QStringLiteral("%1 ends with %2:\n").arg(script).arg(process.exitCode())
            + lastWords(process);
    }
    return QString();
}

QString HeadunitRun::pictures() const
{
    return m_folder.filePath(QStringLiteral("pictures"));
}

QString HeadunitRun::path(const QString &unitPath) const
{
    return m_folder.filePath(QStringLiteral("unit")) + unitPath;
}

void HeadunitRun::write(const QString &unitPath, const QByteArray &content) const
{
    QFile file(path(unitPath));
    QVERIFY(QDir().mkpath(QFileInfo(file).path()));
    QVERIFY2(file.open(QIODevice::WriteOnly), qPrintable(file.errorString()));
    QCOMPARE(file.write(content), qint64(content.size()));
}

QByteArray HeadunitRun::read(const QString &unitPath) const
{
    QFile file(path(unitPath));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}
