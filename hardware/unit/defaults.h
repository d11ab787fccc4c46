#pragma once

#include <QHash>
#include <QString>
#include <QVariant>

namespace hardware
{

/// The table "defaults.ini": values that settings have until they are first stored. Read once;
/// thread-safe from then on.
class Defaults
{
public:
    /// False with a sentence in \a error that names the file and what is wrong with it.
    bool open(const QString &file, QString *error);

    /// Invalid for a key that the table does not name.
    QVariant value(const QString &key) const;

private:
    QHash<QString, QString> m_values;
};

} // namespace hardware
