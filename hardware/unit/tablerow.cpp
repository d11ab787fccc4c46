#include "tablerow.h"

#include "tablefile.h"

namespace hardware
{

TableRow::TableRow(const TableFile &file, const TableSection &section, const QString &kind,
                   QString *error)
    : m_file(file)
    , m_section(section)
    , m_kind(kind)
    , m_error(error)
{
}

bool TableRow::hasFields(const QStringList &required, const QStringList &optional) const
{
    const QStringList known = required + optional;
    for (auto field = m_section.fields.cbegin(); field != m_section.fields.cend(); ++field) {
        if (!known.contains(field.key())) {
            return complain(field->line,
                            QStringLiteral(": field \"%1\" is not allowed; allowed is %2.")
                                .arg(field.key(), known.join(QStringLiteral(", "))));
        }
    }
    for (const QString &name : required) {
        if (!contains(name)) {
            return complain(m_section.line, QStringLiteral(" has no field %1.").arg(name));
        }
    }
    return true;
}

bool TableRow::contains(const QString &field) const
{
    return m_section.fields.contains(field);
}

QString TableRow::text(const QString &field) const
{
    return m_section.fields.value(field).value;
}

bool TableRow::readNumber(const QString &field, int least, int most, int *number) const
{
    bool isNumber = false;
    *number = text(field).toInt(&isNumber);
    return (isNumber && *number >= least && *number <= most)
        || refuse(field,
                  QStringLiteral("allowed is a whole number from %1 to %2").arg(least).arg(most));
}

bool TableRow::readWord(const QString &field, quint32 *word) const
{
    bool isWord = false;
    *word = text(field).toUInt(&isWord, 16);
    return isWord
        || refuse(field, QStringLiteral("allowed is a hexadecimal number from 0 to FFFFFFFF"));
}

bool TableRow::refuse(const QString &field, const QString &instead) const
{
    return complain(
        m_section.fields.value(field).line,
        QStringLiteral(": %1 \"%2\" is not allowed; %3.").arg(field, text(field), instead));
}

bool TableRow::refuseName(const QString &instead) const
{
    return complain(m_section.line, QStringLiteral(": this name is not allowed; %1.").arg(instead));
}

bool TableRow::complain(int line, const QString &what) const
{
    *m_error = m_file.place(line) + QStringLiteral("%1 \"%2\"").arg(m_kind, m_section.name) + what;
    return false;
}

} // namespace hardware
