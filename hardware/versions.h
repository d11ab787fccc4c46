#pragma once

#include <QMutex>
#include <QString>

namespace hardware
{

/// Versions and identifiers of the unit's modules, kept in "versions.ini". Thread-safe.
class Versions
{
public:
    Versions();
    Q_DISABLE_COPY(Versions)

    /// False with a sentence in \a error when the file cannot be read and written.
    bool open(const QString &file, QString *error);

    QString gps() const;
    /// The receiver runs other firmware from now on.
    void setGps(const QString &version);
    QString bluetooth() const;
    /// The ambient light sensor's product identifier.
    int alsProduct() const;

private:
    QString value(const QString &key) const;

    mutable QMutex m_mutex;
    QString m_file;
};

} // namespace hardware
