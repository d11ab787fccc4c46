#include "gpsfilecheck.h"

#include "gpspackage.h"
#include "gpsserial.h"

#include <sched.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

namespace
{

constexpr std::uint32_t bootloaderMagic = 0xF0F1F2F3;
constexpr std::uint32_t firmwareMagic = 0xF3F4F5F6;

constexpr int filesInvalid = -2;

constexpr int workerPriority = 50;
constexpr std::size_t maxGroups = 32;

void takeRealTimePriority()
{
    sched_param parameters = sched_param();
    parameters.sched_priority = workerPriority;
    if (sched_setscheduler(0, SCHED_RR, &parameters) == 0) {
        std::printf("sched_setscheduler with prio %d\n", workerPriority);
    } else {
        std::printf("warning: sched_setscheduler failed: %s\n", std::strerror(errno));
    }
}

void printUser()
{
    std::vector<gid_t> groups(static_cast<std::size_t>(std::max(0, getgroups(0, nullptr))));
    const int count = getgroups(static_cast<int>(groups.size()), groups.data());
    groups.resize(std::min(static_cast<std::size_t>(std::max(0, count)), maxGroups));
    std::string text;
    for (const gid_t group : groups) {
        text += ' ' + std::to_string(static_cast<int>(group));
    }
    std::printf("uid=%d, euid=%d, gid=%d, egid=%d, groups %s\n", static_cast<int>(getuid()),
                static_cast<int>(geteuid()), static_cast<int>(getgid()),
                static_cast<int>(getegid()), text.c_str());
}

bool checkBootloader(const char *path)
{
    std::printf("checking file: %s\n", path);
    if (check_file(path, bootloaderMagic) != 0) {
        std::puts("bootloader file error!");
        return false;
    }
    return true;
}

bool checkFirmware(const char *path)
{
    std::printf("checking file: %s\n", path);
    if (check_file(path, bootloaderMagic) != 0 && check_file(path, firmwareMagic) != 0) {
        std::puts("firmware file error!");
        return false;
    }
    return true;
}

} // namespace

int checkGpsUpdateFile(const char *bootloaderPath, const char *firmwarePath)
{
    takeRealTimePriority();
    printUser();
    std::setvbuf(stdout, nullptr, _IONBF, 0);
    std::puts("===== LODESTAR FIRMWARE UPGRADE =====");
    if (!checkBootloader(bootloaderPath) || !checkFirmware(firmwarePath)) {
        return filesInvalid;
    }
    check_select();
    std::fflush(stdout);
    std::fflush(stderr);
    return 0;
}
