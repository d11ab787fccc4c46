#pragma once

#include "journalline.h"

#include <QAbstractTableModel>

#include <deque>

namespace panel
{

/// The newest lines of the unit's journal, as a table.
class JournalModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    /// Older lines are forgotten, so that a long session needs no more memory than a short one.
    static constexpr int mostLines = 20000;

    enum Column { Time, CauseNumber, Source, Text, columns };

    explicit JournalModel(QObject *parent = nullptr);

    void append(const JournalLines &lines);
    void clear();

    const JournalLine &line(int row) const { return m_lines[std::size_t(row)]; }

    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;

private:
    void forget(int count);

    std::deque<JournalLine> m_lines;
};

} // namespace panel
