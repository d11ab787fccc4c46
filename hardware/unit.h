#pragma once

#include "clock.h"
#include "dabtuner.h"
#include "defaults.h"
#include "journal.h"
#include "mcu.h"
#include "settings.h"
#include "shell.h"
#include "storage.h"
#include "unitfolder.h"
#include "usbports.h"
#include "vendordata.h"
#include "versions.h"

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

    const Clock &clock() const { return m_clock; }
    Journal &journal() { return m_journal; }
    const UnitFolder &folder() const { return m_folder; }
    Settings &settings() { return m_settings; }
    Storage &storage() { return m_storage; }
    Mcu &mcu() { return m_mcu; }
    const Shell &shell() const { return m_shell; }
    const Defaults &defaults() const { return m_defaults; }
    DabTuner &dabTuner() { return m_dabTuner; }
    UsbPorts &usbPorts() { return m_usbPorts; }
    VendorData &vendorData() { return m_vendorData; }
    Versions &versions() { return m_versions; }

private:
    const Clock m_clock;
    Journal m_journal;
    UnitFolder m_folder;
    Settings m_settings;
    Storage m_storage;
    Mcu m_mcu;
    Shell m_shell;
    Defaults m_defaults;
    DabTuner m_dabTuner;
    UsbPorts m_usbPorts;
    VendorData m_vendorData;
    Versions m_versions;
};

} // namespace hardware
