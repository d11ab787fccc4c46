#pragma once

#include "callfaults.h"
#include "clock.h"
#include "defaults.h"
#include "journal.h"
#include "mcu.h"
#include "settings.h"
#include "unitfolder.h"
#include "vendordata.h"
#include "versions.h"

#include "hardware/light/daynight.h"
#include "hardware/light/keylight.h"
#include "hardware/light/lightsensor.h"
#include "hardware/light/panel.h"
#include "hardware/memory/memorydevice.h"
#include "hardware/memory/physicalmemory.h"
#include "hardware/radio/dabtuner.h"
#include "hardware/receiver/gpsreceiver.h"
#include "hardware/shell/shell.h"
#include "hardware/storage/openfiles.h"
#include "hardware/storage/storage.h"
#include "hardware/storage/unsynced.h"
#include "hardware/update/userupdate.h"
#include "hardware/usb/ncmtest.h"
#include "hardware/usb/usbphy.h"
#include "hardware/usb/usbports.h"

namespace hardware
{

/// The whole simulated unit on one folder. Its devices live as long as it does.
class Unit
{
public:
    /// \a root is made when missing; \a timeFactor speeds the unit's time, 1 changes nothing.
    explicit Unit(const QString &root, double timeFactor = 1.0);
    Q_DISABLE_COPY(Unit)

    /// Opens the folder and every device on it. False with one sentence in \a error.
    bool open(QString *error);

    /// Forgets all that the unit has stored: settings, vendor data, thresholds, what lies in its
    /// flash. Tables, sticks, the receiver's firmware and the registers stay, and so does what is
    /// running, until the unit restarts. False with a sentence in \a error. Journal: unit factory
    /// reset.
    bool resetToFactory(QString *error);

    /// The power is cut, and comes back at once, so that the unit restarts: what runs in the shell
    /// is killed, and what was not synced is gone from its disks. What devices keep themselves
    /// stays. Journal: unit power cut, unit lost <path> for each, mcu reboot.
    void cutPower();

    /// The programs that ran on the unit have ended, as with a restart: whatever they left open or
    /// mapped goes with them.
    void programsEnded();

    /// Host paths of the files that are there only while the unit is open.
    QStringList passingFiles() const;

    const Clock &clock() const { return m_clock; }
    /// Journal: unit speed <factor>.
    void setTimeFactor(double factor);
    /// These four also of a unit that is const, as a gate has it, which tells them of every call.
    Journal &journal() const { return m_journal; }
    CallFaults &callFaults() const { return m_callFaults; }
    MemoryDevice &memoryDevice() const { return m_memoryDevice; }
    OpenFiles &openFiles() const { return m_openFiles; }
    const UnitFolder &folder() const { return m_folder; }
    Settings &settings() { return m_settings; }
    Storage &storage() { return m_storage; }
    const Storage &storage() const { return m_storage; }
    Mcu &mcu() { return m_mcu; }
    PhysicalMemory &memory() { return m_memory; }
    NcmTest &ncmTest() { return m_ncmTest; }
    const Shell &shell() const { return m_shell; }
    const Defaults &defaults() const { return m_defaults; }
    const UsbPhy &usbPhy() const { return m_usbPhy; }
    DabTuner &dabTuner() { return m_dabTuner; }
    UsbPorts &usbPorts() { return m_usbPorts; }
    UserUpdate &userUpdate() { return m_userUpdate; }
    VendorData &vendorData() { return m_vendorData; }
    Versions &versions() { return m_versions; }
    DayNight &dayNight() { return m_dayNight; }
    KeyLight &keyLight() { return m_keyLight; }
    LightSensor &lightSensor() { return m_lightSensor; }
    Panel &panel() { return m_panel; }
    GpsReceiver &gpsReceiver() { return m_gpsReceiver; }

private:
    bool openStored(const std::function<bool(const QString &file)> &prepare, QString *error);

    Clock m_clock;
    mutable Journal m_journal;
    mutable CallFaults m_callFaults{m_journal};
    UnitFolder m_folder;
    Settings m_settings;
    mutable OpenFiles m_openFiles;
    Storage m_storage;
    Mcu m_mcu;
    PhysicalMemory m_memory;
    mutable MemoryDevice m_memoryDevice;
    NcmTest m_ncmTest;
    Shell m_shell;
    Unsynced m_unsynced{m_folder};
    Defaults m_defaults;
    UsbPhy m_usbPhy;
    DabTuner m_dabTuner;
    UsbPorts m_usbPorts;
    UserUpdate m_userUpdate;
    VendorData m_vendorData;
    Versions m_versions;
    DayNight m_dayNight;
    KeyLight m_keyLight;
    LightSensor m_lightSensor;
    Panel m_panel;
    GpsReceiver m_gpsReceiver;
};

} // namespace hardware
