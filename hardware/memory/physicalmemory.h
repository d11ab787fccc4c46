#pragma once

#include "registertable.h"

#include <QByteArray>
#include <QFile>
#include <QMap>
#include <QMutex>

namespace hardware
{

class Journal;

/// The unit's physical memory: 32-bit addresses in the sparse file "dev/mem", with names for the
/// registers in it. Programs map that file; what they changed is found by comparing. Thread-safe.
class PhysicalMemory
{
public:
    static const quint32 pageSize = 4096;

    explicit PhysicalMemory(Journal &journal);
    Q_DISABLE_COPY(PhysicalMemory)

    /// Reads the table and makes the memory, with the registers' reset values, when there is none.
    /// False with a sentence in \a error that names the file and what is wrong with it.
    bool open(const QString &table, const QString &memory, QString *error);

    const RegisterTable &registers() const { return m_registers; }

    /// The word at \a address, whose low two bits count as 0.
    quint32 read(quint32 address) const;

    /// Changes the word at \a address, whose low two bits count as 0, from outside of any program.
    /// Journal: memory set <address> <name> <before> -> <after>, numbers as eight hexadecimal
    /// digits, the name "-" where the word has none.
    void write(quint32 address, quint32 value);

    /// Writes \a value to every register that has a name, as write() does.
    void fill(quint32 value);

    /// From now on compare() looks at the pages that these bytes touch.
    void watch(quint32 address, quint32 length);

    /// Journals each word of the watched pages that changed since the last look, in the order of
    /// the addresses: memory write <address> <name> <before> -> <after>. A write that changed
    /// nothing leaves no trace, and of several to one word the last one counts.
    void compare();

    /// "<address> <name>" as the journal has it.
    QString label(quint32 address) const;

    /// Eight hexadecimal digits.
    static QString hex(quint32 word);

private:
    bool makeMemory(QString *error);
    QByteArray bytes(quint32 address, int count) const;
    bool setBytes(quint32 address, const QByteArray &bytes);
    void comparePage(quint32 page, QByteArray *known);
    void journal(const QString &what, quint32 address, quint32 before, quint32 after) const;

    Journal &m_journal;
    RegisterTable m_registers;
    mutable QMutex m_mutex;
    mutable QFile m_file;
    QMap<quint32, QByteArray> m_watchedPages; // by address, as they were at the last look
};

} // namespace hardware
