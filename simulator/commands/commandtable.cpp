#include "commandtable.h"

namespace simulator
{

void addCommands(Console &console, Simulator &simulator, std::initializer_list<CommandRow> table)
{
    for (const CommandRow &row : table) {
        const auto function = row.function;
        console.add({QString::fromLatin1(row.name), QString::fromLatin1(row.usage),
                     QString::fromLatin1(row.help), row.place,
                     [&simulator, function](const QStringList &arguments, ConsoleSession &session) {
                         return function(simulator, arguments, session);
                     }});
    }
}

} // namespace simulator
