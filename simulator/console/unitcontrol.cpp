#include "unitcontrol.h"

#include "commandline.h"
#include "commandprompt.h"
#include "completion.h"
#include "scriptinput.h"
#include "unitaddress.h"

#include <QDir>

#include <cstdio>
#include <unistd.h>

namespace simulator
{

namespace
{

void print(FILE *stream, const QStringList &lines)
{
    for (const QString &line : lines) {
        std::fprintf(stream, "%s\n", qUtf8Printable(line));
    }
    std::fflush(stream);
}

/// Whether the line ended the unit, if it went well.
bool isQuit(const QByteArray &line)
{
    return line.trimmed() == "quit";
}

} // namespace

UnitControl::UnitControl()
{
    m_client.setListener([](const QString &line) { print(stdout, {line}); });
}

ControlStatus UnitControl::connectTo(const QString &unitFolder)
{
    QString error;
    if (!m_client.connectTo(unitFolder, &error)) {
        print(stderr, {error});
        return ControlNoUnit;
    }
    // The unit's program runs in a folder of its own, but names are meant from here.
    return run({QStringLiteral("cd"), QDir::currentPath()});
}

ControlStatus UnitControl::run(const QStringList &words)
{
    return runLine(commandline::join(words).toUtf8()) ? ControlFine : ControlCommandFailed;
}

ControlStatus UnitControl::runInput()
{
    return isatty(STDIN_FILENO) != 0 ? runTerminal() : runScript();
}

QStringList UnitControl::buttons()
{
    QStringList lines;
    QString error;
    m_client.run({QStringLiteral("look")}, &lines, &error);
    QStringList names;
    for (const QString &line : qAsConst(lines)) {
        QStringList words;
        if (commandline::split(line, {}, &words, &error)
            && words.value(0) == QLatin1String("button")) {
            names.append(words.value(1));
        }
    }
    return names;
}

bool UnitControl::runLine(const QByteArray &line, const QString &place)
{
    QStringList lines;
    QString error;
    const bool isFine = m_client.runLine(line, &lines, &error);
    print(isFine ? stdout : stderr, lines);
    if (!isFine) {
        print(stderr, {place + error});
    }
    return isFine;
}

ControlStatus UnitControl::runTerminal()
{
    print(stdout,
          {QStringLiteral("\"help\" lists the commands, Ctrl+D leaves, \"quit\" ends the unit.")});
    CommandPrompt prompt(
        [this](const QString &line) { return completions(line, [this] { return buttons(); }); },
        QFileInfo(defaultUnitFolder()).path() + QLatin1String("/history"));
    QByteArray line;
    while (m_client.isConnected() && prompt.readLine(&line)) {
        if (runLine(line) && isQuit(line)) {
            break;
        }
    }
    return ControlFine;
}

ControlStatus UnitControl::runScript()
{
    ScriptInput input;
    QString error;
    if (!input.open(QStringLiteral("-"), &error)) {
        print(stderr, {error});
        return ControlCommandFailed;
    }
    QByteArray line;
    for (int number = 1; input.readLine(&line); ++number) {
        if (!runLine(line, QStringLiteral("<stdin>:%1: ").arg(number))) {
            return ControlCommandFailed;
        }
        if (isQuit(line)) {
            return ControlFine;
        }
    }
    return ControlFine;
}

} // namespace simulator
