#include "settings.h"

#include "initext.h"
#include "journal.h"
#include "wholefile.h"

#include <QFileInfo>
#include <QMutexLocker>
#include <QSettings>
#include <QStringList>

namespace hardware
{

namespace
{

QString shown(const QVariant &value)
{
    return value.type() == QVariant::StringList ? value.toStringList().join(QStringLiteral(", "))
                                                : value.toString();
}

/// QSettings reads keys with empty parts, but leaves these out of what it is asked for. They would
/// not be read as they are written either.
bool canBeAskedFor(const QString &key)
{
    return !key.split(QLatin1Char('/')).contains(QString());
}

} // namespace

Settings::Settings(Journal &journal)
    : m_journal(journal)
{
}

bool Settings::open(const QString &file, QString *error, const std::function<bool()> &prepare)
{
    const QMutexLocker locker(&m_mutex);
    if (!prepare()) {
        return false;
    }
    m_file.clear();
    m_values.clear();
    if (QFileInfo::exists(file) && !QFileInfo(file).isFile()) {
        *error = QStringLiteral("The settings \"%1\" are no file.").arg(file);
        return false;
    }
    const QSettings store(file, QSettings::IniFormat);
    // QSettings looks at the lines when it is first asked for a key.
    const QStringList keys = store.allKeys();
    if (store.status() == QSettings::FormatError) {
        *error = QStringLiteral("The settings file \"%1\" is damaged: it holds a line that is "
                                "neither \"[group]\" nor \"key=value\". It is left as it is.")
                     .arg(file);
        return false;
    }
    if (store.status() != QSettings::NoError || !store.isWritable()) {
        *error = QStringLiteral("The settings file \"%1\" cannot be read and written.").arg(file);
        return false;
    }
    for (const QString &key : keys) {
        if (canBeAskedFor(key)) {
            m_values.insert(key, store.value(key));
        }
    }
    m_file = file;
    return true;
}

QVariant Settings::value(const QString &key, const QVariant &defaultValue) const
{
    const QMutexLocker locker(&m_mutex);
    return m_values.value(key, defaultValue);
}

void Settings::setValue(const QString &key, const QVariant &value)
{
    const QMutexLocker locker(&m_mutex);
    Q_ASSERT_X(!m_file.isEmpty(), "Settings::setValue", "open() comes first");
    m_values.insert(key, value);
    m_journal.write(QStringLiteral("settings"), QStringLiteral("%1 = %2").arg(key, shown(value)));
    write();
}

void Settings::removeGroup(const QString &group)
{
    const QMutexLocker locker(&m_mutex);
    Q_ASSERT_X(!m_file.isEmpty(), "Settings::removeGroup", "open() comes first");
    const QStringList keys = m_values.keys();
    for (const QString &key : keys) {
        if (key.startsWith(group + QLatin1Char('/'))) {
            m_values.remove(key);
            m_journal.write(QStringLiteral("settings"), QStringLiteral("%1 removed").arg(key));
        }
    }
    write();
}

QStringList Settings::keys() const
{
    const QMutexLocker locker(&m_mutex);
    return m_values.keys();
}

void Settings::write()
{
    QString reason;
    if (!wholefile::replace(m_file, iniText(m_values), &reason)) {
        m_journal.reportFailedWrite(m_file, reason);
    }
}

} // namespace hardware
