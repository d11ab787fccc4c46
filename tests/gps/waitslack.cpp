#include "waitslack.h"

#include <sys/prctl.h>

void letWaitsEndLate()
{
    // Where this is refused, as by an emulator, the tests are only more work.
    prctl(PR_SET_TIMERSLACK, 400000UL); // nanoseconds
}
