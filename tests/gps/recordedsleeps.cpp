#include "recordedsleeps.h"

#include <dlfcn.h>
#include <unistd.h>

#include <atomic>

namespace
{

std::atomic<RecordedSleeps *> recorder(nullptr);

template <typename Call> Call next(const char *name)
{
    return reinterpret_cast<Call>(dlsym(RTLD_NEXT, name));
}

} // namespace

RecordedSleeps::RecordedSleeps(int parts, const std::function<void()> &watch)
    : m_thread(std::this_thread::get_id())
    , m_parts(parts)
    , m_watch(watch)
{
    recorder = this;
}

RecordedSleeps::~RecordedSleeps()
{
    recorder = nullptr;
}

const QVector<qint64> &RecordedSleeps::all() const
{
    return m_all;
}

bool RecordedSleeps::take(qint64 microseconds)
{
    if (std::this_thread::get_id() != m_thread) {
        return false;
    }
    m_all.append(microseconds);
    if (m_watch) {
        m_watch();
    }
    return true;
}

extern "C" int usleep(useconds_t microseconds)
{
    static const auto original = next<int (*)(useconds_t)>("usleep");
    RecordedSleeps *sleeps = recorder;
    const bool isTaken = sleeps != nullptr && sleeps->take(microseconds);
    return original(isTaken ? microseconds / useconds_t(sleeps->parts()) : microseconds);
}

extern "C" unsigned int sleep(unsigned int seconds)
{
    static const auto original = next<unsigned int (*)(unsigned int)>("sleep");
    RecordedSleeps *sleeps = recorder;
    if (sleeps == nullptr || !sleeps->take(seconds * qint64(1000000))) {
        return original(seconds);
    }
    next<int (*)(useconds_t)>("usleep")(seconds * 1000000 / useconds_t(sleeps->parts()));
    return 0;
}
