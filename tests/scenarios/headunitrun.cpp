#include "headunitrun.h"

#include "support/fulldisk.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QRegularExpression>
#include <QtTest>

namespace
{

const int patienceMs = 300000;

/// The program, on a disk that may be full.
class Session : public QProcess
{
public:
    explicit Session(int fullDisk)
        : m_fullDisk(fullDisk)
    {
    }

protected:
    void setupChildProcess() override
    {
        if (m_fullDisk >= 0) {
            // Not for a scope: it lasts until the program ends.
            new FullDisk(rlim_t(m_fullDisk));
        }
    }

private:
    const int m_fullDisk;
};

} // namespace

HeadunitRun::HeadunitRun() = default;

QString HeadunitRun::scenario(const QString &name, double speed, const QString &language)
{
    const End end =
        start({QStringLiteral("--speed"), QString::number(speed), QStringLiteral("--language"),
               language, QStringLiteral("--script"), script(name)});
    // The end of what the program said, where the reason is; QtTest shows no more of a long
    // message.
    return end.status == 0 ? QString()
                           : QStringLiteral("%1 ends with %2:\n").arg(name).arg(end.status)
            + end.output.right(600) + end.error.right(1200);
}

HeadunitRun::End HeadunitRun::start(const QStringList &arguments, int fullDisk) const
{
    QDir().mkpath(pictures());
    Session session(fullDisk);
    session.setWorkingDirectory(pictures());
    session.start(
        QStringLiteral(HEADUNIT),
        QStringList({QStringLiteral("--headless"), QStringLiteral("--unit"), path(QString()),
                     QStringLiteral("--plugin"), QStringLiteral(FACTORYDEBUG_PLUGIN)})
            + arguments);
    session.closeWriteChannel();
    End end{-1, QString(), QString()};
    if (!session.waitForFinished(patienceMs)) {
        session.kill();
        session.waitForFinished();
    } else if (session.exitStatus() == QProcess::NormalExit) {
        end.status = session.exitCode();
    }
    end.output = QString::fromLocal8Bit(session.readAllStandardOutput());
    end.error = QString::fromLocal8Bit(session.readAllStandardError());
    return end;
}

QString HeadunitRun::script(const QString &name)
{
    return QDir(QStringLiteral(SCENARIOS)).filePath(name);
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

double HeadunitRun::journalTime(const QString &beginning) const
{
    const QRegularExpression line(QStringLiteral("^(\\d+\\.\\d+) #\\S+ ")
                                      + QRegularExpression::escape(beginning),
                                  QRegularExpression::MultilineOption);
    const QString journal = QString::fromUtf8(read(QStringLiteral("/journal.log")));
    const QRegularExpressionMatch match =
        line.match(journal, journal.lastIndexOf(QLatin1String("\n# ")) + 1);
    return match.hasMatch() ? match.captured(1).toDouble() : -1;
}
