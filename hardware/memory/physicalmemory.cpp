#include "physicalmemory.h"

#include "hardware/unit/journal.h"

#include <QMutexLocker>

#include <cstring>

namespace hardware
{

namespace
{

constexpr qint64 addressSpace = Q_INT64_C(1) << 32;
constexpr int wordSize = int(sizeof(quint32));

quint32 wordAddress(quint32 address)
{
    return address & ~quint32(wordSize - 1);
}

quint32 pageAddress(quint32 address)
{
    return address & ~(PhysicalMemory::pageSize - 1);
}

quint32 wordAt(const QByteArray &bytes, int offset)
{
    quint32 word = 0;
    std::memcpy(&word, bytes.constData() + offset, sizeof word);
    return word;
}

QByteArray bytesOf(quint32 word)
{
    return QByteArray(reinterpret_cast<const char *>(&word), wordSize);
}

} // namespace

PhysicalMemory::PhysicalMemory(Journal &journal)
    : m_journal(journal)
{
}

bool PhysicalMemory::open(const QString &table, const QString &memory, QString *error)
{
    if (!m_registers.read(table, error)) {
        return false;
    }
    const QMutexLocker locker(&m_mutex);
    m_watchedPages.clear();
    m_file.close();
    m_file.setFileName(memory);
    return makeMemory(error);
}

quint32 PhysicalMemory::read(quint32 address) const
{
    const QMutexLocker locker(&m_mutex);
    return wordAt(bytes(wordAddress(address), wordSize), 0);
}

void PhysicalMemory::write(quint32 address, quint32 value)
{
    address = wordAddress(address);
    const QMutexLocker locker(&m_mutex);
    const quint32 before = wordAt(bytes(address, wordSize), 0);
    if (!setBytes(address, bytesOf(value))) {
        m_journal.write(QStringLiteral("memory"), QStringLiteral("refused set ") + label(address));
        return;
    }
    const auto page = m_watchedPages.find(pageAddress(address));
    if (page != m_watchedPages.end()) {
        page->replace(int(address % pageSize), wordSize, bytesOf(value));
    }
    journal(QStringLiteral("set"), address, before, value);
}

void PhysicalMemory::fill(quint32 value)
{
    for (const MemoryRegister &entry : m_registers.all()) {
        write(entry.address, value);
    }
}

void PhysicalMemory::watch(quint32 address, quint32 length)
{
    const QMutexLocker locker(&m_mutex);
    const qint64 end = qMin(qint64(address) + length, addressSpace);
    for (qint64 page = pageAddress(address); page < end; page += pageSize) {
        if (!m_watchedPages.contains(quint32(page))) {
            m_watchedPages.insert(quint32(page), bytes(quint32(page), int(pageSize)));
        }
    }
}

void PhysicalMemory::compare()
{
    const QMutexLocker locker(&m_mutex);
    for (auto page = m_watchedPages.begin(); page != m_watchedPages.end(); ++page) {
        comparePage(page.key(), &page.value());
    }
}

QString PhysicalMemory::label(quint32 address) const
{
    const MemoryRegister *entry = m_registers.find(address);
    return hex(address) + QLatin1Char(' ') + (entry == nullptr ? QStringLiteral("-") : entry->name);
}

QString PhysicalMemory::hex(quint32 word)
{
    return QStringLiteral("%1").arg(word, 8, 16, QLatin1Char('0')).toUpper();
}

bool PhysicalMemory::makeMemory(QString *error)
{
    const auto mode = QIODevice::ReadWrite | QIODevice::Unbuffered;
    const QString name = m_file.fileName();
    const bool isNew = !m_file.exists();
    if (isNew) {
        // Under its name the next start would take it for a memory that has its reset values.
        m_file.setFileName(name + QStringLiteral(".part"));
    }
    bool isMade =
        m_file.open(mode) && (m_file.size() >= addressSpace || m_file.resize(addressSpace));
    if (isNew && isMade) {
        for (const MemoryRegister &entry : m_registers.all()) {
            isMade = isMade && setBytes(entry.address, bytesOf(entry.reset));
        }
        isMade = isMade && m_file.rename(name) && m_file.open(mode);
    }
    if (!isMade) {
        *error = QStringLiteral("The physical memory \"%1\" cannot be read and written: %2.")
                     .arg(name, m_file.errorString());
    }
    if (isNew && !isMade) {
        m_file.remove();
    }
    return isMade;
}

QByteArray PhysicalMemory::bytes(quint32 address, int count) const
{
    QByteArray found = m_file.seek(address) ? m_file.read(count) : QByteArray();
    // What cannot be read is as empty as what was never written.
    return found.append(count - found.size(), '\0');
}

bool PhysicalMemory::setBytes(quint32 address, const QByteArray &bytes)
{
    return m_file.seek(address) && m_file.write(bytes) == bytes.size();
}

void PhysicalMemory::comparePage(quint32 page, QByteArray *known)
{
    const QByteArray found = bytes(page, int(pageSize));
    for (int offset = 0; found != *known && offset < int(pageSize); offset += wordSize) {
        const quint32 before = wordAt(*known, offset);
        const quint32 after = wordAt(found, offset);
        if (before != after) {
            journal(QStringLiteral("write"), page + quint32(offset), before, after);
            known->replace(offset, wordSize, bytesOf(after));
        }
    }
}

void PhysicalMemory::journal(const QString &what, quint32 address, quint32 before,
                             quint32 after) const
{
    m_journal.write(
        QStringLiteral("memory"),
        QStringLiteral("%1 %2 %3 -> %4").arg(what, label(address), hex(before), hex(after)));
}

} // namespace hardware
