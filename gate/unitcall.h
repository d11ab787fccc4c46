#pragma once

#include <chrono>
#include <string>

namespace hardware
{

/// A call of the C library's that the gate hands on, for the unit's journal, faults and sticks, and
/// for CallTimes.
///
/// Journal: gate <name>("<path>"[, <flags>])[ = <error>], after the call. The name is that of the
/// plain function: "open" for "__open64_2".
class UnitCall
{
public:
    /// \a path is the unit's, or null for a call that is no business of the unit's: then there is
    /// no line and no fault. \a flags are shown as they are written in C.
    UnitCall(const char *name, const char *path, const std::string &flags = std::string());
    UnitCall(const UnitCall &) = delete;
    UnitCall &operator=(const UnitCall &) = delete;

    /// It would change what is at that path of the unit; null is none.
    void changes(const char *path);

    /// Whether it is one that somebody wants to fail: errno then says with what; or one that would
    /// change a stick that is write-protected: EROFS.
    bool mustFail() const;

    /// Writes its line. Keeps errno, which is shown of a call that \a failed.
    void tell(bool failed) const;

private:
    std::string m_name;
    const char *m_path;
    std::string m_flags;
    bool m_isRefused = false;
    const std::chrono::steady_clock::time_point m_start = std::chrono::steady_clock::now();
};

/// Writes the line of a wait: gate <name>(<asked>) = <result> <<seconds that it took>>, in the
/// unit's time, without a line where the thread has GateBypass. Keeps errno.
void tellOfWait(const char *name, const std::string &asked, int result, double unitSeconds,
                double hostSeconds);

/// Length in bytes, protection and flags of mmap(): "4096, PROT_READ|PROT_WRITE, MAP_SHARED".
std::string mapArguments(std::size_t length, int protection, int flags);

/// The flags of open() by their names: "O_RDWR|O_SYNC".
std::string openFlags(int flags);

} // namespace hardware
