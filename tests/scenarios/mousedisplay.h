#pragma once

#include <QPoint>
#include <QProcess>
#include <QStringList>

/// A display that nobody sees, with a mouse on it that works as a person's does: Xvfb and xdotool.
class MouseDisplay
{
public:
    MouseDisplay();
    ~MouseDisplay();

    /// Whether this host has Xvfb.
    static bool isInstalled();

    /// Starts it, for a unit of that scale; false when it does not answer.
    bool start(double scale);

    /// The host's environment with this display in it, and with the desktop's wish for windows
    /// twice their size, which is not for the unit.
    QProcessEnvironment environment() const;

    /// Waits for the unit's window; false when there is none in a minute.
    bool findWindow();

    /// What xdotool is to do, with places of the unit's screen: "click 629 359", "down 10 10",
    /// "move 10 60", "up", "sleep 0.1". False when it does not.
    bool touch(const QStringList &actions);

private:
    QStringList pointer(const QStringList &place) const;
    bool runTool(const QStringList &arguments, QByteArray *output);

    QProcess m_server;
    QString m_name;
    QString m_window;
    double m_scale = 1;
};
