#pragma once

#include "simulator/program.h"

#include <QScopedPointer>
#include <QStringList>
#include <QTemporaryDir>

/// How long whatever happens may take, in milliseconds of the host.
const int patienceMs = 60000;

/// A unit without a window, with the plug-in that ships, in a program of its own.
class PanelUnit
{
public:
    /// Nothing is started yet.
    PanelUnit();

    QString folder() const { return m_folder.filePath("unit"); }

    /// Its time passes as fast as \a speed says. It is there when this returns true.
    bool start(const QString &speed = "5");
    /// As if its power was cut.
    void kill();

    /// Lines that the console answers; empty for a command that fails.
    QStringList ask(const QStringList &command) const;
    /// Whether the journal has such a line.
    bool hasLine(const QString &pattern) const
    {
        return !ask({"journal", "--all", pattern}).isEmpty();
    }

    /// Puts packages for the receiver on the stick of "usb0", of so many bytes.
    void makePackages(int bootloader, int firmware) const;

private:
    QTemporaryDir m_folder;
    QScopedPointer<Program> m_program;
};
