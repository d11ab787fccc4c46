#include "versions.h"

#include <QMutexLocker>
#include <QSettings>

namespace hardware
{

namespace
{
const auto gpsKey = QStringLiteral("versions/gps");
}

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
    return value(gpsKey);
}

void Versions::setGps(const QString &version)
{
    const QMutexLocker locker(&m_mutex);
    QSettings(m_file, QSettings::IniFormat).setValue(gpsKey, version);
}

QString Versions::bluetooth() const
{
    return value(QStringLiteral("versions/bluetooth"));
}

int Versions::alsProduct() const
{
    return value(QStringLiteral("versions/alsProduct")).toInt();
}

QString Versions::value(const QString &key) const
{
    const QMutexLocker locker(&m_mutex);
    return QSettings(m_file, QSettings::IniFormat).value(key).toString();
}

} // namespace hardware
