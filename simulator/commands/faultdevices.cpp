#include "faultdevices.h"

#include "arguments.h"
#include "faultycalls.h"

#include "hardware/unit/unit.h"

#include <limits>

namespace simulator
{

namespace
{

using hardware::DabTuner;
using hardware::MemoryDevice;
using hardware::StickTrait;
using hardware::Storage;
using hardware::Unit;

const int defaultPercent = 50;
const int nameColumn = 25;

struct NamedFault
{
    const char *name;
    const char *help;
};

QString explained(const QString &words, const QString &help)
{
    return words.leftJustified(nameColumn) + help;
}

/// Which of the faults has that name; -1 with a sentence in \a error for none.
int faultCalled(const QString &name, const QList<NamedFault> &faults, QString *error)
{
    QStringList names;
    for (const NamedFault &fault : faults) {
        names.append(QLatin1String(fault.name));
    }
    const int index = names.indexOf(name);
    *error = QStringLiteral("there is no such fault \"%1\"; there is: %2")
                 .arg(name, names.join(QLatin1String(", ")));
    return index;
}

bool isAlone(const QStringList &words, QString *error)
{
    *error = QStringLiteral("nothing may follow behind \"%1\"").arg(words.first());
    return words.size() == 1;
}

/// A device that has one fault at a time; numbers count from 1, 0 is none.
FaultDevice withOneAtATime(const QString &name, const QList<NamedFault> &faults,
                           const std::function<int()> &present,
                           const std::function<void(int)> &choose)
{
    return {name,
            [faults] {
                QStringList lines;
                for (const NamedFault &fault : faults) {
                    lines.append(explained(QLatin1String(fault.name), QLatin1String(fault.help)));
                }
                return lines;
            },
            [faults, present] {
                const int number = present();
                return number == 0 ? QStringList()
                                   : QStringList(QLatin1String(faults.at(number - 1).name));
            },
            [faults, choose](const QStringList &words, QString *error) {
                const int index = faultCalled(words.first(), faults, error);
                if (index < 0 || !isAlone(words, error)) {
                    return false;
                }
                choose(index + 1);
                return true;
            },
            [choose] { choose(0); }};
}

FaultDevice memoryFaults(MemoryDevice &device)
{
    // By MemoryDevice::Fault.
    return withOneAtATime(
        QStringLiteral("memory"),
        {{"missing", "/dev/mem cannot be opened"}, {"map-refused", "/dev/mem cannot be mapped"}},
        [&device] { return int(device.fault()); },
        [&device](int number) { device.setFault(MemoryDevice::Fault(number)); });
}

FaultDevice ncmFaults(hardware::NcmTest &test)
{
    return withOneAtATime(
        QStringLiteral("ncm"), {{"refused", "no NCM test can be started"}},
        [&test] { return int(test.refusesStarts()); },
        [&test](int number) { test.refuseStarts(number == 1); });
}

FaultDevice vendorFaults(hardware::VendorData &vendor)
{
    return withOneAtATime(
        QStringLiteral("vendor"),
        {{"look-up", "the vendor data refuses look-ups"},
         {"write", "the vendor data refuses writes"}},
        [&vendor] { return vendor.refusesLookUps() ? 1
                        : vendor.refusesWrites()   ? 2
                                                   : 0; },
        [&vendor](int number) {
            vendor.refuseLookUps(number == 1);
            vendor.refuseWrites(number == 2);
        });
}

FaultDevice updateFaults(hardware::UserUpdate &update)
{
    return withOneAtATime(
        QStringLiteral("update"),
        {{"silent", "a check of a package never ends"},
         {"no-data", "there is no data for an update"}},
        [&update] { return update.isSilent()   ? 1
                        : update.refusesData() ? 2
                                               : 0; },
        [&update](int number) {
            update.setSilent(number == 1);
            update.refuseData(number == 2);
        });
}

/// Their numbers are those of DabTuner::Fault, less one.
QList<NamedFault> dabFaultNames()
{
    return {{"fail", "the firmware's write fails at PERCENT (50)"},
            {"stall", "the update stands still at PERCENT (50)"},
            {"mute", "the status changes without being told"}};
}

bool setDabFault(DabTuner &tuner, const QStringList &words, QString *error)
{
    int percent = defaultPercent;
    const int index = faultCalled(words.first(), dabFaultNames(), error);
    const DabTuner::Fault fault = DabTuner::Fault(index + 1);
    if (index < 0 || ((fault == DabTuner::IsMute || words.size() > 2) && !isAlone(words, error))
        || !readNumber(words.value(1, QString::number(percent)), QStringLiteral("PERCENT"), 0, 99,
                       &percent, error)) {
        return false;
    }
    tuner.setFault(fault, percent);
    return true;
}

FaultDevice dabFaults(DabTuner &tuner)
{
    return {QStringLiteral("dab"),
            [] {
                QStringList lines;
                const QList<NamedFault> faults = dabFaultNames();
                for (const NamedFault &fault : faults) {
                    const QString percent =
                        QString::fromLatin1(fault.help).contains(QLatin1String("PERCENT"))
                        ? QStringLiteral(" [PERCENT]")
                        : QString();
                    lines.append(explained(fault.name + percent, QLatin1String(fault.help)));
                }
                return lines;
            },
            [&tuner] {
                int percent = 0;
                const DabTuner::Fault fault = tuner.fault(&percent);
                if (fault == DabTuner::NoFault) {
                    return QStringList();
                }
                const QString name = QLatin1String(dabFaultNames().at(fault - 1).name);
                return QStringList(fault == DabTuner::IsMute
                                       ? name
                                       : QStringLiteral("%1 %2").arg(name).arg(percent));
            },
            [&tuner](const QStringList &words, QString *error) {
                return setDabFault(tuner, words, error);
            },
            [&tuner] { tuner.setFault(DabTuner::NoFault, 0); }};
}

struct StickFault
{
    const char *name;
    StickTrait trait;
    const char *help;
};

const StickFault stickFaults[] = {
    {"full", StickTrait::Full, "the stick there takes no more bytes from the unit's cp"},
    {"write-protected", StickTrait::WriteProtected, "nothing on the stick there can be changed"},
    {"slow", StickTrait::Slow, "the stick there reads and writes so many bytes a second"},
};

/// What stands behind the fault's name.
QString arguments(const StickFault &fault)
{
    return fault.trait == StickTrait::Slow ? QStringLiteral(" SLOT BYTES")
                                           : QStringLiteral(" SLOT");
}

/// Calls for each stick that has one, with the value that says so.
void forEachStickFault(
    const Storage &storage,
    const std::function<void(const StickFault &fault, const QString &slot, int value)> &tell)
{
    const QList<hardware::StorageSlot> table = storage.slotTable();
    for (const StickFault &fault : stickFaults) {
        for (const hardware::StorageSlot &slot : table) {
            const int value = storage.trait(slot.name, fault.trait);
            if (value != 0) {
                tell(fault, slot.name, value);
            }
        }
    }
}

bool setStickFault(Storage &storage, const QStringList &words, QString *error)
{
    QStringList forms;
    for (const StickFault &fault : stickFaults) {
        int value = 1;
        forms.append(fault.name + arguments(fault));
        if (words.first() != QLatin1String(fault.name)
            || words.size() != forms.last().count(QLatin1Char(' ')) + 1) {
            continue;
        }
        return (fault.trait != StickTrait::Slow
                || readNumber(words.at(2), QStringLiteral("BYTES"), 1,
                              std::numeric_limits<int>::max(), &value, error))
            && storage.setTrait(words.at(1), fault.trait, value, error);
    }
    *error = QStringLiteral("of a storage slot there is only: ") + forms.join(QLatin1String(", "));
    return false;
}

FaultDevice storageFaults(Storage &storage)
{
    return {QStringLiteral("storage"),
            [] {
                QStringList lines;
                for (const StickFault &fault : stickFaults) {
                    lines.append(
                        explained(fault.name + arguments(fault), QLatin1String(fault.help)));
                }
                return lines;
            },
            [&storage] {
                QStringList present;
                forEachStickFault(
                    storage, [&](const StickFault &fault, const QString &slot, int value) {
                        const QString name = QLatin1String(fault.name) + QLatin1Char(' ') + slot;
                        present.append(fault.trait == StickTrait::Slow
                                           ? QStringLiteral("%1 %2").arg(name).arg(value)
                                           : name);
                    });
                return present;
            },
            [&storage](const QStringList &words, QString *error) {
                return setStickFault(storage, words, error);
            },
            [&storage] {
                forEachStickFault(storage, [&](const StickFault &fault, const QString &slot, int) {
                    QString ignored;
                    storage.setTrait(slot, fault.trait, 0, &ignored);
                });
            }};
}

FaultDevice receiverFaults(hardware::GpsReceiver &receiver)
{
    return {QStringLiteral("receiver"), hardware::ReceiverFaults::help,
            [&receiver] { return receiver.faults(); },
            [&receiver](const QStringList &words, QString *error) {
                return receiver.addFault(words, error);
            },
            [&receiver] { receiver.clearFaults(); }};
}

} // namespace

QList<FaultDevice> faultDevices(Unit &unit)
{
    return {faultyCalls(unit.callFaults()),     dabFaults(unit.dabTuner()),
            memoryFaults(unit.memoryDevice()),  ncmFaults(unit.ncmTest()),
            receiverFaults(unit.gpsReceiver()), storageFaults(unit.storage()),
            updateFaults(unit.userUpdate()),    vendorFaults(unit.vendorData())};
}

} // namespace simulator
