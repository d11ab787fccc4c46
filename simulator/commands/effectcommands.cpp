#include "allcommands.h"

#include "commandtable.h"
#include "effects.h"
#include "effectwalk.h"
#include "probe.h"

#include "hardware/unit/unit.h"
#include "simulator/console/consolesession.h"
#include "simulator/simulator.h"

#include <QSaveFile>

namespace simulator
{

namespace
{

/// What the last touch led to.
ConsoleResult lastEffects(Simulator &simulator)
{
    const hardware::Journal &journal = simulator.unit().journal();
    const QList<hardware::Journal::Line> touches =
        journal.entries(QStringLiteral("/^touch press /"));
    if (touches.isEmpty()) {
        return ConsoleResult::failed(QStringLiteral("nothing has been touched yet"));
    }
    QStringList before;
    QStringList after;
    simulator.graphicalThread().run([&] {
        before = simulator.textsBeforeTouch();
        after = simulator.screenReader().widgetTexts();
    });
    return ConsoleResult::done(
        effects(journal.following(touches.constLast().cause), before, after));
}

ConsoleResult effectsOf(Simulator &simulator, const QString &id)
{
    QPoint place;
    QString error;
    bool isThere = false;
    simulator.graphicalThread().run(
        [&] { isThere = simulator.screenReader().findButton(id, &place, &error); });
    Probe probe(simulator);
    return isThere && probe.touch(place, &error) ? ConsoleResult::done(probe.effects())
                                                 : ConsoleResult::failed(error);
}

ConsoleResult allEffects(Simulator &simulator, const QString &fileName)
{
    QStringList lines;
    QString error;
    if (!EffectWalk(simulator).run(&lines, &error)) {
        return ConsoleResult::failed(error);
    }
    if (fileName.isEmpty()) {
        return ConsoleResult::done(lines);
    }
    QSaveFile file(fileName);
    if (!file.open(QIODevice::WriteOnly) || file.write(lines.join('\n').toUtf8() + '\n') < 0
        || !file.commit()) {
        return ConsoleResult::failed(QStringLiteral("the file \"%1\" cannot be written: %2")
                                         .arg(fileName, file.errorString()));
    }
    return ConsoleResult::done();
}

ConsoleResult effects(Simulator &simulator, const QStringList &arguments, ConsoleSession &session)
{
    if (arguments.isEmpty()) {
        return lastEffects(simulator);
    }
    if (arguments.first() != QLatin1String("--all")) {
        return arguments.size() == 1
            ? effectsOf(simulator, arguments.first())
            : ConsoleResult::failed(QStringLiteral("usage: effects [ID], or effects --all [FILE]"));
    }
    return allEffects(simulator, arguments.size() == 1 ? QString() : session.path(arguments.at(1)));
}

} // namespace

void addEffectCommands(Console &console, Simulator &simulator)
{
    addCommands(console, simulator,
                {{"effects", Console::Place::AnyThread, Effect::None, effects}});
}

} // namespace simulator
