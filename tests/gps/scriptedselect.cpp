#include "scriptedselect.h"

#include <dlfcn.h>
#include <sys/select.h>

#include <cerrno>

namespace
{
ScriptedSelect *script = nullptr;
}

ScriptedSelect::ScriptedSelect(int fd, const QVector<Result> &results)
    : m_fd(fd)
    , m_results(results)
{
    script = this;
}

ScriptedSelect::~ScriptedSelect()
{
    script = nullptr;
}

const QVector<ScriptedSelect::Call> &ScriptedSelect::calls() const
{
    return m_calls;
}

int ScriptedSelect::select(const Call &call)
{
    m_calls.append(call);
    const Result &result = m_results.at(qMin(m_calls.size(), m_results.size()) - 1);
    errno = result.error;
    return result.value;
}

bool ScriptedSelect::isThat(const fd_set *readable) const
{
    return readable != nullptr && m_fd >= 0 && FD_ISSET(m_fd, readable);
}

extern "C" int select(int count, fd_set *readable, fd_set *writable, fd_set *exceptional,
                      timeval *timeout)
{
    if (script != nullptr) {
        return script->select({count, script->isThat(readable),
                               writable != nullptr || exceptional != nullptr, *timeout});
    }
    static const auto original = reinterpret_cast<decltype(&::select)>(dlsym(RTLD_NEXT, "select"));
    return original(count, readable, writable, exceptional, timeout);
}
