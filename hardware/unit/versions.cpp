#include "versions.h"

#include "tablerow.h"

#include <QMutexLocker>

#include <algorithm>

namespace hardware
{

namespace
{

const QLatin1String gpsName("gps");
const QLatin1String bluetoothName("bluetooth");
const QLatin1String alsName("alsProduct");
const QLatin1String dabName("dabSdk");
const QLatin1String allowedInteger("allowed is a whole number from -2147483648 to 2147483647");
const QLatin1String allowedText("allowed is one line without blanks at its ends");

bool isInteger(const QString &text)
{
    bool isNumber = false;
    text.toInt(&isNumber);
    return isNumber;
}

/// Whether a table can hold it: one line without blanks at its ends.
bool isPlain(const QString &text)
{
    return text == text.trimmed() && std::all_of(text.cbegin(), text.cend(), [](QChar character) {
               return character.category() != QChar::Other_Control;
           });
}

} // namespace

Versions::Versions(Journal &journal)
    : m_state(QStringLiteral("versions"), names(), journal)
{
}

bool Versions::open(const QString &file, QString *error)
{
    const QMutexLocker locker(&m_mutex);
    return m_state.open(
        file,
        [](const TableRow &row) {
            return !row.contains(alsName) || isInteger(row.text(alsName))
                || row.refuse(alsName, allowedInteger);
        },
        error);
}

QString Versions::gps() const
{
    return value(gpsName);
}

void Versions::setGps(const QString &version)
{
    const QMutexLocker locker(&m_mutex);
    m_state.setValue(gpsName, version.trimmed());
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
    return m_state.value(name);
}

bool Versions::setValue(const QString &name, const QString &value, QString *error)
{
    const bool isAllowed = name == alsName ? isInteger(value) : isPlain(value);
    if (!isAllowed) {
        *error = QStringLiteral("%1 \"%2\" is not allowed; %3")
                     .arg(name, value, name == alsName ? allowedInteger : allowedText);
        return false;
    }
    const QMutexLocker locker(&m_mutex);
    m_state.setValue(name, value);
    return true;
}

} // namespace hardware
