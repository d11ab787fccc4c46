#pragma once

#include <QLocalSocket>
#include <QStringList>

#include <functional>

namespace simulator
{

/// The other end of the console's socket: asks the unit that runs on a folder. Blocks; any thread,
/// but always the same.
class ConsoleClient
{
public:
    /// False with a sentence in \a error when no unit answers there, or somebody else might.
    bool connectTo(const QString &unitFolder, QString *error);

    /// Runs a command, given as its words. False when it failed: \a error then says why. In any
    /// case \a lines is what it answered in the end; what it had to say before went to the
    /// listener.
    bool run(const QStringList &words, QStringList *lines, QString *error);

    /// The same for a command as it is typed.
    bool runLine(const QByteArray &command, QStringList *lines, QString *error);

    /// False once the unit went down while it was asked.
    bool isConnected() const;

    /// Who takes lines that come before a command has ended; without one they are dropped.
    void setListener(const std::function<void(const QString &line)> &listener);

private:
    bool readLine(QByteArray *line);

    QLocalSocket m_socket;
    std::function<void(const QString &line)> m_listener = [](const QString &) {};
};

} // namespace simulator
