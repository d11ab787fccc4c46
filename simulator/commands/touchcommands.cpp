#include "touchcommands.h"

#include "arguments.h"

#include "simulator/console.h"
#include "simulator/hardkey.h"
#include "simulator/simulator.h"

namespace simulator
{

namespace
{

const int usualSteps = 10;
const int mostSteps = 1000;

/// Taps now, or, with the word "nowait", as soon as the command has been answered.
ConsoleResult tap(Simulator &simulator, const QPoint &position, const QString &manner)
{
    if (!manner.isEmpty() && manner != QLatin1String("nowait")) {
        return ConsoleResult::failed(
            QStringLiteral("\"nowait\" may follow here, not \"%1\"").arg(manner));
    }
    if (simulator.finger().isDown()) {
        return ConsoleResult::failed(QStringLiteral("the finger is down; \"lift\" it first"));
    }
    if (manner.isEmpty()) {
        simulator.finger().tap(position);
    } else {
        QMetaObject::invokeMethod(
            &simulator, [&simulator, position] { simulator.finger().tap(position); },
            Qt::QueuedConnection);
    }
    return ConsoleResult::done();
}

ConsoleResult press(Simulator &simulator, const QStringList &arguments)
{
    QPoint position;
    QString error;
    return simulator.screenReader().findButton(arguments.first(), &position, &error)
        ? tap(simulator, position, arguments.value(1))
        : ConsoleResult::failed(error);
}

ConsoleResult tapAt(Simulator &simulator, const QStringList &arguments)
{
    QPoint position;
    QString error;
    return readPosition(arguments.at(0), arguments.at(1), &position, &error)
        ? tap(simulator, position, arguments.value(2))
        : ConsoleResult::failed(error);
}

ConsoleResult hold(Simulator &simulator, const QStringList &arguments)
{
    QPoint position;
    QString error;
    if (!readPosition(arguments.at(0), arguments.at(1), &position, &error)) {
        return ConsoleResult::failed(error);
    }
    if (simulator.finger().isDown()) {
        simulator.finger().moveTo(position);
    } else {
        simulator.finger().putDown(position);
    }
    return ConsoleResult::done();
}

ConsoleResult lift(Simulator &simulator)
{
    if (!simulator.finger().isDown()) {
        return ConsoleResult::failed(QStringLiteral("the finger is not down"));
    }
    simulator.finger().lift();
    return ConsoleResult::done();
}

ConsoleResult drag(Simulator &simulator, const QStringList &arguments)
{
    QPoint from;
    QPoint to;
    int steps = usualSteps;
    QString error;
    if (!readPosition(arguments.at(0), arguments.at(1), &from, &error)
        || !readPosition(arguments.at(2), arguments.at(3), &to, &error)
        || (arguments.size() > 4
            && !readNumber(arguments.at(4), QStringLiteral("STEPS"), 1, mostSteps, &steps,
                           &error))) {
        return ConsoleResult::failed(error);
    }
    if (simulator.finger().isDown()) {
        return ConsoleResult::failed(QStringLiteral("the finger is down; \"lift\" it first"));
    }
    simulator.finger().drag(from, to, steps);
    return ConsoleResult::done();
}

ConsoleResult pressKey(Simulator &simulator, const QString &name)
{
    for (HardKey *key : {&simulator.bezel().homeKey(), &simulator.bezel().factoryKey()}) {
        if (key->text() == name) {
            key->click();
            return ConsoleResult::done();
        }
    }
    return ConsoleResult::failed(
        QStringLiteral("there is no key \"%1\"; HOME and FACTORY are").arg(name));
}

} // namespace

void addTouchCommands(Console &console, Simulator &simulator)
{
    const auto place = Console::Place::GraphicalThread;
    console.add({QStringLiteral("press"), QStringLiteral("ID [nowait]"),
                 QStringLiteral("Taps the middle of the button with that id (without one: object "
                                "name or text); nowait does not wait for what it sets off."),
                 place, [&simulator](const QStringList &arguments, ConsoleSession &) {
                     return press(simulator, arguments);
                 }});
    console.add({QStringLiteral("tap"), QStringLiteral("X Y [nowait]"),
                 QStringLiteral("Taps the screen there."), place,
                 [&simulator](const QStringList &arguments, ConsoleSession &) {
                     return tapAt(simulator, arguments);
                 }});
    console.add({QStringLiteral("hold"), QStringLiteral("X Y"),
                 QStringLiteral("Puts the finger down there, or moves it there when it is down."),
                 place, [&simulator](const QStringList &arguments, ConsoleSession &) {
                     return hold(simulator, arguments);
                 }});
    console.add({QStringLiteral("lift"), QString(), QStringLiteral("Lifts the finger where it is."),
                 place,
                 [&simulator](const QStringList &, ConsoleSession &) { return lift(simulator); }});
    console.add({QStringLiteral("drag"), QStringLiteral("X1 Y1 X2 Y2 [STEPS]"),
                 QStringLiteral("Drags a finger over the screen, in 10 steps if not said."), place,
                 [&simulator](const QStringList &arguments, ConsoleSession &) {
                     return drag(simulator, arguments);
                 }});
    console.add({QStringLiteral("key"), QStringLiteral("HOME|FACTORY"),
                 QStringLiteral("Presses a hard key."), place,
                 [&simulator](const QStringList &arguments, ConsoleSession &) {
                     return pressKey(simulator, arguments.first());
                 }});
}

} // namespace simulator
