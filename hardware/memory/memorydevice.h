#pragma once

#include <QMap>
#include <QMutex>
#include <QSet>
#include <QString>

#include <atomic>
#include <cstddef>

namespace hardware
{

class Journal;
class PhysicalMemory;

/// "/dev/mem" as the unit's programs use it: which descriptors and mappings of it they hold. A gate
/// tells it of their calls; each is a line of the journal, and before that line stands what was
/// written to the memory since the last one. Every function keeps errno. Thread-safe.
class MemoryDevice
{
public:
    enum Fault {
        NoFault,
        Missing,   ///< opening it fails with ENOENT
        MapRefused ///< mapping it fails with EPERM
    };

    MemoryDevice(PhysicalMemory &memory, Journal &journal);
    Q_DISABLE_COPY(MemoryDevice)

    void setFault(Fault fault);
    Fault fault() const;

    /// The device was opened; a negative \a descriptor says that errno tells why not.
    /// Journal: memory open, or memory open refused: <reason>.
    void opened(int descriptor);

    bool isOpen(int descriptor) const;

    /// \a length bytes at the physical \a address were mapped to \a start; null says that errno
    /// tells why not. Journal: memory map <address>, or memory map <address> refused: <reason>.
    void mapped(void *start, std::size_t length, quint32 address);

    /// Whether a mapping of the device lies there.
    bool isMapped(const void *place) const;

    /// The descriptor is about to be closed. Journal: memory close.
    void closing(int descriptor);

    /// Memory from \a place on, where isMapped() was true, was to be unmapped; if not \a done,
    /// errno tells why not. Journal: memory unmap <physical address>, or … refused: <reason>.
    void unmapped(const void *place, bool done);

    /// The programs have ended: what they left open or mapped is theirs no more.
    void programsEnded();

    /// How many mappings the programs hold.
    int mappings() const;

private:
    struct Mapping
    {
        void *start;
        std::size_t length;
        quint32 address;
    };
    using Mappings = QMap<quintptr, Mapping>;

    Mappings::const_iterator mappingAt(const void *place) const;
    void journal(const QString &text, const QString &refusal);

    PhysicalMemory &m_memory;
    Journal &m_journal;
    std::atomic<Fault> m_fault{NoFault};
    mutable QMutex m_mutex;
    QSet<int> m_descriptors;
    Mappings m_mappings; // by their first byte
    // So that the many calls that have nothing to do with the device take no lock.
    std::atomic<bool> m_hasDescriptors{false};
    std::atomic<bool> m_hasMappings{false};
};

} // namespace hardware
