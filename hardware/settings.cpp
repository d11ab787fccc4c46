#include "settings.h"

#include "journal.h"

#include <QFileInfo>
#include <QMutexLocker>
#include <QRegularExpression>
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

} // namespace

Settings::Settings(Journal &journal)
    : m_journal(journal)
{
}

Settings::~Settings() = default;

bool Settings::open(const QString &file, QString *error)
{
    const QMutexLocker locker(&m_mutex);
    m_store.reset();
    if (QFileInfo::exists(file) && !QFileInfo(file).isFile()) {
        *error = QStringLiteral("The settings \"%1\" are no file.").arg(file);
        return false;
    }
    QScopedPointer<QSettings> store(new QSettings(file, QSettings::IniFormat));
    // QSettings looks at the lines when it is first asked for a key.
    store->allKeys();
    if (store->status() == QSettings::FormatError) {
        *error = QStringLiteral("The settings file \"%1\" is damaged: it holds a line that is "
                                "neither \"[group]\" nor \"key=value\". It is left as it is.")
                     .arg(file);
        return false;
    }
    if (store->status() != QSettings::NoError || !store->isWritable()) {
        *error = QStringLiteral("The settings file \"%1\" cannot be read and written.").arg(file);
        return false;
    }
    m_store.swap(store);
    return true;
}

QVariant Settings::value(const QString &key, const QVariant &defaultValue) const
{
    const QMutexLocker locker(&m_mutex);
    return m_store ? m_store->value(key, defaultValue) : defaultValue;
}

void Settings::setValue(const QString &key, const QVariant &value)
{
    const QMutexLocker locker(&m_mutex);
    Q_ASSERT_X(m_store, "Settings::setValue", "open() comes first");
    m_store->setValue(key, value);
    m_journal.write(QStringLiteral("settings"), QStringLiteral("%1 = %2").arg(key, shown(value)));
    write();
}

void Settings::removeGroup(const QString &group)
{
    const QMutexLocker locker(&m_mutex);
    Q_ASSERT_X(m_store, "Settings::removeGroup", "open() comes first");
    const QStringList keys = m_store->allKeys().filter(QRegularExpression(
        QLatin1Char('^') + QRegularExpression::escape(group + QLatin1Char('/'))));
    for (const QString &key : keys) {
        m_store->remove(key);
        m_journal.write(QStringLiteral("settings"), QStringLiteral("%1 removed").arg(key));
    }
    write();
}

QStringList Settings::keys() const
{
    const QMutexLocker locker(&m_mutex);
    return m_store ? m_store->allKeys() : QStringList();
}

void Settings::write()
{
    m_store->sync();
    if (m_store->status() != QSettings::NoError) {
        m_journal.write(QStringLiteral("settings"),
                        QStringLiteral("cannot be written to %1").arg(m_store->fileName()));
    }
}

} // namespace hardware
