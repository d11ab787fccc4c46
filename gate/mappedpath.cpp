#include "mappedpath.h"

#include "gate.h"

#include "hardware/unit/gatebypass.h"
#include "hardware/unit/unitpath.h"

#include <cerrno>
#include <cstring>

namespace hardware
{

namespace
{

bool isInside(const UnitPath &path, const QByteArray &folder)
{
    const std::size_t length = std::size_t(folder.size());
    return path.length() >= length && std::memcmp(path.text(), folder.constData(), length) == 0
        && (path.length() == length || path.text()[length] == '/');
}

} // namespace

MappedPath::MappedPath(const char *path)
    : m_path(path)
{
    const Gate *gate = Gate::current();
    if (gate == nullptr || path == nullptr || path[0] != '/' || GateBypass::isActive()) {
        return;
    }
    const UnitPath unitPath(path);
    if (isInside(unitPath, gate->root())) {
        return;
    }
    if (unitPath.place() == UnitPath::Astray) {
        errno = EACCES;
        m_isValid = false;
    } else if (unitPath.place() == UnitPath::OfUnit) {
        const std::size_t rootLength = std::size_t(gate->root().size());
        if (rootLength + unitPath.length() >= sizeof m_buffer) {
            errno = ENAMETOOLONG;
            m_isValid = false;
            return;
        }
        std::memcpy(m_buffer, gate->root().constData(), rootLength);
        std::memcpy(m_buffer + rootLength, unitPath.text(), unitPath.length() + 1);
        m_path = m_buffer;
        m_unitPath = m_buffer + rootLength;
        m_isMemory = std::strcmp(unitPath.text(), "/dev/mem") == 0;
    }
}

bool MappedPath::isValid() const
{
    return m_isValid;
}

const char *MappedPath::path() const
{
    return m_path;
}

const char *MappedPath::unitPath() const
{
    return m_unitPath;
}

bool MappedPath::isMemory() const
{
    return m_isMemory;
}

} // namespace hardware
