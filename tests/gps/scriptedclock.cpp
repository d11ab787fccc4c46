#include "scriptedclock.h"

#include <dlfcn.h>

namespace
{
ScriptedClock *script = nullptr;
}

ScriptedClock::ScriptedClock(const QVector<timeval> &times)
    : m_times(times)
    , m_calls(0)
{
    script = this;
}

ScriptedClock::~ScriptedClock()
{
    script = nullptr;
}

int ScriptedClock::calls() const
{
    return m_calls;
}

timeval ScriptedClock::next()
{
    return m_times.at(qMin(m_calls++, m_times.size() - 1));
}

extern "C" int gettimeofday(timeval *time, void *zone) noexcept
{
    if (script != nullptr) {
        *time = script->next();
        return 0;
    }
    static const auto original =
        reinterpret_cast<decltype(&::gettimeofday)>(dlsym(RTLD_NEXT, "gettimeofday"));
    return original(time, zone);
}
