// The checker of GPS packages.

#include "fuzzing.h"

#include "gps/gpspackage.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    // The checker's talk.
    static const bool isSilent = (silence(), true);
    static_cast<void>(isSilent);
    static const MemoryFile file;
    file.write(data, size);
    const int result = check_file(file.path(), 0xF0F1F2F3);
    require(result == 0 || result == -1, "a package is good or it is not");
    return 0;
}
