#pragma once

#include "kvappframework/sim/frameworkhost.h"
#include "simulator/console/screenreader.h"
#include "simulator/framework/activityloader.h"
#include "simulator/framework/graphicalthread.h"
#include "simulator/framework/language.h"
#include "simulator/framework/stallmeter.h"
#include "simulator/framework/topleveladopter.h"
#include "simulator/framework/tracejournal.h"
#include "simulator/framework/usbactivity.h"
#include "simulator/session/sessionrecorder.h"
#include "simulator/window/bezel.h"
#include "simulator/window/finger.h"
#include "simulator/window/unitlights.h"
#include "unitlink/simulatedunit.h"

#include <QObject>

namespace hardware
{
class Unit;
}

namespace simulator
{

/// The simulated head unit as a whole: its window, the framework's process with the plug-in in it,
/// and its power. Graphical thread only, but for the members that say otherwise.
class Simulator : public QObject
{
    Q_OBJECT

public:
    /// \a unit must be open, and outlive the simulator. The plug-in's traces can be read at
    /// \a traces, its texts in \a language, one of Language::names().
    Simulator(hardware::Unit &unit, const QString &plugin,
              TraceJournal::Place traces = TraceJournal::JournalAndOutput,
              const QString &language = QStringLiteral("en"));
    ~Simulator() override;

    /// Loads the plug-in and shows the window. False with one sentence in \a error when the
    /// plug-in cannot be used.
    bool start(QString *error);

    hardware::Unit &unit();
    GraphicalThread &graphicalThread();
    Bezel &bezel();
    Finger &finger();
    const ScreenReader &screenReader() const;
    SessionRecorder &recorder();

    /// The plug-in's file.
    QString plugin() const;
    QString language() const;

    /// What the window shows: its backing store as it was painted last, while the graphical thread
    /// is blocked too. Nothing is painted anew for it, so that a picture shows also what was
    /// forgotten to be. Any thread.
    QImage frame();

    /// The activity on top; empty while none runs.
    QString activity();

    /// Host path of the folder that is there as long as the simulator.
    QString temporaryFolder() const;
    const StallMeter &stallMeter() const;
    /// Those on the screen, but for rows of lists, when it was touched last.
    QStringList textsBeforeTouch() const;

signals:
    /// The program is asked to end. Comes from any thread.
    void quitRequested();

private:
    void goHome();
    void requestFactoryMenu();
    void reboot();
    void watchApplication();
    void endActivities();
    void boot(const QString &activity, int argument);
    void showStorage();
    void plugOrPull(const QString &slot, bool isPlugged);
    void showOrHideHomeScreen();
    void journal(const QString &source, const QString &text);

    hardware::Unit &m_unit;
    const QString m_plugin;
    const Language m_language;
    unitlink::SimulatedUnit m_link;
    TraceJournal m_traceJournal;
    StallMeter m_stallMeter;
    GraphicalThread m_graphicalThread;
    Bezel m_bezel;
    UnitLights m_lights;
    kvappframework::FrameworkHost m_framework;
    TopLevelAdopter m_adopter;
    UsbActivity m_usb;
    ActivityLoader m_loader;
    Finger m_finger;
    ScreenReader m_screenReader;
    QStringList m_textsBeforeTouch;
    SessionRecorder m_recorder;
};

} // namespace simulator
