#include "recordedsettings.h"

#include <dlfcn.h>
#include <termios.h>

namespace
{

int failingGet = 0;
int failingSet = 0;

QStringList &made()
{
    static QStringList calls;
    return calls;
}

bool isTheOne(int &count)
{
    return count > 0 && --count == 0;
}

} // namespace

QStringList RecordedSettings::calls()
{
    return made();
}

void RecordedSettings::restart(int get, int set)
{
    made().clear();
    failingGet = get;
    failingSet = set;
}

// No terminal of the host fails halfway.
extern "C" int tcgetattr(int fd, termios *options) noexcept
{
    static const auto original =
        reinterpret_cast<int (*)(int, termios *)>(dlsym(RTLD_NEXT, "tcgetattr"));
    made().append(QStringLiteral("get"));
    return isTheOne(failingGet) ? -1 : original(fd, options);
}

extern "C" int tcsetattr(int fd, int actions, const termios *options) noexcept
{
    static const auto original =
        reinterpret_cast<int (*)(int, int, const termios *)>(dlsym(RTLD_NEXT, "tcsetattr"));
    made().append(
        QStringLiteral("set %1 %2 %3").arg(actions).arg(options->c_ispeed).arg(options->c_ospeed));
    return isTheOne(failingSet) ? -1 : original(fd, actions, options);
}
