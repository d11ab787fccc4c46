#include "registertable.h"

#include "tablefile.h"

#include <algorithm>

namespace hardware
{

namespace
{

const auto addressField = QStringLiteral("address");
const auto resetField = QStringLiteral("reset");

bool readWord(const TableFile &file, const TableSection &section, const QString &name,
              quint32 *word, QString *error)
{
    const auto field = section.fields.constFind(name);
    if (field == section.fields.constEnd()) {
        *error = file.place(section.line)
            + QStringLiteral("register \"%1\" has no field %2.").arg(section.name, name);
        return false;
    }
    bool isWord = false;
    *word = field->value.toUInt(&isWord, 16);
    if (!isWord) {
        *error = file.place(field->line)
            + QStringLiteral("register \"%1\": %2 \"%3\" is not allowed; allowed is a hexadecimal "
                             "number from 0 to FFFFFFFF.")
                  .arg(section.name, name, field->value);
    }
    return isWord;
}

bool refuseAddress(const TableFile &file, const TableSection &section, const QString &reason,
                   QString *error)
{
    const TableSection::Field field = section.fields.value(addressField);
    *error = file.place(field.line)
        + QStringLiteral("register \"%1\": address \"%2\" is not allowed; %3.")
              .arg(section.name, field.value, reason);
    return false;
}

} // namespace

bool RegisterTable::read(const QString &fileName, QString *error)
{
    m_registers.clear();
    TableFile file;
    if (!file.read(fileName, error)) {
        return false;
    }
    for (const TableSection &section : file.sections()) {
        MemoryRegister entry;
        entry.name = section.name;
        if (!readWord(file, section, addressField, &entry.address, error)
            || !readWord(file, section, resetField, &entry.reset, error)) {
            return false;
        }
        if (entry.address % sizeof(quint32) != 0) {
            return refuseAddress(file, section, QStringLiteral("allowed is a multiple of 4"),
                                 error);
        }
        const MemoryRegister *other = find(entry.address);
        if (other != nullptr) {
            return refuseAddress(
                file, section, QStringLiteral("register \"%1\" is there already").arg(other->name),
                error);
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
