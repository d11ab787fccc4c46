#pragma once

#include <climits>
#include <cstddef>

namespace hardware
{

/// An absolute path made plain, with "//", "." and ".." taken out by its text alone, and whose it
/// is: the one table of the paths that the simulated unit has in place of the host's. Neither
/// allocates nor touches errno, so that it serves in place of the C library's calls.
class UnitPath
{
public:
    enum Place {
        Elsewhere, ///< of no interest: the same for the unit and the host
        OfUnit,    ///< a path of the unit, found below the unit's folder
        OfHost,    ///< below the host's /dev, /media, /proc or /sys, and none of the unit's
        Astray,    ///< goes through a path of the unit and leaves it again by ".."
        TooLong    ///< so long that the host refuses it by itself
    };

    /// \a path must begin with a slash.
    explicit UnitPath(const char *path);

    Place place() const;

    /// The plain path; a trailing slash is kept, since it asks for a folder. Empty when too long.
    const char *text() const;
    std::size_t length() const;

private:
    bool append(const char *name, std::size_t length);
    void goUp();
    bool isBelowAnyOf(const char *const *begin, const char *const *end) const;
    bool isOfUnit() const;
    bool isOfHost() const;

    char m_text[PATH_MAX + 1]; // with room for a trailing slash
    std::size_t m_length = 0;
    Place m_place = Elsewhere;
};

} // namespace hardware
