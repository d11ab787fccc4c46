#pragma once

#include "statefile.h"

#include <QMutex>
#include <QString>
#include <QStringList>

namespace hardware
{

/// Versions and identifiers of the unit's modules, kept in "versions.ini". Thread-safe.
class Versions
{
public:
    explicit Versions(Journal &journal);
    Q_DISABLE_COPY(Versions)

    /// False with a sentence in \a error that names the file, the line, the value and what is
    /// allowed.
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
    /// The module of that name says something else from now on. False with a sentence in \a error
    /// for what is no line of text, and for "alsProduct" no 32-bit integer.
    bool setValue(const QString &name, const QString &value, QString *error);

private:
    mutable QMutex m_mutex;
    StateFile m_state;
};

} // namespace hardware
