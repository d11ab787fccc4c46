#include "memorydevice.h"

#include "physicalmemory.h"

#include "hardware/unit/gatebypass.h"
#include "hardware/unit/journal.h"
#include "hardware/unit/kepterrno.h"

#include <QMutexLocker>

#include <sys/mman.h>
#include <unistd.h>

namespace hardware
{

MemoryDevice::MemoryDevice(PhysicalMemory &memory, Journal &journal)
    : m_memory(memory)
    , m_journal(journal)
{
}

void MemoryDevice::setFault(Fault fault)
{
    m_fault = fault;
}

MemoryDevice::Fault MemoryDevice::fault() const
{
    return m_fault;
}

void MemoryDevice::opened(int descriptor)
{
    const KeptErrno kept;
    const QMutexLocker locker(&m_mutex);
    if (descriptor >= 0) {
        m_descriptors.insert(descriptor);
        m_hasDescriptors = true;
    }
    journal(QStringLiteral("open"), descriptor >= 0 ? QString() : kept.reason());
}

bool MemoryDevice::isOpen(int descriptor) const
{
    if (!m_hasDescriptors) {
        return false;
    }
    const QMutexLocker locker(&m_mutex);
    return m_descriptors.contains(descriptor);
}

void MemoryDevice::mapped(void *start, std::size_t length, quint32 address)
{
    const KeptErrno kept;
    const QMutexLocker locker(&m_mutex);
    journal(QStringLiteral("map ") + PhysicalMemory::hex(address),
            start != nullptr ? QString() : kept.reason());
    if (start != nullptr) {
        m_memory.watch(address, quint32(length));
        m_mappings.insert(quintptr(start), {start, length, address});
        m_hasMappings = true;
    }
}

bool MemoryDevice::isMapped(const void *place) const
{
    if (!m_hasMappings) {
        return false;
    }
    const QMutexLocker locker(&m_mutex);
    return mappingAt(place) != m_mappings.cend();
}

void MemoryDevice::closing(int descriptor)
{
    const KeptErrno kept;
    const QMutexLocker locker(&m_mutex);
    m_descriptors.remove(descriptor);
    m_hasDescriptors = !m_descriptors.isEmpty();
    journal(QStringLiteral("close"), QString());
}

void MemoryDevice::unmapped(const void *place, bool done)
{
    const KeptErrno kept;
    const QMutexLocker locker(&m_mutex);
    const auto mapping = mappingAt(place);
    if (mapping == m_mappings.cend()) {
        return;
    }
    const quint32 address = mapping->address + quint32(quintptr(place) - mapping.key());
    journal(QStringLiteral("unmap ") + PhysicalMemory::hex(address),
            done ? QString() : kept.reason());
    if (done) {
        m_mappings.remove(mapping.key());
        m_hasMappings = !m_mappings.isEmpty();
    }
}

void MemoryDevice::programsEnded()
{
    const KeptErrno kept;
    const GateBypass toHost;
    const QMutexLocker locker(&m_mutex);
    m_memory.compare();
    for (const Mapping &mapping : qAsConst(m_mappings)) {
        munmap(mapping.start, mapping.length);
    }
    for (const int descriptor : qAsConst(m_descriptors)) {
        close(descriptor);
    }
    m_mappings.clear();
    m_descriptors.clear();
    m_hasMappings = false;
    m_hasDescriptors = false;
}

int MemoryDevice::mappings() const
{
    const QMutexLocker locker(&m_mutex);
    return m_mappings.size();
}

MemoryDevice::Mappings::const_iterator MemoryDevice::mappingAt(const void *place) const
{
    const auto address = quintptr(place);
    auto next = m_mappings.upperBound(address);
    if (next == m_mappings.cbegin()) {
        return m_mappings.cend();
    }
    --next;
    return address - next.key() < next->length ? next : m_mappings.cend();
}

void MemoryDevice::journal(const QString &text, const QString &refusal)
{
    m_memory.compare();
    m_journal.write(QStringLiteral("memory"),
                    refusal.isEmpty() ? text : text + QStringLiteral(" refused: ") + refusal);
}

} // namespace hardware
