#pragma once

namespace simulator
{

/// How the program "headunit" ends; its --help says the same.
enum ExitStatus {
    ExitFine = 0,
    ExitFailed = 1,
    ExitWrongUsage = 2,
    ExitPlugin = 3,
    ExitUnitFolder = 4,
    ExitDisplay = 5,
    ExitNotKept = 6,
    ExitBlocked = 7,
};

} // namespace simulator
