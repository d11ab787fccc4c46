#include "furnishing.h"

#include "scenarios/headunitrun.h"
#include "support/updatepackages.h"

#include <QDir>
#include <QProcess>

bool furnish(const HeadunitRun &run)
{
    run.write(QStringLiteral("/media/flash/userdata/log_service/service.log"), "log");
    run.write(QStringLiteral("/media/flash/nvm/dfb_crash.dump"), "dump");
    const QString stick = run.path(QStringLiteral("/sticks/usb0/"));
    bool isDone = QDir().mkpath(stick) && QDir().mkpath(run.path(QStringLiteral("/sticks/usb1")));
    makeUpdatePackage(run.path(QStringLiteral("/sticks/usb1/ORRERY_PACK.BIN")));
    for (const char *name : {"bootloader", "firmware"}) {
        const QString file = stick + QStringLiteral("gps_%1.pkg").arg(QLatin1String(name));
        const QStringList arguments = {QStringLiteral("valid"), file, QLatin1String(name),
                                       QStringLiteral("3000")};
        isDone = isDone && QProcess::execute(QStringLiteral(MAKE_GPS_PACKAGE), arguments) == 0;
    }
    return isDone;
}
