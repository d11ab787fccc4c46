#pragma once

#include "tablefile.h"

#include <QString>
#include <QStringList>

#include <functional>

namespace hardware
{

class Journal;
class TableRow;

/// What a part of the unit remembers over a restart: a table of one section that is read once and
/// written whole with each change. People may edit it, and their comments stay. Not thread-safe.
class StateFile
{
public:
    using Check = std::function<bool(const TableRow &row)>;

    /// The file's only section, and the fields that it may have.
    StateFile(const QString &section, const QStringList &fields, Journal &journal);

    /// False with a sentence in \a error when the file cannot be read, or has another section,
    /// another field, or something that \a check refuses.
    bool open(const QString &fileName, const Check &check, QString *error);

    /// Empty for a field that is missing.
    QString value(const QString &field) const;

    /// Remembers and writes; \a value is one line without blanks at its ends. A write that fails is
    /// reported to the journal, and the value lasts until the unit goes off.
    void setValue(const QString &field, const QString &value);

private:
    bool findSection(const TableFile &table, QString *error);

    const QString m_sectionName;
    const QStringList m_fields;
    Journal &m_journal;
    QString m_fileName;
    QStringList m_lines;
    TableSection m_section;
};

} // namespace hardware
