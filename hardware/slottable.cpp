#include "slottable.h"

#include "tablefile.h"

#include <QStringList>

namespace hardware
{

namespace
{

const QString mediaTypeField = QStringLiteral("mediaType");
const QString controllerField = QStringLiteral("controller");
const QString mountRootField = QStringLiteral("mountRoot");

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

/// Reads one section of the table and says what is wrong with it.
class SlotReader
{
public:
    SlotReader(const TableFile &file, const TableSection &section, QString *error)
        : m_file(file)
        , m_section(section)
        , m_error(error)
    {
    }

    bool read(StorageSlot *slot) const
    {
        slot->name = m_section.name;
        return checkName() && checkFields() && readNumber(mediaTypeField, &slot->mediaType)
            && readNumber(controllerField, &slot->controllerId) && readMountRoot(&slot->mountRoot);
    }

private:
    bool refuse(int line, const QString &what, const QString &allowed) const
    {
        *m_error = m_file.place(line)
            + QStringLiteral("slot \"%1\": %2 is not allowed; allowed is %3.")
                  .arg(m_section.name, what, allowed);
        return false;
    }

    bool checkName() const
    {
        return isFileName(m_section.name)
            || refuse(m_section.line, QStringLiteral("this name"),
                      QStringLiteral("a file name without \"/\""));
    }

    bool checkFields() const
    {
        const QStringList known{mediaTypeField, controllerField, mountRootField};
        for (auto field = m_section.fields.cbegin(); field != m_section.fields.cend(); ++field) {
            if (!known.contains(field.key())) {
                return refuse(field->line, QStringLiteral("field \"%1\"").arg(field.key()),
                              known.join(QStringLiteral(", ")));
            }
        }
        for (const QString &name : known) {
            if (!m_section.fields.contains(name)) {
                *m_error = m_file.place(m_section.line)
                    + QStringLiteral("slot \"%1\" has no field %2.").arg(m_section.name, name);
                return false;
            }
        }
        return true;
    }

    bool readNumber(const QString &name, int *number) const
    {
        const TableSection::Field field = m_section.fields.value(name);
        bool isNumber = false;
        *number = field.value.toInt(&isNumber);
        return (isNumber && *number >= 0)
            || refuse(field.line, QStringLiteral("%1 \"%2\"").arg(name, field.value),
                      QStringLiteral("a whole number from 0"));
    }

    bool readMountRoot(QString *mountRoot) const
    {
        const TableSection::Field field = m_section.fields.value(mountRootField);
        *mountRoot = field.value;
        return isMountRoot(field.value)
            || refuse(field.line, QStringLiteral("mountRoot \"%1\"").arg(field.value),
                      QStringLiteral("\"/media/\" and one name other than \"flash\""));
    }

    const TableFile &m_file;
    const TableSection &m_section;
    QString *m_error;
};

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
    StorageSlot slot;
    if (!SlotReader(file, section, error).read(&slot)) {
        return false;
    }
    for (const StorageSlot &other : qAsConst(m_slots)) {
        if (other.mountRoot == slot.mountRoot) {
            *error = file.place(section.fields.value(mountRootField).line)
                + QStringLiteral("slot \"%1\": mountRoot \"%2\" is not allowed; slot \"%3\" has it "
                                 "already.")
                      .arg(slot.name, slot.mountRoot, other.name);
            return false;
        }
    }
    m_slots.append(slot);
    return true;
}

} // namespace hardware
