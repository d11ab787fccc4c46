// Commands of the unit's shell, and which of their paths lead where.

#include "fuzzing.h"

#include "hardware/shell/shellcommand.h"

#include <cstring>

using namespace hardware;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    // As system() takes it.
    const QByteArray command(reinterpret_cast<const char *>(data),
                             int(strnlen(reinterpret_cast<const char *>(data), size)));
    const ShellWords words(command);
    for (const ShellWord &word : words.all()) {
        require(!word.isEmpty() && ShellWords::text(word).size() == word.size(),
                "a word has letters");
        int end = 0;
        for (const ShellLetter &letter : word) {
            require(letter.at >= end && letter.length > 0, "the letters stand one behind another");
            end = letter.at + letter.length;
        }
        require(word.last().at < command.size(), "a word stands in the command");
    }
    const ShellCommand shell(command, QByteArrayLiteral("/tmp"));
    require(shell.leavesUnit() || command.isEmpty() == shell.mapped().isEmpty(),
            "a command that may run is there");
    return 0;
}
