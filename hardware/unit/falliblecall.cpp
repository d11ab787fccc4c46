#include "falliblecall.h"

#include <algorithm>
#include <cerrno>

namespace hardware
{

namespace
{

struct Error
{
    const char *name;
    int number;
};

constexpr Error errors[] = {
    {"EACCES", EACCES}, {"EAGAIN", EAGAIN}, {"EBADF", EBADF},   {"EINTR", EINTR},
    {"EIO", EIO},       {"EMFILE", EMFILE}, {"ENOENT", ENOENT}, {"ENOMEM", ENOMEM},
    {"ENOSPC", ENOSPC}, {"EPERM", EPERM},
};

QVector<FallibleCall> makeTable()
{
    const auto words = [](const char *text) { return QString::fromLatin1(text).split(u' '); };
    return {
        {"access", FallibleCall::Path, words("EIO EACCES ENOENT")},
        {"close", FallibleCall::Path, words("EIO")},
        {"fclose", FallibleCall::Path, words("EIO")},
        {"fcntl", FallibleCall::Path, words("EBADF")},
        {"fopen", FallibleCall::Path, words("EIO EACCES EMFILE ENOENT ENOSPC")},
        {"fread", FallibleCall::Path, words("EIO short")},
        {"ioctl", FallibleCall::Path, words("EIO")},
        {"mkdir", FallibleCall::Path, words("EIO EACCES ENOSPC")},
        {"mmap", FallibleCall::Path, words("ENOMEM EPERM")},
        {"open", FallibleCall::Path, words("EIO EACCES EMFILE ENOENT ENOSPC")},
        {"read", FallibleCall::Path, words("EIO EINTR short")},
        {"sched_setscheduler", FallibleCall::Nothing, words("EPERM")},
        {"select", FallibleCall::Nothing, words("EINTR ENOMEM")},
        {"stat", FallibleCall::Path, words("EIO EACCES ENOENT")},
        {"statx", FallibleCall::Path, words("EIO EACCES ENOENT")},
        {"system", FallibleCall::Command, words("1 127 EAGAIN killed")},
        {"tcdrain", FallibleCall::Path, words("EIO EINTR")},
        {"tcflush", FallibleCall::Path, words("EIO")},
        {"tcgetattr", FallibleCall::Path, words("EIO")},
        {"tcsetattr", FallibleCall::Path, words("EIO EINTR")},
        {"unlink", FallibleCall::Path, words("EIO EACCES")},
        {"write", FallibleCall::Path, words("EIO EINTR ENOSPC short")},
    };
}

} // namespace

const QVector<FallibleCall> &fallibleCalls()
{
    static const QVector<FallibleCall> table = makeTable();
    return table;
}

const FallibleCall *fallibleCall(const QString &name)
{
    const QVector<FallibleCall> &all = fallibleCalls();
    const auto found = std::find_if(all.begin(), all.end(), [&name](const FallibleCall &call) {
        return name == QLatin1String(call.name);
    });
    return found == all.end() ? nullptr : &*found;
}

int errorNumber(const QString &name)
{
    const auto *const found =
        std::find_if(std::begin(errors), std::end(errors),
                     [&name](const Error &error) { return name == QLatin1String(error.name); });
    return found == std::end(errors) ? EIO : found->number;
}

} // namespace hardware
