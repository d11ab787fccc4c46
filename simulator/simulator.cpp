#include "simulator.h"

#include "dab/sim/simdabmodule.h"
#include "hardware/unit/unit.h"
#include "kvappframework/sim/screenlayer.h"
#include "kvappframework/sim/simactivitymanager.h"
#include "kvappframework/sim/simmodulemanager.h"
#include "service/sim/simmediaplaymodule.h"
#include "simulator/framework/unitapplication.h"
#include "simulator/window/hardkey.h"
#include "simulator/window/homescreen.h"
#include "simulator/window/screen.h"

#include <QCoreApplication>
#include <QTimer>

using namespace kvappframework;

namespace simulator
{

namespace
{
const int bootMs = 2000;

/// A graphical thread that has slept for so long over what it is to do, in host time, is blocked.
const int blockedMs = 300;
} // namespace

Simulator::Simulator(hardware::Unit &unit, const QString &plugin, TraceJournal::Place traces,
                     const QString &language)
    : m_unit(unit)
    , m_plugin(plugin)
    , m_language(language)
    , m_link(unit)
    , m_traceJournal(unit.journal(), traces)
    , m_stallMeter(unit)
    , m_lights(unit, m_bezel)
    , m_framework(&m_bezel.screen())
    , m_adopter(&m_bezel, new ScreenLayer(&m_bezel.screen()))
    , m_loader(m_framework.activities())
    , m_finger(m_bezel)
    , m_screenReader(m_bezel.screen())
    , m_recorder(m_bezel, m_screenReader, unit)
{
    watchApplication();
    m_framework.modules().add(QStringLiteral("dab"), QSharedPointer<SimDabModule>::create());
    m_framework.modules().add(QStringLiteral("mediaplay"),
                              QSharedPointer<SimMediaplayModule>::create());
    m_framework.activities().add(&m_usb);

    HomeScreen &homeScreen = m_bezel.screen().homeScreen();
    homeScreen.setSlots(unit.storage().slotTable());
    showStorage();
    connect(&homeScreen, &HomeScreen::slotTouched, this, &Simulator::plugOrPull);
    connect(&unit.storage(), &hardware::Storage::mounted, this, &Simulator::showStorage);
    connect(&unit.storage(), &hardware::Storage::removed, this, &Simulator::showStorage);

    connect(&m_framework.activities(), &SimActivityManager::activityStarted, this,
            &Simulator::showOrHideHomeScreen);
    connect(&m_framework.activities(), &SimActivityManager::activityClosed, this,
            &Simulator::showOrHideHomeScreen);
    connect(&m_bezel.homeKey(), &HardKey::clicked, this, &Simulator::goHome);
    connect(&m_bezel.factoryKey(), &HardKey::clicked, this, &Simulator::requestFactoryMenu);
    // Whoever asks for it is part of what goes down.
    connect(&unit.mcu(), &hardware::Mcu::rebootRequested, this, &Simulator::reboot,
            Qt::QueuedConnection);
}

Simulator::~Simulator()
{
    const hardware::CauseScope end(hardware::Cause::begun());
    endActivities();
    m_framework.activities().remove(&m_usb);
    if (auto *application = qobject_cast<UnitApplication *>(QCoreApplication::instance())) {
        application->setStallMeter(nullptr);
    }
}

bool Simulator::start(QString *error)
{
    const hardware::CauseScope start(hardware::Cause::begun());
    if (!m_loader.load(m_plugin, error)) {
        return false;
    }
    m_bezel.show();
    m_recorder.watchWindow();
    journal(QStringLiteral("unit"), QStringLiteral("booted"));
    return true;
}

hardware::Unit &Simulator::unit()
{
    return m_unit;
}

GraphicalThread &Simulator::graphicalThread()
{
    return m_graphicalThread;
}

Bezel &Simulator::bezel()
{
    return m_bezel;
}

Finger &Simulator::finger()
{
    return m_finger;
}

const ScreenReader &Simulator::screenReader() const
{
    return m_screenReader;
}

QString Simulator::activity()
{
    const QStringList running = m_framework.activities().running();
    return running.value(running.size() - 1);
}

SessionRecorder &Simulator::recorder()
{
    return m_recorder;
}

QString Simulator::plugin() const
{
    return m_plugin;
}

QString Simulator::language() const
{
    return m_language.name();
}

QImage Simulator::frame()
{
    m_graphicalThread.runWithin(GraphicalThread::blockedTimeoutMs, blockedMs,
                                [this] { m_bezel.paintPending(); });
    return m_bezel.lastFrame();
}

QString Simulator::temporaryFolder() const
{
    return m_loader.temporaryFolder();
}

QStringList Simulator::textsBeforeTouch() const
{
    return m_textsBeforeTouch;
}

const StallMeter &Simulator::stallMeter() const
{
    return m_stallMeter;
}

void Simulator::goHome()
{
    if (m_bezel.screen().isBooting()) {
        return;
    }
    journal(QStringLiteral("key"), QStringLiteral("HOME"));
    // A page that is a window of its own stays, until it closes itself.
    m_framework.activities().closeTopActivity();
}

void Simulator::requestFactoryMenu()
{
    if (m_bezel.screen().isBooting()) {
        return;
    }
    journal(QStringLiteral("key"), QStringLiteral("FACTORY"));
    m_framework.requestFactoryDebug();
}

void Simulator::reboot()
{
    if (m_bezel.screen().isBooting()) {
        // Nothing runs yet, so that it is as if it had just begun to start.
        m_unit.programsEnded();
        return;
    }
    journal(QStringLiteral("unit"), QStringLiteral("reboot"));
    const QString running = activity();
    const int argument = m_framework.activities().argument(running);
    m_bezel.screen().setBooting(true);
    endActivities();
    QTimer::singleShot(m_unit.clock().hostMs(bootMs), this,
                       [this, running, argument, cause = hardware::Cause::current()] {
                           const hardware::CauseScope scope(cause);
                           boot(running, argument);
                       });
}

/// Tests may have another application.
void Simulator::watchApplication()
{
    if (auto *application = qobject_cast<UnitApplication *>(QCoreApplication::instance())) {
        application->setStallMeter(&m_stallMeter);
        connect(application, &UnitApplication::touchBegins, this,
                [this] { m_textsBeforeTouch = m_screenReader.widgetTexts(); });
    }
}

void Simulator::endActivities()
{
    m_framework.activities().closeAll();
    m_adopter.deletePages();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    m_framework.clearLayers();
    m_loader.unload();
    m_unit.programsEnded();
}

void Simulator::boot(const QString &activity, int argument)
{
    QString error;
    if (!m_loader.load(m_plugin, &error)) {
        qWarning("%s", qUtf8Printable(error));
    }
    if (!activity.isEmpty()) {
        m_framework.activities().startActivity(activity, argument);
    }
    // The start is carried out from the event loop, behind the boot screen.
    QMetaObject::invokeMethod(
        this, [this] { m_bezel.screen().setBooting(false); }, Qt::QueuedConnection);
    journal(QStringLiteral("unit"), QStringLiteral("booted"));
}

void Simulator::showStorage()
{
    m_bezel.screen().homeScreen().setPlugged(m_unit.storage().mountRoots());
}

/// What the touched slot has offered to do.
void Simulator::plugOrPull(const QString &slot, bool isPlugged)
{
    journal(QStringLiteral("touch"), slot + QStringLiteral(" clicked"));
    QString error;
    const bool isDone = isPlugged ? m_unit.storage().pull(slot, &error)
                                  : m_unit.storage().plug(slot, QString(), &error);
    if (!isDone) {
        m_bezel.screen().homeScreen().showFailure(error);
    }
}

void Simulator::showOrHideHomeScreen()
{
    // Under an activity it would be painted for nothing.
    m_bezel.screen().homeScreen().setVisible(m_framework.activities().running().isEmpty());
}

void Simulator::journal(const QString &source, const QString &text)
{
    m_unit.journal().write(source, text);
}

} // namespace simulator
