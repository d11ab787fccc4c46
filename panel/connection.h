#pragma once

#include <QLocalSocket>
#include <QObject>
#include <QQueue>
#include <QStringList>

#include <functional>

namespace panel
{

/// One connection to the console of a unit. Never blocks: what is asked is answered, in order, to
/// whom it was asked for.
class Connection : public QObject
{
    Q_OBJECT

public:
    struct Answer
    {
        QStringList lines;
        QString error; ///< Empty when all went well.
    };
    using Taker = std::function<void(const Answer &answer)>;

    explicit Connection(QObject *parent = nullptr);
    ~Connection() override;
    Q_DISABLE_COPY(Connection)

    /// Looks for the unit that runs on that folder; opened() or lost() follows.
    void open(const QString &unitFolder);
    void close();
    bool isOpen() const;

    /// A command by its words. Where no unit is connected, or it goes down ahead of the answer, an
    /// error says so.
    void ask(const QStringList &words, const Taker &taker = {});

    /// How many commands wait for their answer.
    int waiting() const;

signals:
    void opened();
    /// There is no unit, or no more.
    void lost();
    /// What a command has to say before it ends.
    void told(const QString &line);

private:
    void readLines();
    void readLine(const QString &line);
    void end();

    QLocalSocket m_socket;
    QQueue<Taker> m_takers;
    QStringList m_lines; // of the answer that comes
};

} // namespace panel
