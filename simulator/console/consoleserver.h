#pragma once

#include <QObject>
#include <QThread>

namespace hardware
{
class Journal;
}

namespace simulator
{

class Console;

/// Answers console commands on a local socket that only the same user may connect to. It has a
/// thread of its own, and one for each connection, so that commands that need no screen are
/// answered while others wait for it.
///
/// A client sends one command a line. For each it is answered with any number of lines that begin
/// with ">", which come as soon as there is something to say, then with any number that begin with
/// a blank, which is no more part of them than the ">", and then with one line "ok" or "error <what
/// is wrong>".
/// One whose line is longer than commandline::maxLineBytes is hung up on after the error.
class ConsoleServer : public QObject
{
    Q_OBJECT

public:
    explicit ConsoleServer(const Console &console);
    /// The console must be closed by then, or no command running.
    ~ConsoleServer() override;

    /// Listens on the socket of that name, a host path in a folder that is the user's alone and is
    /// made when missing, taking over one that a crash left behind. The reading of the journal,
    /// which all connections share, begins at its end. False with a sentence in \a error.
    bool listen(const QString &name, hardware::Journal &journal, QString *error);

    /// Host path of the socket; empty until it listens.
    QString socketFile() const;

    /// Makes a link of that name which leads to the socket, for clients that know the unit's folder
    /// and nothing else; it ends with this object. False with a sentence in \a error.
    bool linkFrom(const QString &path, QString *error);

private:
    const Console &m_console;
    QThread m_thread;
    QString m_socketFile;
    QString m_link;
};

} // namespace simulator
