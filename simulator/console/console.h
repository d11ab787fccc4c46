#pragma once

#include "consoleresult.h"
#include "verbs.h"

#include <QMap>
#include <QString>

#include <functional>

namespace simulator
{

class ConsoleSession;
class GraphicalThread;

/// The command language of the simulated unit: takes a line apart, finds the command and runs it.
/// Filled at the start with what carries out its verbs; from then on any thread may run lines.
class Console
{
public:
    /// Where a command's code runs.
    enum class Place {
        AnyThread,      ///< On the thread of whoever asked: answers even while the screen hangs.
        GraphicalThread ///< Waits for its turn there.
    };

    /// What a recorded session has to tell of a command.
    enum class Effect {
        None,  ///< Nothing: it asks, waits, or touches, and touches are recorded as such.
        World, ///< The command, unless it has answered something: then it was only asked.
    };

    using Handler =
        std::function<ConsoleResult(const QStringList &arguments, ConsoleSession &session)>;

    /// Knows the command "help" only, as far as \a verbs tells of it.
    explicit Console(GraphicalThread &graphicalThread, const QList<Verb> &verbs = verbTable());
    Q_DISABLE_COPY(Console)

    /// Carries out the verb of that name; \a handler is called with as many arguments as its usage
    /// admits.
    void add(const QString &name, Place place, Effect effect, const Handler &handler);

    /// Hears, on the thread of whoever asked, of each command that has changed the unit's world:
    /// its words, with the names of files and folders in full.
    using Listener = std::function<void(const QStringList &words)>;
    void setListener(const Listener &listener);

    /// Which verbs it carries out.
    QStringList names() const;

    /// Runs one line; an empty line and a comment do nothing, but for the head of a recorded
    /// session whose format is unknown, which fails.
    ConsoleResult run(const QString &line, ConsoleSession &session) const;

    /// Ends what is being waited for, as the program ends; no further command runs. Graphical
    /// thread only.
    void close();

private:
    struct Command
    {
        Place place;
        Effect effect;
        Handler handler;
    };

    ConsoleResult runCommand(const Command &command, const QStringList &arguments,
                             ConsoleSession &session) const;
    ConsoleResult help(const QStringList &arguments) const;

    GraphicalThread &m_graphicalThread;
    const QList<Verb> m_verbs;
    QMap<QString, Command> m_commands;
    Listener m_listener;
};

} // namespace simulator
