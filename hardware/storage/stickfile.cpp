#include "stickfile.h"

#include "hardware/unit/initext.h"
#include "hardware/unit/journal.h"
#include "hardware/unit/wholefile.h"

#include <QSettings>

namespace hardware
{

namespace
{

const QLatin1String slotField("slot");
const QLatin1String folderField("folder");
const QLatin1String mountRootKey("mountRoot");
const QLatin1String stickArray("plugged");

} // namespace

StickFile::StickFile(const QString &fileName, Journal &journal)
    : m_fileName(fileName)
    , m_journal(journal)
{
}

bool StickFile::read(QList<Stick> *sticks, QString *error) const
{
    QSettings file(m_fileName, QSettings::IniFormat);
    // QSettings looks at the lines when it is first asked for a key.
    file.allKeys();
    if (file.status() != QSettings::NoError) {
        *error = QStringLiteral("The list of plugged sticks \"%1\" cannot be read or is damaged. "
                                "It is left as it is.")
                     .arg(m_fileName);
        return false;
    }
    const int count = file.beginReadArray(stickArray);
    for (int i = 0; i < count; ++i) {
        file.setArrayIndex(i);
        sticks->append({file.value(slotField).toString(), file.value(folderField).toString(),
                        file.value(mountRootKey).toString()});
    }
    return true;
}

bool StickFile::write(const QList<Stick> &sticks, QString *error) const
{
    QMap<QString, QVariant> values{{stickArray + QStringLiteral("/size"), sticks.size()}};
    for (int i = 0; i < sticks.size(); ++i) {
        const QString stick = QStringLiteral("%1/%2/").arg(stickArray).arg(i + 1);
        values.insert(stick + slotField, sticks.at(i).slot);
        values.insert(stick + folderField, sticks.at(i).folder);
        values.insert(stick + mountRootKey, sticks.at(i).mountRoot);
    }
    QString reason;
    if (wholefile::replace(m_fileName, iniText(values), &reason)) {
        return true;
    }
    m_journal.reportFailedWrite(m_fileName, reason);
    *error = QStringLiteral("The list of plugged sticks \"%1\" cannot be written: %2.")
                 .arg(m_fileName, reason);
    return false;
}

} // namespace hardware
