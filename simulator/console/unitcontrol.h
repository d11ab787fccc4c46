#pragma once

#include "consoleclient.h"

namespace simulator
{

/// How the program "headunit-ctl" ends; its --help says the same.
enum ControlStatus {
    ControlFine = 0,
    ControlCommandFailed = 1,
    ControlWrongUsage = 2,
    ControlNoUnit = 3,
};

/// Has a unit that runs carry out commands, and prints what it answers: to standard output, and to
/// standard error what went wrong.
class UnitControl
{
public:
    UnitControl();

    /// From the folder of this process on, file names of commands count.
    ControlStatus connectTo(const QString &unitFolder);

    ControlStatus run(const QStringList &words);

    /// Runs the lines of standard input: a terminal's to the last, those of anything else to the
    /// first that fails.
    ControlStatus runInput();

    /// The names of the buttons on the screen.
    QStringList buttons();

private:
    /// What failed is told behind \a place.
    bool runLine(const QByteArray &line, const QString &place = QString());
    ControlStatus runTerminal();
    ControlStatus runScript();

    ConsoleClient m_client;
};

} // namespace simulator
