#include "registertable.h"

#include "hardware/unit/tablefile.h"
#include "hardware/unit/tablerow.h"

#include <algorithm>

namespace hardware
{

namespace
{

const QLatin1String addressField("address");
const QLatin1String resetField("reset");

} // namespace

bool RegisterTable::read(const QString &fileName, QString *error)
{
    m_registers.clear();
    TableFile file;
    if (!file.read(fileName, error)) {
        return false;
    }
    for (const TableSection &section : file.sections()) {
        const TableRow row(file, section, QStringLiteral("register"), error);
        MemoryRegister entry;
        entry.name = section.name;
        if (!row.hasFields({addressField, resetField})
            || !row.readWord(addressField, &entry.address)
            || !row.readWord(resetField, &entry.reset)) {
            return false;
        }
        if (entry.address % sizeof(quint32) != 0) {
            return row.refuse(addressField, QStringLiteral("allowed is a multiple of 4"));
        }
        const MemoryRegister *other = find(entry.address);
        if (other != nullptr) {
            return row.refuse(addressField,
                              QStringLiteral("register \"%1\" is there already").arg(other->name));
        }
        m_registers.append(entry);
    }
    return true;
}

const QList<MemoryRegister> &RegisterTable::all() const
{
    return m_registers;
}

const MemoryRegister *RegisterTable::find(const QString &name) const
{
    const auto found =
        std::find_if(m_registers.cbegin(), m_registers.cend(),
                     [&name](const MemoryRegister &entry) { return entry.name == name; });
    return found == m_registers.cend() ? nullptr : &*found;
}

const MemoryRegister *RegisterTable::find(quint32 address) const
{
    const auto found =
        std::find_if(m_registers.cbegin(), m_registers.cend(),
                     [address](const MemoryRegister &entry) { return entry.address == address; });
    return found == m_registers.cend() ? nullptr : &*found;
}

} // namespace hardware
