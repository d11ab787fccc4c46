#include "unitpath.h"

#include <algorithm>
#include <cstring>
#include <iterator>

namespace hardware
{

namespace
{

/// What the unit has of its own, each with everything below it.
const char *const unitPaths[] = {
    "/dev/mem", "/dev/ttyS3", "/media", "/proc/sys", "/sys/devices/platform", "/sys/module",
};

/// Where the host keeps what a unit's screen must never reach.
const char *const hostPaths[] = {
    "/dev",
    "/media",
    "/proc",
    "/sys",
};

bool equals(const char *name, std::size_t length, const char *other)
{
    return length == std::strlen(other) && std::memcmp(name, other, length) == 0;
}

} // namespace

UnitPath::UnitPath(const char *path)
{
    bool wasOfUnit = false;
    bool asksForFolder = false;
    while (*path != '\0') {
        path += std::strspn(path, "/");
        const std::size_t length = std::strcspn(path, "/");
        const bool isUp = equals(path, length, "..");
        const bool isName = length > 0 && !isUp && !equals(path, length, ".");
        asksForFolder = !isName;
        if (isUp) {
            goUp();
        } else if (isName && !append(path, length)) {
            m_length = 0;
            m_text[0] = '\0';
            m_place = TooLong;
            return;
        }
        wasOfUnit = wasOfUnit || isOfUnit();
        path += length;
    }
    if (isOfUnit()) {
        m_place = OfUnit;
    } else if (wasOfUnit) {
        m_place = Astray;
    } else if (isOfHost()) {
        m_place = OfHost;
    }
    if (asksForFolder) {
        m_text[m_length++] = '/';
    }
    m_text[m_length] = '\0';
}

UnitPath::Place UnitPath::place() const
{
    return m_place;
}

const char *UnitPath::text() const
{
    return m_text;
}

std::size_t UnitPath::length() const
{
    return m_length;
}

bool UnitPath::append(const char *name, std::size_t length)
{
    if (m_length + 1 + length >= PATH_MAX) {
        return false;
    }
    m_text[m_length++] = '/';
    std::memcpy(m_text + m_length, name, length);
    m_length += length;
    return true;
}

void UnitPath::goUp()
{
    while (m_length > 0 && m_text[--m_length] != '/') { }
}

bool UnitPath::isBelowAnyOf(const char *const *begin, const char *const *end) const
{
    return std::any_of(begin, end, [this](const char *folder) {
        const std::size_t length = std::strlen(folder);
        return m_length >= length && std::memcmp(m_text, folder, length) == 0
            && (m_length == length || m_text[length] == '/');
    });
}

bool UnitPath::isOfUnit() const
{
    return isBelowAnyOf(std::begin(unitPaths), std::end(unitPaths));
}

bool UnitPath::isOfHost() const
{
    return isBelowAnyOf(std::begin(hostPaths), std::end(hostPaths));
}

} // namespace hardware
