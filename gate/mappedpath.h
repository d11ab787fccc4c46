#pragma once

#include <climits>

namespace hardware
{

/// Where the gate leads a path that a file call was given. Allocates nothing and keeps errno
/// unless it is invalid.
class MappedPath
{
public:
    /// \a path may be null, and must live as long as this object.
    explicit MappedPath(const char *path);
    MappedPath(const MappedPath &) = delete;
    MappedPath &operator=(const MappedPath &) = delete;

    /// False with errno set when the call must fail.
    bool isValid() const;

    /// Null for null.
    const char *path() const;

    /// The path of the unit that it is, made plain; null for one that was not mapped.
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
