#include "gpspackage.h"

#include <endian.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>
#include <vector>

namespace
{

constexpr std::uint32_t headerSize = 32;
constexpr std::uint16_t headerCrcLength = 28;
constexpr std::size_t sumOffset = 4;
constexpr std::size_t lengthOffset = 12;
constexpr std::size_t headerCrcOffset = 28;
constexpr int dumpColumns = 16;

constexpr std::size_t payloadBufferSize = 4096;
constexpr std::uint32_t readSize = 1024;

/// The stream's own buffer, so large that the calls of the system cost little beside the sum.
constexpr std::size_t streamBufferSize = 65536;

using File = std::unique_ptr<std::FILE, int (*)(std::FILE *)>;

std::uint32_t littleEndian32(const unsigned char *bytes)
{
    std::uint32_t value;
    std::memcpy(&value, bytes, sizeof value);
    return le32toh(value);
}

std::uint16_t littleEndian16(const unsigned char *bytes)
{
    return static_cast<std::uint16_t>(bytes[0] | bytes[1] << 8);
}

std::uint32_t sumOfWords(const unsigned char *bytes, std::size_t words)
{
    std::uint32_t sum = 0;
    for (std::size_t word = 0; word < words; ++word) {
        sum += littleEndian32(bytes + word * sizeof sum);
    }
    return sum;
}

/// False when the payload ends before its length.
bool sumPayload(std::FILE *file, std::uint32_t length, std::uint32_t *sum)
{
    const std::size_t wordSize = sizeof *sum;
    unsigned char payload[payloadBufferSize];
    *sum = 0;
    while (length != 0) {
        // Cleared for each reading: the last word may be a partial one.
        std::memset(payload, 0, sizeof payload);
        const std::size_t count = std::fread(payload, 1, std::min(length, readSize), file);
        if (count == 0) {
            return false;
        }
        *sum += sumOfWords(payload, (count + wordSize - 1) / wordSize);
        length -= static_cast<std::uint32_t>(count);
    }
    return true;
}

bool checkHeader(const unsigned char *header)
{
    dump(header, static_cast<int>(headerSize));
    const std::uint16_t crc = get_crc16(header, headerCrcLength);
    std::printf("crc16  [%08x]\n", static_cast<unsigned int>(crc));
    return crc == littleEndian16(header + headerCrcOffset);
}

bool checkPayload(std::FILE *file, const unsigned char *header)
{
    std::uint32_t sum = 0;
    if (!sumPayload(file, littleEndian32(header + lengthOffset), &sum)) {
        return false;
    }
    std::printf("checksum  [%08x]\n\n", static_cast<unsigned int>(sum));
    return sum == littleEndian32(header + sumOffset);
}

} // namespace

std::uint16_t get_crc16(const void *data, std::uint16_t length)
{
    const unsigned char *bytes = static_cast<const unsigned char *>(data);
    unsigned int crc = 0;
    for (std::uint16_t index = 0; index < length; ++index) {
        crc ^= static_cast<unsigned int>(bytes[index]) << 8;
        for (int bit = 0; bit < 8; ++bit) {
            crc = (crc & 0x8000) != 0 ? crc << 1 ^ 0x1021 : crc << 1;
        }
    }
    return static_cast<std::uint16_t>(crc);
}

void dump(const void *data, int length)
{
    const unsigned char *bytes = static_cast<const unsigned char *>(data);
    for (int index = 0; index < length; ++index) {
        const int column = index % dumpColumns;
        if (column == 0) {
            std::printf("%04x:", static_cast<unsigned int>(index));
        } else if (column == dumpColumns / 2) {
            std::printf(" -");
        }
        std::printf(" %02x", static_cast<unsigned int>(bytes[index]));
        if (column == dumpColumns - 1 || index == length - 1) {
            std::putchar('\n');
        }
    }
}

int get_file_size(const char *path)
{
    struct stat status;
    return stat(path, &status) == 0 ? static_cast<int>(status.st_size) : -1;
}

int check_file(const char *path, std::uint32_t magic)
{
    static_cast<void>(magic);
    std::vector<char> streamBuffer(streamBufferSize); // outlives the stream
    const File file(std::fopen(path, "rb"), std::fclose);
    if (file == nullptr) {
        std::printf("\n can't open this file or not exist!(errno=%d:%s) \n", errno,
                    std::strerror(errno));
        return -1;
    }
    std::setvbuf(file.get(), streamBuffer.data(), _IOFBF, streamBuffer.size());
    const int size = get_file_size(path);
    std::printf("file size [%d]\n", size);
    if (size == 0) {
        return -1;
    }
    // A length that lies wraps it around; the payload then ends too early, which ends the check.
    std::uint32_t remaining = static_cast<std::uint32_t>(size);
    while (remaining > headerSize) {
        unsigned char header[headerSize];
        if (std::fread(header, 1, headerSize, file.get()) != headerSize || !checkHeader(header)) {
            return -1;
        }
        remaining -= littleEndian32(header + lengthOffset) + headerSize;
        if (!checkPayload(file.get(), header)) {
            return -1;
        }
    }
    return 0;
}
