#pragma once

#include <QList>
#include <QString>

namespace hardware
{

class TableFile;
struct TableSection;

/// One socket for removable storage.
struct StorageSlot
{
    QString name;      ///< "usb0"
    int mediaType;     ///< the platform's media type, 0 to 255
    int controllerId;  ///< hardware controller behind the socket, 0 to 255
    QString mountRoot; ///< unit path of the mount point, "/media/usb0"
};

/// The table "slots.ini" of the unit's sockets: a section "[<name>]" for each, with the fields
/// mediaType, controller and mountRoot.
class SlotTable
{
public:
    /// False with a sentence in \a error that names the file, the line, the slot, the value and
    /// what is allowed.
    bool read(const QString &fileName, QString *error);

    /// In the order of the file.
    const QList<StorageSlot> &all() const;

    /// Null, with a sentence in \a error that names the slots there are, when there is none of
    /// that name.
    const StorageSlot *find(const QString &name, QString *error) const;

private:
    bool add(const TableFile &file, const TableSection &section, QString *error);

    QList<StorageSlot> m_slots;
};

} // namespace hardware
