#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <vector>

/// As long as it is there, the calls of its thread to the receiver's line, the files of packages
/// and the time are not the C library's: the line says what it was given, every file is a package
/// of some blocks, and a second is over when nobody needs it any more.
class FakeLine
{
public:
    FakeLine(const std::uint8_t *data, std::size_t size);
    ~FakeLine();
    FakeLine(const FakeLine &) = delete;
    FakeLine &operator=(const FakeLine &) = delete;

    /// That of this thread; null for none.
    static FakeLine *current();

    /// Of the line.
    static int descriptor();

    /// How many bytes can be read at once. Where there are none some time passes.
    int readable();

    /// Once there is nothing left it is always an acknowledgement, so that who waits for ever does
    /// not.
    std::size_t read(char *buffer, std::size_t most);

    std::FILE *openFile();
    void closeFile(std::FILE *file);

    std::int64_t microseconds() const { return m_us; }
    void pass(std::int64_t us) { m_us += us; }

private:
    void nextReading();

    const std::uint8_t *m_next;
    const std::uint8_t *const m_end;
    std::size_t m_left = 0; // of the reading
    std::int64_t m_us = 0;
    std::vector<std::FILE *> m_files;
};
