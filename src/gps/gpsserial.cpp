#include "gpsserial.h"

#include <fcntl.h>
#include <sys/ioctl.h>
#include <sys/select.h>
#include <sys/time.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>

int use_select_wait = 0;

namespace
{

constexpr char serialPort[] = "/dev/ttyS3";

constexpr int selectTimeoutUs = 100;
constexpr int selectRounds = 2;
constexpr int selectLimit = 1024; // of descriptors
constexpr int pollUs = 1000;
constexpr int measurements = 10;
constexpr int lineLostStatus = -5;

/// In 64 bits: a clock that is set meanwhile, by half an hour and more, must not overflow it.
std::int64_t microsecondsSince(const timeval &begin)
{
    timeval now;
    gettimeofday(&now, nullptr);
    return std::int64_t(now.tv_usec) - begin.tv_usec
        + 1000000 * (std::int64_t(now.tv_sec) - begin.tv_sec);
}

int selectReadable(int fd)
{
    fd_set readable;
    FD_ZERO(&readable);
    FD_SET(fd, &readable);
    timeval timeout = {0, selectTimeoutUs};
    return select(selectLimit, &readable, nullptr, nullptr, &timeout);
}

int waitBySelect(int fd)
{
    int result = 0;
    for (int round = 0; round < selectRounds; ++round) {
        result = selectReadable(fd);
        if (result > 0 || (result < 0 && errno != EINTR)) {
            break;
        }
    }
    return result;
}

int waitByPolling(int fd)
{
    timeval begin;
    gettimeofday(&begin, nullptr);
    int result = 0;
    do {
        int count = 0;
        result = ioctl(fd, FIONREAD, &count);
        if (count > 0) {
            return count;
        }
    } while (microsecondsSince(begin) < pollUs);
    return result;
}

} // namespace

int wait_readable(int fd)
{
    return use_select_wait != 0 ? waitBySelect(fd) : waitByPolling(fd);
}

int deal_read(int fd, void *buffer, unsigned int maximum)
{
    ssize_t count = read(fd, buffer, maximum);
    while (count < 0 && (errno == EAGAIN || errno == EINTR)) {
        std::printf("read serial return -1, errno = %d, retry.\n", errno);
        count = read(fd, buffer, maximum);
    }
    if (count > 0) {
        return static_cast<int>(count);
    }
    if (count < 0) {
        std::printf("read serial return -1, errno = %d, please check serial device.\n", errno);
    } else {
        std::puts("read serial return 0, please check serial device.");
    }
    std::exit(lineLostStatus);
}

int check_select()
{
    int shortest = 0x7FFFFFFF;
    int longest = 0;
    for (int measurement = 0; measurement < measurements; ++measurement) {
        fd_set none;
        FD_ZERO(&none);
        timeval timeout = {0, selectTimeoutUs};
        timeval begin;
        gettimeofday(&begin, nullptr);
        const int result = select(1, &none, nullptr, nullptr, &timeout);
        if (result != 0) {
            std::printf("select return with %d\n", result);
            continue;
        }
        const int elapsed = microsecondsSince(begin);
        shortest = elapsed < shortest ? elapsed : shortest;
        longest = elapsed > longest ? elapsed : longest;
    }
    std::printf("check select() for 100us: min %u, max %u\n", static_cast<unsigned int>(shortest),
                static_cast<unsigned int>(longest));
    use_select_wait = shortest < pollUs ? 1 : 0;
    return use_select_wait != 0 ? 0 : -1;
}

int set_baudrate(int fd, speed_t speed)
{
    if (fcntl(fd, F_SETFL, 0) < 0) {
        std::puts("fcntl failed!");
        return -1;
    }
    termios before;
    if (tcgetattr(fd, &before) != 0) {
        std::puts("setup serial error!");
        return -1;
    }
    termios options = before;
    tcgetattr(fd, &options);
    cfsetispeed(&options, speed);
    cfsetospeed(&options, speed);
    tcsetattr(fd, TCSANOW, &options);
    if (tcgetattr(fd, &options) != 0) {
        std::puts("get options error!");
        return -1;
    }
    options.c_cflag &= ~static_cast<tcflag_t>(CSIZE | CSTOPB | PARENB);
    options.c_cflag |= CS8;
    cfmakeraw(&options);
    if (tcsetattr(fd, TCSANOW, &options) != 0) {
        std::puts("setup serial error!");
        return -1;
    }
    return 0;
}

int initial_serialPort()
{
    const int fd = open(serialPort, O_RDWR);
    if (fd < 0) {
        std::printf("Can't open serial port!(errno=%d:%s) \n", errno, std::strerror(errno));
        return -1;
    }
    set_baudrate(fd, B230400);
    return fd;
}
