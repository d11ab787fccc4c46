#include "selftest.h"

#include "hardware/unit/unit.h"
#include "simulator/console/console.h"
#include "simulator/console/consolesession.h"
#include "simulator/simulator.h"

#include <QApplication>
#include <QFile>
#include <QFontInfo>

#include <dlfcn.h>
#include <fcntl.h>
#include <unistd.h>

namespace simulator
{

namespace
{

/// What is tried, what is said of it when it works, and the commands that try it.
struct Trial
{
    const char *name;
    const char *works;
    const char *commands;
};

const Trial preparations[] = {
    {"GPS package", "make-gps-package makes it on a stick", "package usb0 gps"},
    {"Update package", "make-update-package makes it on a stick", "package usb1 update"},
    {"Sticks", "two are mounted", "plug usb0\nplug usb1"},
};

/// Behind toMenu.
const Trial pages[] = {
    {"Menu", "opens", "visible startUSBTest"},
    {"USB Test", "lists the modes of the ports",
     "press usbtest\nhidden exit\nsee \"USB0 BC Mode\"\npress return\nvisible exit"},
    {"USB Eye", "sends a test pattern and sets it in the port's register",
     "press usbeye\nsee \"USB Eye Test\"\npress eyeDiagram\nexpect \"usb test mode 4\"\n"
     "press write\nexpect \"memory write\"\npress return\nvisible exit"},
    {"NCM Test", "starts a throughput test and stops it",
     "press ncmtest\npress C_UPD50\nexpect \"ncm start udp client 50\"\npress C_STOP\n"
     "expect \"ncm ended\"\npress return\nvisible exit"},
    {"KeyColor", "colours the hard keys",
     "press keycolor\nsee \"KeyColor Set\"\npress briinc\nexpect \"keylight 51 50 50\"\n"
     "press return\nvisible exit"},
    {"Vendordata", "verifies an update package",
     "press vendordata\nsee \"VendorData Set\"\ntap 200 439\nsee \"Verify Pass\" 20000\n"
     "press popupview_cancel\npress return\nvisible exit"},
    {"ALS Test", "shows what the light sensor measures",
     "press als\nals 300\nsee Current:300\npress return\nvisible exit"},
    {"Product", "tells the versions",
     "press pdtVer\nsee \"/^GPS Version: GNSS/\"\npress return\nvisible exit"},
    {"SysCtrl", "copies the system logs to a stick",
     "press sysCtrl\nsee \"System Control\"\npress idCpBtn nowait\n"
     "expect \"/^shell cp -rf .* /media/usb.*QM_SYSTEMLOG/\" 20000\n"
     "expect \"shell sync\" 20000\npress return\nvisible exit"},
    {"Panel Config", "adjusts the panel's picture",
     "press idPanel\npress briinc\nexpect \"/^panel brightness/\"\npress return\nvisible exit"},
    {"GPS Update", "verifies the GPS packages",
     "press gps\nsee \"Firmware verified Success\" 20000\npress idCancelBtn\nvisible exit"},
    {"Start USB Test", "starts the unit's USB test",
     "press startUSBTest\nexpect \"framework started usb\""},
};

const char toMenu[] = "key HOME\nmark\nkey FACTORY\nvisible exit\n";

const char *const closedLibraries[] = {"kvappframework", "kvwidget", "dab", "mcu",
                                       "service",        "gps"};

QString text(const char *utf8)
{
    return QString::fromUtf8(utf8);
}

/// Standard output, which from now on leads nowhere for everybody else.
FILE *takeOutput()
{
    std::fflush(stdout);
    FILE *output = fdopen(dup(STDOUT_FILENO), "w");
    const int nowhere = open("/dev/null", O_WRONLY | O_CLOEXEC);
    dup2(nowhere, STDOUT_FILENO);
    close(nowhere);
    return output;
}

/// The plug-in has no path to them of its own: it finds those that the process has loaded.
QString libraryFailure()
{
    QStringList missing;
    for (const char *name : closedLibraries) {
        const QByteArray file = QByteArray("lib") + name + ".so";
        void *library = dlopen(file.constData(), RTLD_LAZY | RTLD_NOLOAD);
        if (library == nullptr) {
            missing.append(QString::fromLatin1(file));
        } else {
            dlclose(library);
        }
    }
    return missing.isEmpty()
        ? QString()
        : QStringLiteral("not loaded: %1").arg(missing.join(QLatin1String(", ")));
}

} // namespace

SelfTest::SelfTest(const Console &console, Simulator &simulator)
    : m_console(console)
    , m_simulator(simulator)
    , m_reader(simulator.unit().journal())
    , m_font(QFontInfo(QApplication::font()).family())
    , m_output(takeOutput())
{
}

SelfTest::~SelfTest()
{
    wait();
    std::fclose(m_output);
}

bool SelfTest::isPassed()
{
    wait();
    return m_isComplete && m_failed == 0;
}

void SelfTest::run()
{
    tell(QStringLiteral("Plug-in"), m_simulator.plugin(), QString());
    tell(QStringLiteral("Stand-ins"), QStringLiteral("the plug-in finds all of them"),
         libraryFailure());
    tell(QStringLiteral("Font"), m_font, QString());
    tell(QStringLiteral("Shell"), QStringLiteral("writes a log of the unit"), shellFailure());
    for (const Trial &trial : preparations) {
        tell(text(trial.name), text(trial.works), failureOf(text(trial.commands)));
    }
    const QString noMenu = failureOf(text(toMenu));
    for (const Trial &page : pages) {
        tell(text(page.name), text(page.works),
             noMenu.isEmpty() ? failureOf(text(toMenu) + text(page.commands)) : noMenu);
    }
    m_isComplete = !isInterruptionRequested();
    if (m_isComplete) {
        std::fprintf(m_output, "%d of %d work.\n", m_tried - m_failed, m_tried);
    }
}

/// The \a failure is empty where it works.
void SelfTest::tell(const QString &name, const QString &works, const QString &failure)
{
    if (isInterruptionRequested()) {
        return;
    }
    ++m_tried;
    m_failed += failure.isEmpty() ? 0 : 1;
    std::fprintf(m_output, "%s  %s: %s\n", failure.isEmpty() ? "works " : "FAILED",
                 qUtf8Printable(name), qUtf8Printable(failure.isEmpty() ? works : failure));
    std::fflush(m_output);
}

QString SelfTest::shellFailure() const
{
    const QByteArray folder = "/media/flash/userdata/log_service";
    const QByteArray file = folder + "/selftest.log";
    const int status =
        m_simulator.unit().shell().run("mkdir -p " + folder + " && echo works > " + file);
    return status == 0 && QFile::exists(m_simulator.unit().folder().path(QFile::decodeName(file)))
        ? QString()
        : QStringLiteral("a command wrote no file, and ended with %1").arg(status);
}

QString SelfTest::failureOf(const QString &commands)
{
    ConsoleSession session(m_reader);
    const QStringList lines = commands.split(QLatin1Char('\n'));
    for (const QString &line : lines) {
        const ConsoleResult result = m_console.run(line, session);
        if (!result.isOk()) {
            return QStringLiteral("%1 (%2)").arg(result.error, line);
        }
    }
    return QString();
}

} // namespace simulator
