#include "fakeline.h"

#include <fcntl.h>
#include <sys/ioctl.h>
#include <sys/select.h>
#include <sys/time.h>
#include <termios.h>
#include <unistd.h>

#include <algorithm>
#include <cstdarg>
#include <cstring>

namespace
{

thread_local FakeLine *line = nullptr;

constexpr std::int64_t second = 1000000;
constexpr std::int64_t silenceUs = second / 5;
constexpr std::size_t shortReadings = 128;
constexpr char acknowledgement = 0x06;
char package[3000];

bool isLine(int descriptor)
{
    return line != nullptr && descriptor == FakeLine::descriptor();
}

} // namespace

FakeLine::FakeLine(const std::uint8_t *data, std::size_t size)
    : m_next(data)
    , m_end(data + size)
{
    descriptor();
    nextReading();
    line = this;
}

FakeLine::~FakeLine()
{
    line = nullptr;
    // The sender leaves one open where the receiver answers nonsense.
    for (std::FILE *file : m_files) {
        std::fclose(file);
    }
}

FakeLine *FakeLine::current()
{
    return line;
}

int FakeLine::descriptor()
{
    static const int descriptor = open("/dev/null", O_RDWR | O_CLOEXEC);
    return descriptor;
}

int FakeLine::readable()
{
    if (m_left == 0) {
        m_us += silenceUs;
        nextReading();
        return 0;
    }
    return int(m_left);
}

std::size_t FakeLine::read(char *buffer, std::size_t most)
{
    while (m_left == 0 && m_next != m_end) {
        nextReading();
    }
    if (m_left == 0) {
        *buffer = acknowledgement;
        return 1;
    }
    const std::size_t count = std::min(most, m_left);
    std::memcpy(buffer, m_next, count);
    m_next += count;
    m_left -= count;
    if (m_left == 0) {
        nextReading();
    }
    return count;
}

std::FILE *FakeLine::openFile()
{
    m_files.push_back(fmemopen(package, sizeof package, "rb"));
    return m_files.back();
}

void FakeLine::closeFile(std::FILE *file)
{
    m_files.erase(std::remove(m_files.begin(), m_files.end(), file), m_files.end());
}

void FakeLine::nextReading()
{
    if (m_next != m_end) {
        // Short ones byte by byte, and more than any buffer takes.
        const std::size_t told = *m_next++;
        const std::size_t length = told < shortReadings ? told : (told - shortReadings + 1) * 16;
        m_left = std::min(length, std::size_t(m_end - m_next));
    }
}

extern "C" {

int __real_open(const char *path, int flags, ...);
ssize_t __real_read(int descriptor, void *buffer, size_t count);
ssize_t __real_write(int descriptor, const void *buffer, size_t count);
int __real_close(int descriptor);
int __real_ioctl(int descriptor, unsigned long request, ...);
int __real_fcntl(int descriptor, int command, ...);
int __real_select(int count, fd_set *readable, fd_set *writable, fd_set *failed, timeval *timeout);
int __real_gettimeofday(timeval *now, void *zone);
int __real_usleep(useconds_t us);
unsigned int __real_sleep(unsigned int seconds);
int __real_tcgetattr(int descriptor, termios *settings);
int __real_tcsetattr(int descriptor, int when, const termios *settings);
int __real_tcdrain(int descriptor);
int __real_tcflush(int descriptor, int queue);
std::FILE *__real_fopen(const char *path, const char *mode);
int __real_fclose(std::FILE *file);

int __wrap_open(const char *path, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(arguments, mode_t) : 0;
    va_end(arguments);
    return line != nullptr ? FakeLine::descriptor() : __real_open(path, flags, mode);
}

ssize_t __wrap_read(int descriptor, void *buffer, size_t count)
{
    return isLine(descriptor) ? ssize_t(line->read(static_cast<char *>(buffer), count))
                              : __real_read(descriptor, buffer, count);
}

ssize_t __wrap_write(int descriptor, const void *buffer, size_t count)
{
    return isLine(descriptor) ? ssize_t(count) : __real_write(descriptor, buffer, count);
}

int __wrap_close(int descriptor)
{
    return isLine(descriptor) ? 0 : __real_close(descriptor);
}

int __wrap_ioctl(int descriptor, unsigned long request, ...)
{
    va_list arguments;
    va_start(arguments, request);
    void *const argument = va_arg(arguments, void *);
    va_end(arguments);
    if (!isLine(descriptor)) {
        return __real_ioctl(descriptor, request, argument);
    }
    *static_cast<int *>(argument) = line->readable();
    return 0;
}

int __wrap_fcntl(int descriptor, int command, ...)
{
    va_list arguments;
    va_start(arguments, command);
    void *const argument = va_arg(arguments, void *);
    va_end(arguments);
    return isLine(descriptor) ? 0 : __real_fcntl(descriptor, command, argument);
}

int __wrap_select(int count, fd_set *readable, fd_set *writable, fd_set *failed, timeval *timeout)
{
    return line != nullptr ? int(line->readable() > 0)
                           : __real_select(count, readable, writable, failed, timeout);
}

int __wrap_gettimeofday(timeval *now, void *zone)
{
    if (line == nullptr) {
        return __real_gettimeofday(now, zone);
    }
    now->tv_sec = line->microseconds() / second;
    now->tv_usec = line->microseconds() % second;
    return 0;
}

int __wrap_usleep(useconds_t us)
{
    return line != nullptr ? (line->pass(us), 0) : __real_usleep(us);
}

unsigned int __wrap_sleep(unsigned int seconds)
{
    return line != nullptr ? (line->pass(seconds * second), 0) : __real_sleep(seconds);
}

int __wrap_tcgetattr(int descriptor, termios *settings)
{
    return isLine(descriptor) ? (*settings = termios(), 0) : __real_tcgetattr(descriptor, settings);
}

int __wrap_tcsetattr(int descriptor, int when, const termios *settings)
{
    return isLine(descriptor) ? 0 : __real_tcsetattr(descriptor, when, settings);
}

int __wrap_tcdrain(int descriptor)
{
    return isLine(descriptor) ? 0 : __real_tcdrain(descriptor);
}

int __wrap_tcflush(int descriptor, int queue)
{
    return isLine(descriptor) ? 0 : __real_tcflush(descriptor, queue);
}

std::FILE *__wrap_fopen(const char *path, const char *mode)
{
    return line != nullptr ? line->openFile() : __real_fopen(path, mode);
}

int __wrap_fclose(std::FILE *file)
{
    if (line != nullptr) {
        line->closeFile(file);
    }
    return __real_fclose(file);
}

} // extern "C"
