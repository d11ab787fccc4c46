#include "runcommand.h"

#include <cstdlib>

void runCommand(const char *command)
{
    const int status = std::system(command);
    static_cast<void>(status);
}
