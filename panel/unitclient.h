#pragma once

#include "connection.h"
#include "journalline.h"

#include <QHash>
#include <QImage>
#include <QJsonObject>
#include <QTemporaryDir>
#include <QTimer>

namespace panel
{

/// What the panel knows of the unit that runs on a folder: its state, its journal and its screen,
/// asked for again and again by connections of their own, so that a command that waits for the
/// screen holds up none of them. Attaches as soon as there is a unit, and again after one has gone.
class UnitClient : public QObject
{
    Q_OBJECT

public:
    /// All views are told of something new at most that often.
    static constexpr int updatesPerSecond = 25;

    explicit UnitClient(const QString &unitFolder, QObject *parent = nullptr);

    const QString &unitFolder() const { return m_folder; }

    /// Looks for the unit, from now on.
    void start();

    bool isAttached() const { return m_isAttached; }

    /// The newest state of a device, as "state --json" tells it; empty before the first.
    QJsonObject device(const QString &name) const;

    /// Has the unit do something; commandFailed() tells when it does not.
    void command(const QStringList &words);
    void command(const QStringList &words, const Connection::Taker &taker);

    /// Whether the C library's calls and the questions to the closed libraries are told too, which
    /// can be thousands a second; journalRestarted() follows.
    void setHearingCalls(bool heard);

    /// Whether the screen's picture is asked for.
    void setWatchingScreen(bool watched);

signals:
    void attached();
    /// There was a unit, and it went away.
    void detached();
    void stateChanged();
    /// What was told of the journal is told anew.
    void journalRestarted();
    /// Lines that are new, in order.
    void journalGrew(const panel::JournalLines &lines);
    void screenChanged(const QImage &screen);
    void commandFailed(const QString &command, const QString &error);
    /// Of those whose answer nobody takes.
    void commandDone(const QString &command);

private:
    void attach();
    void detach();
    void askState();
    void takeState(const Connection::Answer &answer);
    void askJournal();
    void takeLine(const QString &json);
    void tellLines();
    void askScreen();
    void takeScreen(const QString &fileName);

    const QString m_folder;
    bool m_isAttached = false;
    bool m_isHearingCalls = false;
    bool m_isWatchingScreen = false;
    Connection m_commands;
    Connection m_states;
    Connection m_journal;
    Connection m_screens;
    QTimer m_retry;
    QTimer m_statePause;
    QTimer m_screenPause;
    QTimer m_update;
    QTemporaryDir m_pictures;
    QHash<QString, QJsonObject> m_devices;
    QStringList m_stateLines;
    QByteArray m_picture;
    JournalLines m_newLines;
};

} // namespace panel
