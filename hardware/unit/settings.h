#pragma once

#include <QMap>
#include <QMutex>
#include <QString>
#include <QStringList>
#include <QVariant>

#include <functional>

namespace hardware
{

class Journal;

/// The unit's settings store, kept in "settings.ini". Thread-safe.
class Settings
{
public:
    explicit Settings(Journal &journal);
    Q_DISABLE_COPY(Settings)

    /// False with a sentence in \a error when the file cannot be read or written, or as soon as
    /// \a prepare is, which comes first and shuts other threads out.
    bool open(
        const QString &file, QString *error,
        const std::function<bool()> &prepare = [] { return true; });

    /// The stored value, or \a defaultValue. Reading is not journalled.
    QVariant value(const QString &key, const QVariant &defaultValue = QVariant()) const;

    /// Stores text, bytes, a number, a switch or a list of text, and writes the file at once; a
    /// write that fails is reported to the journal. Journal: settings <key> = <value>.
    void setValue(const QString &key, const QVariant &value);

    /// Forgets every key below "<group>/". Journal, for each: settings <key> removed.
    void removeGroup(const QString &group);

    QStringList keys() const;

private:
    void write();

    Journal &m_journal;
    mutable QMutex m_mutex;
    QString m_file;
    QMap<QString, QVariant> m_values;
};

} // namespace hardware
