#pragma once

#include <QList>
#include <QString>

namespace hardware
{

/// A 32-bit word of the physical memory that has a name.
struct MemoryRegister
{
    QString name;
    quint32 address; ///< a multiple of 4
    quint32 reset;   ///< its value in a new unit
};

/// The table "registers.ini": a section "[<name>]" for each register, with the fields address and
/// reset in hexadecimal.
class RegisterTable
{
public:
    /// False with a sentence in \a error that names the file, the line and what is wrong with it.
    bool read(const QString &fileName, QString *error);

    /// In the order of the file; no two have the same name or address.
    const QList<MemoryRegister> &all() const;

    /// Null when there is none of that name, or at that address.
    const MemoryRegister *find(const QString &name) const;
    const MemoryRegister *find(quint32 address) const;

private:
    QList<MemoryRegister> m_registers;
};

} // namespace hardware
