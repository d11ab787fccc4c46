#include "allcommands.h"

#include "arguments.h"

#include "simulator/console/commandline.h"
#include "simulator/console/console.h"
#include "simulator/console/consolesession.h"
#include "simulator/console/scriptinput.h"

#include <QFileInfo>

namespace simulator
{

namespace
{

const int maxRepetitions = 100000;

/// Scripts that include one another do so by mistake, and each command within another takes some of
/// the thread's stack.
const int maxDepth = 16;

/// Runs a command that another one was given.
ConsoleResult runInner(const Console &console, const QString &line, ConsoleSession &session)
{
    const ConsoleSession::Depth depth(session);
    return depth.value() > maxDepth ? ConsoleResult::refused(
               QStringLiteral("commands run one another more than %1 deep").arg(maxDepth))
                                    : console.run(line, session);
}

ConsoleResult repeat(const Console &console, const QStringList &arguments, ConsoleSession &session)
{
    int count = 0;
    QString error;
    if (!readNumber(arguments.at(0), QStringLiteral("COUNT"), 1, maxRepetitions, &count, &error)) {
        return ConsoleResult::failed(error);
    }
    ConsoleResult result = ConsoleResult::done();
    for (int round = 0; round < count && result.isOk() && !result.endsSession; ++round) {
        result = runInner(console, arguments.at(1), session);
    }
    return result;
}

/// A command as one line, be it in quotes or as it is.
QString asLine(const QStringList &words)
{
    return words.size() == 1 ? words.first() : commandline::join(words);
}

ConsoleResult fails(const Console &console, const QStringList &arguments, ConsoleSession &session)
{
    const QString line = asLine(arguments);
    ConsoleResult result = runInner(console, line, session);
    if (result.isRefused) {
        return result;
    }
    if (result.isOk()) {
        result.error = QStringLiteral("\"%1\" did not fail").arg(line);
        return result;
    }
    return ConsoleResult::done({result.error});
}

ConsoleResult tryOut(const Console &console, const QStringList &arguments, ConsoleSession &session)
{
    const ConsoleResult result = runInner(console, asLine(arguments), session);
    return result.isOk() || result.isRefused ? result : ConsoleResult::done({result.error});
}

/// Runs the lines of a script that is open, up to the first that fails.
ConsoleResult runLines(const Console &console, const QString &name, ScriptInput &script,
                       ConsoleSession &session)
{
    QByteArray line;
    ConsoleResult result = ConsoleResult::done();
    for (int number = 1; !result.endsSession && script.readLine(&line); ++number) {
        result = console.run(QString::fromUtf8(line), session);
        if (!result.isOk()) {
            result.error = QStringLiteral("%1:%2: %3").arg(name).arg(number).arg(result.error);
            return result;
        }
        session.tell(result.lines);
        result.lines.clear();
    }
    result.error = script.error();
    return result;
}

ConsoleResult include(const Console &console, const QStringList &arguments, ConsoleSession &session)
{
    const QString &name = arguments.first();
    const QString file = session.path(name);
    const ConsoleSession::Depth depth(session);
    if (depth.value() > maxDepth) {
        return ConsoleResult::failed(
            QStringLiteral("scripts include one another more than %1 deep").arg(maxDepth));
    }
    // Who opened a pipe would wait where nothing can end it.
    if (!QFileInfo(file).isFile()) {
        return ConsoleResult::failed(QStringLiteral("there is no script \"%1\"").arg(file));
    }
    ScriptInput script;
    QString error;
    return script.open(file, &error) ? runLines(console, name, script, session)
                                     : ConsoleResult::failed(error);
}

ConsoleResult set(const Console &, const QStringList &arguments, ConsoleSession &session)
{
    if (!commandline::isName(arguments.at(0))) {
        return ConsoleResult::failed(
            QStringLiteral("NAME is made of letters, digits and \"_\" and begins with no digit, "
                           "not \"%1\"")
                .arg(arguments.at(0)));
    }
    session.setValue(arguments.at(0), arguments.at(1));
    return ConsoleResult::done();
}

struct ScriptRow
{
    const char *name;
    ConsoleResult (*function)(const Console &console, const QStringList &arguments,
                              ConsoleSession &session);
};

const ScriptRow rows[] = {
    {"repeat", repeat}, {"fails", fails}, {"try", tryOut}, {"include", include}, {"set", set}};

} // namespace

void addScriptCommands(Console &console)
{
    for (const ScriptRow &row : rows) {
        const auto function = row.function;
        console.add(QString::fromLatin1(row.name), Console::Place::AnyThread, Console::Effect::None,
                    [&console, function](const QStringList &arguments, ConsoleSession &session) {
                        return function(console, arguments, session);
                    });
    }
}

} // namespace simulator
