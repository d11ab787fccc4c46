#pragma once

#include <QMutex>
#include <QScopedPointer>
#include <QString>
#include <QVariant>

class QSettings;

namespace hardware
{

class Journal;

/// The unit's settings store, kept in "settings.ini". Thread-safe.
class Settings
{
public:
    explicit Settings(Journal &journal);
    ~Settings();
    Q_DISABLE_COPY(Settings)

    /// False with a sentence in \a error when the file cannot be read or written.
    bool open(const QString &file, QString *error);

    /// The stored value, or \a defaultValue. Reading is not journalled.
    QVariant value(const QString &key, const QVariant &defaultValue = QVariant()) const;

    /// Stores and writes the file at once. Journal: settings <key> = <value>.
    void setValue(const QString &key, const QVariant &value);

    /// Forgets every key below "<group>/". Journal, for each: settings <key> removed.
    void removeGroup(const QString &group);

    QStringList keys() const;

private:
    void write();

    Journal &m_journal;
    mutable QMutex m_mutex;
    QScopedPointer<QSettings> m_store;
};

} // namespace hardware
