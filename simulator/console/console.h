#pragma once

#include "consoleresult.h"

#include <QList>
#include <QString>

#include <functional>

namespace simulator
{

class ConsoleSession;
class GraphicalThread;

/// The command language of the simulated unit: takes a line apart, finds the command and runs it.
/// Filled at the start; from then on any thread may run lines.
class Console
{
public:
    /// Where a command's code runs.
    enum class Place {
        AnyThread,      ///< On the thread of whoever asked: answers even while the screen hangs.
        GraphicalThread ///< Waits for its turn there.
    };

    using Handler =
        std::function<ConsoleResult(const QStringList &arguments, ConsoleSession &session)>;

    struct Command
    {
        QString name;
        /// The arguments, those that may be left out in brackets: "SLOT [FOLDER]". The last one
        /// may stand for more of its kind: "COMMAND...".
        QString usage;
        QString help; ///< One sentence.
        Place place;
        Handler handler; ///< Called with as many arguments as the usage admits.
    };

    /// Knows the command "help" only.
    explicit Console(GraphicalThread &graphicalThread);
    Q_DISABLE_COPY(Console)

    void add(const Command &command);

    /// What the commands are called.
    QStringList names() const;

    /// Runs one line; an empty line and a comment do nothing.
    ConsoleResult run(const QString &line, ConsoleSession &session) const;

    /// Ends what is being waited for, as the program ends; no further command runs. Graphical
    /// thread only.
    void close();

private:
    ConsoleResult runCommand(const Command &command, const QStringList &arguments,
                             ConsoleSession &session) const;
    ConsoleResult help(const QStringList &arguments) const;
    const Command *find(const QString &name) const;

    GraphicalThread &m_graphicalThread;
    QList<Command> m_commands;
};

} // namespace simulator
