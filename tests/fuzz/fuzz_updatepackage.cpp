// The reader of user update packages.

#include "fuzzing.h"

#include "hardware/update/updatepackage.h"

using hardware::UpdatePackage;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static const MemoryFile file;
    file.write(data, size);
    UpdatePackage package(QString::fromLatin1(file.path()));
    const int pieceLength = 100;
    int pieces = 0;
    while (package.readOn(pieceLength)) {
        ++pieces;
    }
    require(pieces <= int(size) / pieceLength, "no more is read than there is");
    require(!UpdatePackage::name(package.result()).isEmpty(), "there is a word for the result");
    const int versionBytes = 32;
    require(package.customerVersion().size() <= versionBytes
                && package.sdkVersion().size() <= versionBytes,
            "a version is no longer than its field");
    require(package.result() != UpdatePackage::Good || size >= 84, "a good package is whole");
    return 0;
}
