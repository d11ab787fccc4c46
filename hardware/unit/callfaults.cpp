#include "callfaults.h"

#include "journal.h"

#include <QMutexLocker>

#include <algorithm>

namespace hardware
{

CallFaults::CallFaults(Journal &journal)
    : m_journal(journal)
{
}

void CallFaults::add(const QString &call, int number)
{
    Q_ASSERT(number >= 1);
    const QMutexLocker locker(&m_mutex);
    m_faults.append({call, number});
    m_isEmpty = false;
}

QStringList CallFaults::pending() const
{
    const QMutexLocker locker(&m_mutex);
    QStringList texts;
    for (const Fault &fault : m_faults) {
        texts.append(QStringLiteral("%1 %2").arg(fault.number).arg(fault.call));
    }
    return texts;
}

void CallFaults::clear()
{
    const QMutexLocker locker(&m_mutex);
    m_faults.clear();
    m_isEmpty = true;
}

bool CallFaults::fails(const QString &call)
{
    if (m_isEmpty) {
        return false;
    }
    const QMutexLocker locker(&m_mutex);
    const auto isMeant = [&call](const Fault &fault) { return call.startsWith(fault.call); };
    for (Fault &fault : m_faults) {
        fault.number -= int(isMeant(fault));
    }
    const auto due = std::find_if(m_faults.begin(), m_faults.end(), [&isMeant](const Fault &fault) {
        return isMeant(fault) && fault.number <= 0;
    });
    if (due == m_faults.end()) {
        return false;
    }
    m_faults.erase(due);
    m_isEmpty = m_faults.isEmpty();
    m_journal.write(QStringLiteral("fault"), call);
    return true;
}

} // namespace hardware
