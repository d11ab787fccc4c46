#include "shelltext.h"

#include <cstdio>
#include <cstring>

namespace
{

bool fits(int length, char *buffer, std::size_t size)
{
    // A negative one, after an error, becomes larger than any buffer.
    if (static_cast<std::size_t>(length) < size) {
        return true;
    }
    std::memset(buffer, 0, size);
    return false;
}

} // namespace

bool isPlainForShell(const char *path)
{
    for (const char *c = path; *c != '\0'; ++c) {
        const auto byte = static_cast<unsigned char>(*c);
        if (byte <= ' ' || byte == 0x7F || std::strchr("|&;<>()$`\\\"'*?[]#~!{}", *c) != nullptr) {
            return false;
        }
    }
    return true;
}

bool formatCommand(char *buffer, std::size_t size, const char *format, const char *path)
{
    std::memset(buffer, 0, size);
    return fits(std::snprintf(buffer, size, format, path), buffer, size);
}

bool formatCommand(char *buffer, std::size_t size, const char *format, const char *source,
                   const char *path)
{
    std::memset(buffer, 0, size);
    return fits(std::snprintf(buffer, size, format, source, path), buffer, size);
}
