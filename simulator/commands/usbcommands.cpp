#include "allcommands.h"

#include "arguments.h"
#include "commandtable.h"

#include "hardware/unit/unit.h"
#include "simulator/simulator.h"

namespace simulator
{

namespace
{

/// Which of the words is meant; -1 with a sentence in \a error for another one.
int readWord(const QString &word, const QStringList &words, QString *error)
{
    *error = QStringLiteral("the mode is one of %1, not \"%2\"")
                 .arg(words.join(QLatin1String(", ")), word);
    return words.indexOf(word);
}

ConsoleResult setPort(hardware::UsbPorts &ports, const QString &port, const QString &mode)
{
    QString error;
    int number = 0;
    if (!readNumber(port, QStringLiteral("PORT"), 0, 1, &number, &error)) {
        return ConsoleResult::failed(error + QStringLiteral("; or \"certification\""));
    }
    // By their numbers.
    const int bcMode = readWord(
        mode, {QStringLiteral("CDP"), QStringLiteral("DCP"), QStringLiteral("SDP")}, &error);
    if (bcMode < 0) {
        return ConsoleResult::failed(error);
    }
    ports.setBcMode(unsigned(number), unsigned(bcMode));
    return ConsoleResult::done();
}

ConsoleResult setCertification(hardware::UsbPorts &ports, const QString &mode)
{
    QString error;
    if (readWord(mode, {QStringLiteral("O"), QStringLiteral("T"), QStringLiteral("M")}, &error)
        < 0) {
        return ConsoleResult::failed(error);
    }
    ports.setCertification(unsigned(mode.at(0).unicode()));
    return ConsoleResult::done();
}

ConsoleResult usb(Simulator &simulator, const QStringList &arguments, ConsoleSession &)
{
    hardware::UsbPorts &ports = simulator.unit().usbPorts();
    if (arguments.isEmpty()) {
        return ConsoleResult::done(ports.description());
    }
    const QString mode = arguments.value(1);
    return arguments.first() == QLatin1String("certification")
        ? setCertification(ports, mode)
        : setPort(ports, arguments.first(), mode);
}

} // namespace

void addUsbCommands(Console &console, Simulator &simulator)
{
    addCommands(console, simulator,
                {
                    {"usb", Console::Place::AnyThread, Effect::World, usb},
                });
}

} // namespace simulator
