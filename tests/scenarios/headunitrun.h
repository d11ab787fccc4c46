#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

/// Sessions of the simulator, one after the other, on one unit in a temporary folder, headless and
/// with the plug-in that ships.
class HeadunitRun
{
public:
    HeadunitRun();

    /// Runs one of the scripts that lie beside this file to its end. Empty when it went well, or
    /// what the program said, for QVERIFY2 and the like; the unit's time passes \a speed times as
    /// fast.
    QString scenario(const QString &script, double speed = 1.0,
                     const QString &language = QStringLiteral("en"));

    /// How a session went.
    struct End
    {
        int status; ///< -1 for one that does not end or crashes
        QString output;
        QString error;
    };

    /// Starts the program with more arguments; with \a fullDisk, which is how many bytes a file can
    /// still have, on a disk without room.
    End start(const QStringList &arguments = {}, int fullDisk = -1) const;

    /// Path of a script that lies beside this file; an absolute one stays.
    static QString script(const QString &name);

    /// Where the screenshots of the sessions are.
    QString pictures() const;

    /// Host path of a path of the unit.
    QString path(const QString &unitPath) const;

    /// Writes a file of the unit.
    void write(const QString &unitPath, const QByteArray &content) const;
    QByteArray read(const QString &unitPath) const;

    /// Seconds of the unit's time at which the last session journalled its first line of a source
    /// that begins like that; -1 for none.
    double journalTime(const QString &beginning) const;

private:
    QTemporaryDir m_folder;
};

/// Fails the test when a scenario does.
#define RUN_SCENARIO(run, ...)                                                                     \
    do {                                                                                           \
        const QString complaint = (run).scenario(__VA_ARGS__);                                     \
        QVERIFY2(complaint.isEmpty(), qPrintable(complaint));                                      \
    } while (false)
