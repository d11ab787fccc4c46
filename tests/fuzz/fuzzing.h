#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

/// A file in memory that is opened by its path as any other.
class MemoryFile
{
public:
    MemoryFile();
    ~MemoryFile();
    MemoryFile(const MemoryFile &) = delete;
    MemoryFile &operator=(const MemoryFile &) = delete;

    const char *path() const { return m_path.c_str(); }

    /// Replaces what it held.
    void write(const std::uint8_t *data, std::size_t size) const;

private:
    const int m_descriptor;
    const std::string m_path;
};

/// From now on nobody hears what the process prints to the standard output.
void silence();

/// Ends the process, which the fuzzer takes for a crash, unless what must hold does.
void require(bool holds, const char *what);
