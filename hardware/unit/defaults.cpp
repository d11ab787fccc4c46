#include "defaults.h"

#include "tablefile.h"
#include "tablerow.h"

namespace hardware
{

bool Defaults::open(const QString &file, QString *error)
{
    m_values.clear();
    TableFile table;
    if (!table.read(file, error)) {
        return false;
    }
    const QString name = QStringLiteral("defaults");
    for (const TableSection &section : table.sections()) {
        if (section.name != name) {
            return TableRow(table, section, QStringLiteral("section"), error)
                .refuseName(QStringLiteral("allowed is \"%1\"").arg(name));
        }
        for (auto field = section.fields.cbegin(); field != section.fields.cend(); ++field) {
            m_values.insert(field.key(), field->value);
        }
    }
    return true;
}

QVariant Defaults::value(const QString &key) const
{
    const auto found = m_values.constFind(key);
    return found == m_values.constEnd() ? QVariant() : QVariant(*found);
}

} // namespace hardware
