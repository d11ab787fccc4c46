#pragma once

#include <QMutex>
#include <QString>
#include <QStringList>

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
    /// The software that drives the DAB tuner.
    QString dabSdk() const;

    /// The names under which the table has the values above.
    static QStringList names();
    QString value(const QString &name) const;
    /// The module of that name says something else from now on.
    void setValue(const QString &name, const QString &value);

private:
    mutable QMutex m_mutex;
    QString m_file;
};

} // namespace hardware
