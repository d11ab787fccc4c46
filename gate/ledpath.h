#pragma once

#include <climits>

namespace hardware
{

/// Where the gate leads a path that a file call was given. Allocates nothing and keeps errno
/// unless it is invalid.
class LedPath
{
public:
    /// \a path may be null, and must live as long as this object.
    explicit LedPath(const char *path);
    LedPath(const LedPath &) = delete;
    LedPath &operator=(const LedPath &) = delete;

    /// False with errno set when the call must fail.
    bool isValid() const;

    /// Null for null.
    const char *path() const;

    /// The path of the unit that it is, made plain; null for one that was not led.
    const char *unitPath() const;

    /// Whether it is the unit's "/dev/mem" that was named.
    bool isMemory() const;

private:
    const char *m_path;
    const char *m_unitPath = nullptr;
    bool m_isValid = true;
    bool m_isMemory = false;
    char m_buffer[PATH_MAX];
};

} // namespace hardware
