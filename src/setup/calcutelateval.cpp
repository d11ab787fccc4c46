#include "calcutelateval.h"

#include <cstdint>

int CALCUTELATE_VAL(int min, int max, int current, bool increase, int step)
{
    // The distance between two 32-bit values needs 33 bits.
    const std::int64_t room = increase ? std::int64_t(max) - current : std::int64_t(current) - min;
    if (room < step) {
        return current;
    }
    return increase ? current + step : current - step;
}
