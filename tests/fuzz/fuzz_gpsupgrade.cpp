// What the receiver answers during an upgrade, as the upgrader reads it. A byte says how many of
// the next ones come in one reading, from 128 on sixteen at a time; 0 is a moment of silence, and
// after the last one there is nothing but silence.
//
// The calls by which the upgrader reaches the line, its files and the time are taken by the linker
// (--wrap).

#include "fakeline.h"
#include "fuzzing.h"

#include "gps/gpsupgrade.h"

#include <algorithm>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static const bool isSilent = (silence(), true);
    static_cast<void>(isSilent);
    int result = 0;
    {
        const FakeLine line(data, size);
        result = upgradeStart("bootloader", "firmware");
    }
    require(result == 0 || result == -3 || result == -4, "the upgrade ends in one of its ways");
    const std::string sentence = "$GNRMC";
    require(result != 0
                || std::search(data, data + size, sentence.begin(), sentence.end()) != data + size,
            "no success without the receiver's first sentence");
    return 0;
}
