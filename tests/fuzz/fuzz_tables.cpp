// The tables of the unit that people edit. The first byte says which of them the others are.

#include "fuzzing.h"

#include "hardware/light/daynight.h"
#include "hardware/memory/registertable.h"
#include "hardware/storage/slottable.h"
#include "hardware/unit/defaults.h"
#include "hardware/unit/journal.h"
#include "hardware/unit/settings.h"
#include "hardware/unit/vendordata.h"
#include "hardware/unit/versions.h"
#include "hardware/usb/usbports.h"

#include <QFile>
#include <QTemporaryDir>

using namespace hardware;

namespace
{

bool readSlots(const QString &file, QString *error)
{
    SlotTable table;
    if (!table.read(file, error)) {
        return false;
    }
    for (const StorageSlot &slot : table.all()) {
        require(slot.mountRoot.startsWith(QLatin1String("/media/"))
                    && !slot.mountRoot.contains(QLatin1String("..")),
                "sticks are mounted below /media");
        require(!slot.name.contains(QLatin1Char('/')), "a slot's name is that of a file");
    }
    return true;
}

bool readRegisters(const QString &file, QString *error)
{
    RegisterTable table;
    if (!table.read(file, error)) {
        return false;
    }
    for (const MemoryRegister &entry : table.all()) {
        require(table.find(entry.address) == table.find(entry.name), "a register is there once");
    }
    return true;
}

bool readVendorData(const QString &file, QString *error)
{
    static const QTemporaryDir folder;
    const QString memory = folder.filePath(QStringLiteral("vendor.bin"));
    QFile::remove(memory);
    Journal journal;
    VendorData data(journal);
    if (!data.open(file, memory, error)) {
        return false;
    }
    const QList<VendorItem> items = data.items();
    for (const VendorItem &item : items) {
        require(data.item(item.position).size() == item.length, "an item lies in the memory");
    }
    return true;
}

/// What is opened as a file, and journals.
template <typename Stored> bool open(const QString &file, QString *error)
{
    Journal journal;
    Stored stored(journal);
    return stored.open(file, error);
}

bool readDefaults(const QString &file, QString *error)
{
    return Defaults().open(file, error);
}

/// QSettings keeps in mind what it has read from a file of that name.
bool readSettings(const QString &file, QString *error)
{
    static const QTemporaryDir folder;
    static int number = 0;
    const QString copy = folder.filePath(QStringLiteral("settings%1.ini").arg(++number));
    require(QFile::copy(file, copy), "the file can be copied");
    Journal journal;
    Settings settings(journal);
    const bool isRead = settings.open(copy, error);
    if (isRead) {
        const QStringList keys = settings.keys();
        settings.removeGroup(QStringLiteral("none"));
        Settings again(journal);
        require(again.open(copy, error) && again.keys() == keys, "what is written is read again");
    }
    QFile::remove(copy);
    return isRead;
}

using Reader = bool (*)(const QString &file, QString *error);

const Reader readers[] = {readSlots,      readRegisters,  readVendorData, open<Versions>,
                          open<DayNight>, open<UsbPorts>, readDefaults,   readSettings};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    if (size == 0) {
        return 0;
    }
    static const MemoryFile file;
    file.write(data + 1, size - 1);
    QString error;
    const Reader reader = readers[data[0] % std::size(readers)];
    const bool isRead = reader(QString::fromLatin1(file.path()), &error);
    require(isRead == error.isEmpty(), "what is refused is told, and nothing else");
    return 0;
}
