#pragma once

#include "gate/gate.h"
#include "hardware/unit/unit.h"
#include "kvappframework/sim/frameworkhost.h"
#include "unitlink/simulatedunit.h"

#include <QTemporaryDir>
#include <QWidget>

/// A simulated unit in a temporary folder, with the framework on a visible 800 x 480 screen, for
/// one test. Its "mediaplay" module is there, its storage is empty.
class TestUnit
{
public:
    explicit TestUnit(double timeFactor = 1.0);

    hardware::Unit &unit() { return m_unit; }
    kvappframework::FrameworkHost &framework() { return m_framework; }
    QWidget &screen() { return m_screen; }

    /// Host path of a path of the unit.
    QString path(const QString &unitPath) const;

    /// The journal's lines that match, without their time.
    QStringList journal(const QString &pattern = QString()) const;

    /// Plugs the slot's own stick in; fails the test when that is refused.
    void plug(const QString &slot);

    /// A finger at a point of the screen, by way of the screen's window.
    void press(const QPoint &point);
    void move(const QPoint &point);
    void release(const QPoint &point);
    void tap(const QPoint &point);
    /// Taps the middle of a widget that lies on the screen.
    void tap(const QWidget *widget);

private:
    QTemporaryDir m_folder;
    mutable hardware::Unit m_unit;
    bool m_open;
    hardware::Gate m_gate;
    unitlink::SimulatedUnit m_link;
    QWidget m_screen;
    kvappframework::FrameworkHost m_framework;
};

/// Writes a file and the folders above it.
void writeFile(const QString &path, const QByteArray &content);
/// The whole content; empty when the file cannot be read.
QByteArray readFile(const QString &path);
