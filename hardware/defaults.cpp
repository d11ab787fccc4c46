#include "defaults.h"

#include "tablefile.h"

namespace hardware
{

bool Defaults::open(const QString &file, QString *error)
{
    m_values.clear();
    TableFile table;
    if (!table.read(file, error)) {
        return false;
    }
    for (const TableSection &section : table.sections()) {
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
