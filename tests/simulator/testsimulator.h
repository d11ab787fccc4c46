#pragma once

#include "simulator/console/console.h"
#include "simulator/console/consolesession.h"
#include "simulator/simulator.h"

#include "gate/gate.h"
#include "hardware/unit/journalreader.h"
#include "hardware/unit/unit.h"

#include <QTemporaryDir>

/// The simulator with the test activity on a unit in a temporary folder, running, for one test;
/// its console is worked from the test's own thread.
class TestSimulator
{
public:
    explicit TestSimulator(double timeFactor = 1.0);

    simulator::Simulator &simulator() { return m_simulator; }
    simulator::Console &console() { return m_console; }
    hardware::Journal &journal() { return m_unit.journal(); }

    /// Host path below the unit's folder.
    QString path(const QString &unitPath) const;

    simulator::ConsoleResult run(const QString &line);

    /// Runs a line and tells what went wrong: "" when nothing did.
    QString errorOf(const QString &line);

    /// FACTORY is pressed, and the test activity is there.
    void openActivity();

private:
    QTemporaryDir m_folder;
    hardware::Unit m_unit;
    bool m_open;
    hardware::Gate m_gate;
    simulator::Simulator m_simulator;
    simulator::Console m_console;
    hardware::JournalReader m_reader;
    simulator::ConsoleSession m_session;
};
