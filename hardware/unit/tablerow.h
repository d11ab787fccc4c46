#pragma once

#include <QString>
#include <QStringList>

namespace hardware
{

class TableFile;
struct TableSection;

/// One section of a table, read and checked field by field. What is refused becomes a sentence
/// that names the file, the line, the section, the value and what is allowed.
class TableRow
{
public:
    /// \a kind says what a section of that table stands for, "slot". All must outlive this.
    TableRow(const TableFile &file, const TableSection &section, const QString &kind,
             QString *error);

    /// Whether every field is one of \a required or \a optional, and none of \a required is
    /// missing.
    bool hasFields(const QStringList &required, const QStringList &optional = {}) const;

    bool contains(const QString &field) const;

    /// Empty when it is missing.
    QString text(const QString &field) const;

    /// Whether the field is a whole number from \a least to \a most.
    bool readNumber(const QString &field, int least, int most, int *number) const;

    /// Whether the field is a 32-bit word in hexadecimal.
    bool readWord(const QString &field, quint32 *word) const;

    /// False, with a sentence that the field's value is not allowed and \a instead of it:
    /// "allowed is …".
    bool refuse(const QString &field, const QString &instead) const;

    /// The same for the section's name.
    bool refuseName(const QString &instead) const;

private:
    bool complain(int line, const QString &what) const;

    const TableFile &m_file;
    const TableSection &m_section;
    const QString m_kind;
    QString *m_error;
};

} // namespace hardware
