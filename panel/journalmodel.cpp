#include "journalmodel.h"

#include "panelstyle.h"

#include <algorithm>

namespace panel
{

JournalModel::JournalModel(QObject *parent)
    : QAbstractTableModel(parent)
{
}

void JournalModel::append(const JournalLines &lines)
{
    // Of more than it holds only the end.
    const int first = std::max(0, lines.size() - mostLines);
    const int count = lines.size() - first;
    forget(int(m_lines.size()) + count - mostLines);
    if (count > 0) {
        beginInsertRows(QModelIndex(), rowCount(), rowCount() + count - 1);
        m_lines.insert(m_lines.end(), lines.cbegin() + first, lines.cend());
        endInsertRows();
    }
}

void JournalModel::clear()
{
    beginResetModel();
    m_lines.clear();
    endResetModel();
}

void JournalModel::forget(int count)
{
    if (count > 0) {
        beginRemoveRows(QModelIndex(), 0, count - 1);
        m_lines.erase(m_lines.begin(), m_lines.begin() + count);
        endRemoveRows();
    }
}

int JournalModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(m_lines.size());
}

int JournalModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(columns);
}

QVariant JournalModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid()) {
        return QVariant();
    }
    const JournalLine &line = m_lines[std::size_t(index.row())];
    if (role == Qt::ToolTipRole) {
        return line.cause == 0 ? tr("Nobody knows what this follows from.")
                               : tr("Follows from #%1: %2").arg(line.cause).arg(line.causeText);
    }
    if (role == Qt::ForegroundRole && index.column() != Text) {
        return style::dimmed;
    }
    if (role == Qt::TextAlignmentRole && index.column() <= CauseNumber) {
        return int(Qt::AlignRight | Qt::AlignVCenter);
    }
    if (role != Qt::DisplayRole) {
        return QVariant();
    }
    switch (index.column()) {
    case Time:
        return QString::number(line.seconds, 'f', 3);
    case CauseNumber:
        return line.cause == 0 ? QStringLiteral("#?") : QStringLiteral("#%1").arg(line.cause);
    case Source:
        return line.source;
    default:
        return line.text;
    }
}

QVariant JournalModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole) {
        return QVariant();
    }
    const QStringList titles = {tr("Time"), tr("Cause"), tr("Source"), tr("Line")};
    return titles.value(section);
}

} // namespace panel
