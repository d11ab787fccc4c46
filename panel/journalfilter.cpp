#include "journalfilter.h"

#include "journalmodel.h"

namespace panel
{

void JournalFilter::setSource(const QString &source)
{
    m_source = source;
    invalidateFilter();
}

void JournalFilter::setText(const QString &text)
{
    m_text = text;
    invalidateFilter();
}

void JournalFilter::setCause(qint64 cause)
{
    m_cause = cause;
    invalidateFilter();
}

bool JournalFilter::filterAcceptsRow(int row, const QModelIndex &) const
{
    const JournalLine &line = static_cast<const JournalModel *>(sourceModel())->line(row);
    if (m_cause != 0) {
        return line.cause == m_cause;
    }
    const bool isOfSource = m_source.isEmpty() || line.source == m_source;
    return isOfSource
        && (m_text.isEmpty() || line.text.contains(m_text, Qt::CaseInsensitive)
            || line.source.contains(m_text, Qt::CaseInsensitive));
}

} // namespace panel
