#include "allcommands.h"

#include "commandtable.h"

#include "hardware/unit/unit.h"
#include "simulator/simulator.h"

namespace simulator
{

namespace
{

using hardware::MemoryRegister;
using hardware::PhysicalMemory;

bool readWord(const QString &text, const QString &name, quint32 *word, QString *error)
{
    bool isWord = false;
    *word = text.toUInt(&isWord, 16);
    if (!isWord) {
        *error = QStringLiteral("%1 is a hexadecimal number from 0 to FFFFFFFF, not \"%2\"")
                     .arg(name, text);
    }
    return isWord;
}

/// The address of a register given by its name, or an address given as such.
bool readAddress(const PhysicalMemory &memory, const QString &text, quint32 *address,
                 QString *error)
{
    const MemoryRegister *named = memory.registers().find(text);
    if (named != nullptr) {
        *address = named->address;
        return true;
    }
    if (!readWord(text, QStringLiteral("ADDRESS"), address, error)) {
        *error += QStringLiteral(", and no register has that name");
        return false;
    }
    if (*address % sizeof(quint32) != 0) {
        *error = QStringLiteral("ADDRESS is a multiple of 4, not \"%1\"").arg(text);
        return false;
    }
    return true;
}

QString line(const PhysicalMemory &memory, quint32 address)
{
    return memory.label(address) + QLatin1Char(' ') + PhysicalMemory::hex(memory.read(address));
}

ConsoleResult memory(Simulator &simulator, const QStringList &arguments, ConsoleSession &)
{
    PhysicalMemory &memory = simulator.unit().memory();
    if (arguments.isEmpty()) {
        QStringList lines;
        for (const MemoryRegister &entry : memory.registers().all()) {
            lines.append(line(memory, entry.address));
        }
        return ConsoleResult::done(lines);
    }
    quint32 address = 0;
    quint32 value = 0;
    QString error;
    if (!readAddress(memory, arguments.at(0), &address, &error)
        || (arguments.size() > 1
            && !readWord(arguments.at(1), QStringLiteral("VALUE"), &value, &error))) {
        return ConsoleResult::failed(error);
    }
    if (arguments.size() > 1) {
        memory.write(address, value);
        return ConsoleResult::done();
    }
    return ConsoleResult::done({line(memory, address)});
}

ConsoleResult fillMemory(Simulator &simulator, const QStringList &arguments, ConsoleSession &)
{
    quint32 value = 0;
    QString error;
    if (!readWord(arguments.first(), QStringLiteral("VALUE"), &value, &error)) {
        return ConsoleResult::failed(error);
    }
    simulator.unit().memory().fill(value);
    return ConsoleResult::done();
}

ConsoleResult phy(Simulator &simulator, const QStringList &, ConsoleSession &)
{
    return ConsoleResult::done(simulator.unit().usbPhy().description());
}

} // namespace

void addMemoryCommands(Console &console, Simulator &simulator)
{
    const auto place = Console::Place::AnyThread;
    addCommands(console, simulator,
                {
                    {"memory", place, Effect::World, memory},
                    {"memory-fill", place, Effect::World, fillMemory},
                    {"phy", place, Effect::None, phy},
                });
}

} // namespace simulator
