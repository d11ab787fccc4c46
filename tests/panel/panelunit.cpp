#include "panelunit.h"

#include <QDir>
#include <QTest>

namespace
{
}

PanelUnit::PanelUnit() = default;

bool PanelUnit::start(const QString &speed)
{
    m_program.reset(new Program(HEADUNIT, {"--headless", "--unit", folder(), "--speed", speed}));
    return QTest::qWaitFor(
        [this] {
            return run(HEADUNIT_CTL, {"--unit", folder(), "mark"}).status == 0;
        },
        patienceMs);
}

void PanelUnit::kill()
{
    m_program.reset();
}

QStringList PanelUnit::ask(const QStringList &command) const
{
    const Outcome outcome = run(HEADUNIT_CTL, QStringList{"--unit", folder()} + command);
    return outcome.status == 0 ? outcome.output.split('\n', Qt::SkipEmptyParts) : QStringList();
}

bool PanelUnit::makePackages(int bootloader, int firmware) const
{
    const QString stick = folder() + "/sticks/usb0/";
    const auto make = [&stick](const QString &name, const QString &version, int size) {
        return QProcess::execute(MAKE_GPS_PACKAGE,
                                 {"valid", stick + name, version, QString::number(size)})
            == 0;
    };
    return QDir().mkpath(stick) && make("gps_bootloader.pkg", "boot 3", bootloader)
        && make("gps_firmware.pkg", "GNSS 2.5.1", firmware);
}
