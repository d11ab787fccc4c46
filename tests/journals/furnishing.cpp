#include "furnishing.h"

#include "scenarios/headunitrun.h"
#include "support/packages.h"

void furnish(const HeadunitRun &run)
{
    run.write(QStringLiteral("/media/flash/userdata/log_service/service.log"), "log");
    run.write(QStringLiteral("/media/flash/nvm/dfb_crash.dump"), "dump");
    const QString stick = run.path(QStringLiteral("/sticks/usb0/"));
    makeUpdatePackage(run.path(QStringLiteral("/sticks/usb1/ORRERY_PACK.BIN")));
    for (const char *name : {"bootloader", "firmware"}) {
        const QString file = stick + QStringLiteral("gps_%1.pkg").arg(QLatin1String(name));
        makeGpsPackage(file, QStringLiteral("valid"), QLatin1String(name));
    }
}
