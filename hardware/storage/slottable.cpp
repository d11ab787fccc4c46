#include "slottable.h"

#include "hardware/unit/tablefile.h"
#include "hardware/unit/tablerow.h"

#include <QStringList>

namespace hardware
{

namespace
{

const QLatin1String mediaTypeField("mediaType");
const QLatin1String controllerField("controller");
const QLatin1String mountRootField("mountRoot");
const int largestNumber = 255;

bool isFileName(const QString &name)
{
    return !name.isEmpty() && name != QLatin1String(".") && name != QLatin1String("..")
        && !name.contains(QLatin1Char('/'));
}

bool isMountRoot(const QString &path)
{
    const QLatin1String media("/media/");
    const QString name = path.mid(media.size());
    return path.startsWith(media) && isFileName(name) && name != QLatin1String("flash");
}

bool readSlot(const TableRow &row, StorageSlot *slot)
{
    if (!isFileName(slot->name)) {
        return row.refuseName(QStringLiteral("allowed is a file name without \"/\""));
    }
    slot->mountRoot = row.text(mountRootField);
    if (!row.hasFields({mediaTypeField, controllerField, mountRootField})
        || !row.readNumber(mediaTypeField, 0, largestNumber, &slot->mediaType)
        || !row.readNumber(controllerField, 0, largestNumber, &slot->controllerId)) {
        return false;
    }
    return isMountRoot(slot->mountRoot)
        || row.refuse(mountRootField,
                      QStringLiteral("allowed is \"/media/\" and one name other than \"flash\""));
}

} // namespace

bool SlotTable::read(const QString &fileName, QString *error)
{
    m_slots.clear();
    TableFile file;
    if (!file.read(fileName, error)) {
        return false;
    }
    for (const TableSection &section : file.sections()) {
        if (!add(file, section, error)) {
            return false;
        }
    }
    return true;
}

const QList<StorageSlot> &SlotTable::all() const
{
    return m_slots;
}

const StorageSlot *SlotTable::find(const QString &name, QString *error) const
{
    QStringList names;
    for (const StorageSlot &slot : m_slots) {
        if (slot.name == name) {
            return &slot;
        }
        names.append(slot.name);
    }
    *error =
        QStringLiteral("There is no slot \"%1\"; the slots are: %2.")
            .arg(name, names.isEmpty() ? QStringLiteral("none") : names.join(QStringLiteral(", ")));
    return nullptr;
}

bool SlotTable::add(const TableFile &file, const TableSection &section, QString *error)
{
    const TableRow row(file, section, QStringLiteral("slot"), error);
    StorageSlot slot;
    slot.name = section.name;
    if (!readSlot(row, &slot)) {
        return false;
    }
    for (const StorageSlot &other : qAsConst(m_slots)) {
        if (other.mountRoot == slot.mountRoot) {
            return row.refuse(mountRootField,
                              QStringLiteral("slot \"%1\" has it already").arg(other.name));
        }
    }
    m_slots.append(slot);
    return true;
}

} // namespace hardware
