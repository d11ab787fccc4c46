#include "versions.h"

#include <QMutexLocker>
#include <QSettings>

namespace hardware
{

namespace
{

const auto gpsName = QStringLiteral("gps");
const auto bluetoothName = QStringLiteral("bluetooth");
const auto alsName = QStringLiteral("alsProduct");
const auto dabName = QStringLiteral("dabSdk");

QString key(const QString &name)
{
    return QStringLiteral("versions/") + name;
}

} // namespace

Versions::Versions() = default;

bool Versions::open(const QString &file, QString *error)
{
    const QSettings versions(file, QSettings::IniFormat);
    if (versions.status() != QSettings::NoError || !versions.isWritable()) {
        *error =
            QStringLiteral("The table of versions, \"%1\", cannot be read and written.").arg(file);
        return false;
    }
    m_file = file;
    return true;
}

QString Versions::gps() const
{
    return value(gpsName);
}

void Versions::setGps(const QString &version)
{
    setValue(gpsName, version);
}

QString Versions::bluetooth() const
{
    return value(bluetoothName);
}

int Versions::alsProduct() const
{
    return value(alsName).toInt();
}

QString Versions::dabSdk() const
{
    return value(dabName);
}

QStringList Versions::names()
{
    return {gpsName, bluetoothName, alsName, dabName};
}

QString Versions::value(const QString &name) const
{
    const QMutexLocker locker(&m_mutex);
    return QSettings(m_file, QSettings::IniFormat).value(key(name)).toString();
}

void Versions::setValue(const QString &name, const QString &value)
{
    const QMutexLocker locker(&m_mutex);
    QSettings(m_file, QSettings::IniFormat).setValue(key(name), value);
}

} // namespace hardware
