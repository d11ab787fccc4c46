#include "allcommands.h"

#include "arguments.h"
#include "commandtable.h"

#include "simulator/simulator.h"
#include "simulator/window/hardkey.h"
#include "simulator/window/screen.h"

namespace simulator
{

namespace
{

const int defaultSteps = 10;

/// How far, in pixels, a finger that is down may get off the glass.
const int beyondGlass = 1000;

ConsoleResult fingerIsDown()
{
    return ConsoleResult::failed(QStringLiteral("the finger is down; \"lift\" it first"));
}

/// Taps now, or, with the word "nowait", as soon as the command has been answered.
ConsoleResult tapIn(Simulator &simulator, const QPoint &position, const QString &manner)
{
    if (!manner.isEmpty() && manner != QLatin1String("nowait")) {
        return ConsoleResult::failed(
            QStringLiteral("only \"nowait\" may follow here, not \"%1\"").arg(manner));
    }
    if (simulator.finger().isDown()) {
        return fingerIsDown();
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

ConsoleResult press(Simulator &simulator, const QStringList &arguments, ConsoleSession &)
{
    QPoint position;
    QString error;
    return simulator.screenReader().findButton(arguments.first(), &position, &error)
        ? tapIn(simulator, position, arguments.value(1))
        : ConsoleResult::failed(error);
}

ConsoleResult tap(Simulator &simulator, const QStringList &arguments, ConsoleSession &)
{
    QPoint position;
    QString error;
    return readPosition(arguments.at(0), arguments.at(1), &position, &error)
        ? tapIn(simulator, position, arguments.value(2))
        : ConsoleResult::failed(error);
}

ConsoleResult hold(Simulator &simulator, const QStringList &arguments, ConsoleSession &)
{
    const bool isDown = simulator.finger().isDown();
    QPoint position;
    QString error;
    if (!readPosition(arguments.at(0), arguments.at(1), &position, &error,
                      isDown ? beyondGlass : 0)) {
        return ConsoleResult::failed(error);
    }
    if (isDown) {
        simulator.finger().moveTo(position);
    } else {
        simulator.finger().putDown(position);
    }
    return ConsoleResult::done();
}

ConsoleResult lift(Simulator &simulator, const QStringList &arguments, ConsoleSession &)
{
    QPoint position = simulator.finger().position();
    QString error;
    if (!arguments.isEmpty()
        && !readPosition(arguments.at(0), arguments.value(1), &position, &error)) {
        return ConsoleResult::failed(error);
    }
    if (!simulator.finger().isDown()) {
        return ConsoleResult::failed(QStringLiteral("the finger is not down"));
    }
    if (position != simulator.finger().position()) {
        simulator.finger().moveTo(position);
    }
    simulator.finger().lift();
    return ConsoleResult::done();
}

ConsoleResult drag(Simulator &simulator, const QStringList &arguments, ConsoleSession &)
{
    const QString steps = arguments.value(4, QString::number(defaultSteps));
    QPoint from;
    QPoint to;
    int count = 0;
    QString error;
    if (!readPosition(arguments.at(0), arguments.at(1), &from, &error)
        || !readPosition(arguments.at(2), arguments.at(3), &to, &error)
        || !readNumber(steps, QStringLiteral("STEPS"), 1, Finger::maxSteps, &count, &error)) {
        return ConsoleResult::failed(error);
    }
    if (simulator.finger().isDown()) {
        return fingerIsDown();
    }
    simulator.finger().drag(from, to, count);
    return ConsoleResult::done();
}

ConsoleResult key(Simulator &simulator, const QStringList &arguments, ConsoleSession &)
{
    for (HardKey *hardKey : {&simulator.bezel().homeKey(), &simulator.bezel().factoryKey()}) {
        if (hardKey->text() == arguments.first()) {
            if (simulator.bezel().screen().isBooting()) {
                return ConsoleResult::failed(
                    QStringLiteral("the unit is starting and takes no key"));
            }
            hardKey->click();
            return ConsoleResult::done();
        }
    }
    return ConsoleResult::failed(
        QStringLiteral("there is no key \"%1\", only HOME and FACTORY").arg(arguments.first()));
}

} // namespace

void addTouchCommands(Console &console, Simulator &simulator)
{
    const auto place = Console::Place::GraphicalThread;
    addCommands(console, simulator,
                {
                    {"press", place, Effect::None, press},
                    {"tap", place, Effect::None, tap},
                    {"hold", place, Effect::None, hold},
                    {"lift", place, Effect::None, lift},
                    {"drag", place, Effect::None, drag},
                    {"key", place, Effect::None, key},
                });
}

} // namespace simulator
