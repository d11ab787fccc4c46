#include "recordedreads.h"

#include <dlfcn.h>

#include <algorithm>
#include <cstdio>

namespace
{

const std::size_t headerSize = 32;
const std::size_t bufferSize = 4096;

RecordedReads *recorder = nullptr;

} // namespace

RecordedReads::RecordedReads()
{
    recorder = this;
}

RecordedReads::~RecordedReads()
{
    recorder = nullptr;
}

const QVector<RecordedReads::Read> &RecordedReads::all() const
{
    return m_all;
}

void RecordedReads::take(const void *buffer, std::size_t wanted)
{
    const char *bytes = static_cast<const char *>(buffer);
    const auto isZero = [](char byte) { return byte == '\0'; };
    m_all.append({wanted, wanted != headerSize && std::all_of(bytes, bytes + bufferSize, isZero)});
}

extern "C" std::size_t fread(void *buffer, std::size_t size, std::size_t count, std::FILE *file)
{
    if (recorder != nullptr) {
        recorder->take(buffer, size * count);
    }
    static const auto original = reinterpret_cast<decltype(&::fread)>(dlsym(RTLD_NEXT, "fread"));
    return original(buffer, size, count, file);
}
