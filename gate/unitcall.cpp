#include "unitcall.h"

#include "failure.h"
#include "gate.h"

#include "hardware/unit/calltimes.h"
#include "hardware/unit/gatebypass.h"
#include "hardware/unit/unit.h"

#include <fcntl.h>
#include <sys/mman.h>

#include <cerrno>
#include <cstring>
#include <initializer_list>

namespace hardware
{

namespace
{

std::string plainName(std::string name)
{
    if (name.compare(0, 2, "__") == 0) {
        name.erase(0, 2);
    }
    for (const char *ending : {"_chk", "_2", "64"}) {
        const std::size_t length = std::strlen(ending);
        if (name.size() > length && name.compare(name.size() - length, length, ending) == 0) {
            name.resize(name.size() - length);
        }
    }
    return name;
}

struct Flag
{
    int value;
    const char *name;
};

/// Of the known flags those that are set, a composed one ahead of its parts.
std::string named(int flags, std::initializer_list<Flag> known)
{
    std::string text;
    for (const Flag &flag : known) {
        if ((flags & flag.value) == flag.value) {
            text += (text.empty() ? "" : "|") + std::string(flag.name);
            flags &= ~flag.value;
        }
    }
    return text;
}

void write(const std::string &line)
{
    const int keptErrno = errno;
    Gate::current()->unit().journal().write(QStringLiteral("gate"), QString::fromStdString(line));
    errno = keptErrno;
}

void noteTime(const std::string &call, double unitSeconds, double hostSeconds)
{
    if (CallTimes::areWanted()) {
        const int keptErrno = errno;
        CallTimes::note(QString::fromStdString(call), unitSeconds, hostSeconds);
        errno = keptErrno;
    }
}

} // namespace

UnitCall::UnitCall(const char *name, const char *path, const std::string &flags)
    : m_path(path)
{
    if (m_path != nullptr) {
        m_name = plainName(name);
        m_flags = flags;
    }
}

void UnitCall::changes(const char *path)
{
    if (path != nullptr
        && Gate::current()->unit().storage().traitAt(path, StickTrait::WriteProtected) != 0) {
        m_isRefused = true;
    }
}

bool UnitCall::mustFail() const
{
    if (m_path != nullptr && failureOf(m_name + ' ' + m_path) != Failure::None) {
        return true;
    }
    if (m_isRefused) {
        errno = EROFS;
    }
    return m_isRefused;
}

void UnitCall::tell(bool failed) const
{
    if (m_path != nullptr) {
        const std::string end = failed ? std::string(") = ") + strerrorname_np(errno) : ")";
        write(m_name + "(\"" + m_path + '"' + (m_flags.empty() ? "" : ", ") + m_flags + end);
        const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - m_start;
        noteTime(m_name + ' ' + m_path, taken.count(), taken.count());
    }
}

void tellOfWait(const char *name, const std::string &asked, int result, double unitSeconds,
                double hostSeconds)
{
    if (Gate::current() == nullptr || GateBypass::isActive()) {
        return;
    }
    char end[40];
    std::snprintf(end, sizeof end, ") = %d <%.3f>", result, unitSeconds);
    write(std::string(name) + '(' + asked + end);
    noteTime(name, unitSeconds, hostSeconds);
}

std::string mapArguments(std::size_t length, int protection, int flags)
{
    const std::string access =
        named(protection, {{PROT_READ, "PROT_READ"}, {PROT_WRITE, "PROT_WRITE"}});
    return std::to_string(length) + ", " + (access.empty() ? "PROT_NONE" : access) + ", "
        + named(flags,
                {{MAP_SHARED, "MAP_SHARED"},
                 {MAP_PRIVATE, "MAP_PRIVATE"},
                 {MAP_FIXED, "MAP_FIXED"}});
}

std::string openFlags(int flags)
{
    const int access = flags & O_ACCMODE;
    const std::string text = access == O_RDONLY ? "O_RDONLY"
        : access == O_WRONLY                    ? "O_WRONLY"
                                                : "O_RDWR";
    const std::string others = named(flags,
                                     {
                                         {O_CREAT, "O_CREAT"},
                                         {O_EXCL, "O_EXCL"},
                                         {O_NOCTTY, "O_NOCTTY"},
                                         {O_TRUNC, "O_TRUNC"},
                                         {O_APPEND, "O_APPEND"},
                                         {O_NONBLOCK, "O_NONBLOCK"},
                                         {O_SYNC, "O_SYNC"},
                                         {O_DSYNC, "O_DSYNC"},
                                         {O_DIRECTORY, "O_DIRECTORY"},
                                         {O_NOFOLLOW, "O_NOFOLLOW"},
                                         {O_CLOEXEC, "O_CLOEXEC"},
                                     });
    return others.empty() ? text : text + '|' + others;
}

} // namespace hardware
