#include "journalreader.h"

#include "journal.h"

#include <QMutexLocker>

namespace hardware
{

JournalReader::JournalReader(Journal &journal)
    : m_journal(journal)
    , m_position(journal.end())
{
    const QMutexLocker locker(&m_journal.m_mutex);
    m_journal.m_readers.append(this);
}

JournalReader::~JournalReader()
{
    const QMutexLocker locker(&m_journal.m_mutex);
    m_journal.m_readers.removeOne(this);
}

qint64 JournalReader::position() const
{
    const QMutexLocker locker(&m_journal.m_mutex);
    return m_position;
}

void JournalReader::goTo(qint64 position)
{
    const QMutexLocker locker(&m_journal.m_mutex);
    m_position = position;
}

void JournalReader::goToEnd()
{
    goTo(m_journal.end());
}

} // namespace hardware
