#include "unitclient.h"

#include <QFile>
#include <QJsonDocument>

namespace panel
{

namespace
{

const int retryMs = 500;
const int statePauseMs = 200;
const int screenPauseMs = 150;

const QLatin1String withoutCalls("/^(?!gate |asked )/");

} // namespace

UnitClient::UnitClient(const QString &unitFolder, QObject *parent)
    : QObject(parent)
    , m_folder(unitFolder)
{
    m_retry.setInterval(retryMs);
    connect(&m_retry, &QTimer::timeout, this, [this] { m_commands.open(m_folder); });
    for (QTimer *timer : {&m_statePause, &m_screenPause, &m_update}) {
        timer->setSingleShot(true);
    }
    m_statePause.setInterval(statePauseMs);
    m_screenPause.setInterval(screenPauseMs);
    m_update.setInterval(1000 / updatesPerSecond);
    connect(&m_statePause, &QTimer::timeout, this, &UnitClient::askState);
    connect(&m_screenPause, &QTimer::timeout, this, &UnitClient::askScreen);
    connect(&m_update, &QTimer::timeout, this, &UnitClient::tellLines);

    connect(&m_commands, &Connection::opened, this, &UnitClient::attach);
    connect(&m_commands, &Connection::lost, this, &UnitClient::detach);
    connect(&m_states, &Connection::opened, this, &UnitClient::askState);
    connect(&m_journal, &Connection::opened, this, &UnitClient::askJournal);
    connect(&m_journal, &Connection::told, this, &UnitClient::takeLine);
    connect(&m_screens, &Connection::opened, this, &UnitClient::askScreen);
}

void UnitClient::start()
{
    m_commands.open(m_folder);
}

QJsonObject UnitClient::device(const QString &name) const
{
    return m_devices.value(name);
}

void UnitClient::command(const QStringList &words)
{
    command(words, [this, words](const Connection::Answer &answer) {
        if (answer.error.isEmpty()) {
            emit commandDone(words.join(QLatin1Char(' ')));
        }
    });
}

void UnitClient::command(const QStringList &words, const Connection::Taker &taker)
{
    m_commands.ask(words, [this, words, taker](const Connection::Answer &answer) {
        if (!answer.error.isEmpty()) {
            emit commandFailed(words.join(QLatin1Char(' ')), answer.error);
        }
        taker(answer);
    });
}

void UnitClient::setHearingCalls(bool heard)
{
    m_isHearingCalls = heard;
    if (m_isAttached) {
        // Only its end ends a following.
        m_journal.close();
        m_journal.open(m_folder);
    }
}

void UnitClient::setWatchingScreen(bool watched)
{
    m_isWatchingScreen = watched;
    if (watched && m_screens.isOpen() && m_screens.waiting() == 0) {
        askScreen();
    }
}

void UnitClient::attach()
{
    m_retry.stop();
    m_isAttached = true;
    m_devices.clear();
    m_stateLines.clear();
    m_picture.clear();
    for (Connection *connection : {&m_states, &m_journal, &m_screens}) {
        connection->open(m_folder);
    }
    emit attached();
}

void UnitClient::detach()
{
    for (Connection *connection : {&m_states, &m_journal, &m_screens}) {
        connection->close();
    }
    if (!m_retry.isActive()) {
        m_retry.start();
    }
    if (m_isAttached) {
        m_isAttached = false;
        emit detached();
    }
}

void UnitClient::askState()
{
    if (m_states.isOpen()) {
        m_states.ask({QStringLiteral("state"), QStringLiteral("--json")},
                     [this](const Connection::Answer &answer) { takeState(answer); });
    }
}

void UnitClient::takeState(const Connection::Answer &answer)
{
    // Most of the time nothing is new, and nothing needs to be read.
    if (answer.lines != m_stateLines) {
        m_stateLines = answer.lines;
        for (const QString &line : answer.lines) {
            const QJsonObject object = QJsonDocument::fromJson(line.toUtf8()).object();
            m_devices[object.value(QLatin1String("device")).toString()] = object;
        }
        emit stateChanged();
    }
    m_statePause.start();
}

/// From the first that the unit still has, and those to come.
void UnitClient::askJournal()
{
    m_newLines.clear();
    emit journalRestarted();
    QStringList words = {QStringLiteral("journal"), QStringLiteral("--all"),
                         QStringLiteral("--follow"), QStringLiteral("--from=0"),
                         QStringLiteral("--json")};
    if (!m_isHearingCalls) {
        words.append(withoutCalls);
    }
    m_journal.ask(words);
}

void UnitClient::takeLine(const QString &json)
{
    const std::optional<JournalLine> line = JournalLine::read(json);
    if (line) {
        m_newLines.append(*line);
        if (!m_update.isActive()) {
            m_update.start();
        }
    }
}

void UnitClient::tellLines()
{
    JournalLines lines;
    lines.swap(m_newLines);
    if (!lines.isEmpty()) {
        emit journalGrew(lines);
    }
}

void UnitClient::askScreen()
{
    if (!m_isWatchingScreen || !m_screens.isOpen()) {
        return;
    }
    const QString file = m_pictures.filePath(QStringLiteral("screen.png"));
    m_screens.ask({QStringLiteral("shot"), file}, [this, file](const Connection::Answer &answer) {
        if (answer.error.isEmpty()) {
            takeScreen(file);
        }
        m_screenPause.start();
    });
}

void UnitClient::takeScreen(const QString &fileName)
{
    QFile file(fileName);
    const QByteArray picture = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    const QImage screen = picture == m_picture ? QImage() : QImage::fromData(picture);
    if (!screen.isNull()) {
        m_picture = picture;
        emit screenChanged(screen);
    }
}

} // namespace panel
