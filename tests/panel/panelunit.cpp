#include "panelunit.h"

#include "support/packages.h"

#include <QTest>

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

void PanelUnit::makePackages(int bootloader, int firmware) const
{
    makeGpsPackages(folder() + "/sticks/usb0", bootloader, firmware);
}
