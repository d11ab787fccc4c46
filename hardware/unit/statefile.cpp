#include "statefile.h"

#include "journal.h"
#include "tablerow.h"
#include "wholefile.h"

namespace hardware
{

StateFile::StateFile(const QString &section, const QStringList &fields, Journal &journal)
    : m_sectionName(section)
    , m_fields(fields)
    , m_journal(journal)
{
}

bool StateFile::open(const QString &fileName, const Check &check, QString *error)
{
    TableFile table;
    if (!table.read(fileName, error) || !findSection(table, error)) {
        return false;
    }
    const TableRow row(table, m_section, QStringLiteral("section"), error);
    if (!row.hasFields({}, m_fields) || !check(row)) {
        return false;
    }
    m_fileName = fileName;
    m_lines = table.lines();
    return true;
}

QString StateFile::value(const QString &field) const
{
    return m_section.fields.value(field).value;
}

void StateFile::setValue(const QString &field, const QString &value)
{
    Q_ASSERT(m_fields.contains(field));
    const QString text = field + QStringLiteral(" = ") + value;
    TableSection::Field &kept = m_section.fields[field];
    if (kept.line == 0) {
        m_lines.append(text);
        kept.line = m_lines.size();
    } else {
        m_lines[kept.line - 1] = text;
    }
    kept.value = value;

    QString reason;
    const QByteArray content = m_lines.join(QLatin1Char('\n')).toUtf8() + '\n';
    if (!wholefile::replace(m_fileName, content, &reason)) {
        m_journal.reportFailedWrite(m_fileName, reason);
    }
}

bool StateFile::findSection(const TableFile &table, QString *error)
{
    for (const TableSection &section : table.sections()) {
        if (section.name != m_sectionName) {
            return TableRow(table, section, QStringLiteral("section"), error)
                .refuseName(QStringLiteral("allowed is \"%1\"").arg(m_sectionName));
        }
        m_section = section;
    }
    if (table.sections().isEmpty()) {
        *error = QStringLiteral("%1 has no section [%2].").arg(table.fileName(), m_sectionName);
    }
    return !table.sections().isEmpty();
}

} // namespace hardware
