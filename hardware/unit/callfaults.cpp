#include "callfaults.h"

#include "journal.h"

#include <QMutexLocker>

#include <algorithm>

namespace hardware
{

namespace
{

QString withFailure(const QString &call, const QString &failure)
{
    return failure.isEmpty() ? call : call + QLatin1Char(' ') + failure;
}

} // namespace

CallFaults::CallFaults(Journal &journal)
    : m_journal(journal)
{
}

void CallFaults::add(const QString &call, int number, const QString &failure, Span span)
{
    Q_ASSERT(number >= 1);
    const QMutexLocker locker(&m_mutex);
    m_faults.append({call, number, failure, span});
    m_isEmpty = false;
}

QStringList CallFaults::pending() const
{
    const QMutexLocker locker(&m_mutex);
    QStringList texts;
    for (const Fault &fault : m_faults) {
        texts.append(QString::number(fault.number) + QLatin1Char(' ')
                     + withFailure(fault.call, fault.failure)
                     + (fault.span == FromThenOn ? QStringLiteral(" on") : QString()));
    }
    return texts;
}

void CallFaults::clear()
{
    const QMutexLocker locker(&m_mutex);
    m_faults.clear();
    m_isEmpty = true;
}

bool CallFaults::fails(const QString &call, QString *failure)
{
    if (m_isEmpty) {
        return false;
    }
    const QMutexLocker locker(&m_mutex);
    const auto due = std::find_if(m_faults.begin(), m_faults.end(), [&call](const Fault &fault) {
        return fault.isMeant(call) && fault.number == 1;
    });
    // The others come nearer, this one has been waited for.
    for (Fault &fault : m_faults) {
        fault.number -= int(fault.isMeant(call) && fault.number > 1);
    }
    if (due == m_faults.end()) {
        return false;
    }
    m_journal.write(QStringLiteral("fault"), withFailure(call, due->failure));
    if (failure != nullptr) {
        *failure = due->failure;
    }
    if (due->span == Once) {
        m_faults.erase(due);
        m_isEmpty = m_faults.isEmpty();
    }
    return true;
}

bool CallFaults::Fault::isMeant(const QString &text) const
{
    const bool isName = !call.contains(QLatin1Char(' '));
    return text == call || text.startsWith(isName ? call + QLatin1Char(' ') : call);
}

} // namespace hardware
