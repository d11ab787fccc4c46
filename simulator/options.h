#pragma once

#include <QString>

namespace simulator
{

/// What the program "headunit" was asked for on its command line.
struct Options
{
    QString unitFolder;
    QString plugin;
    QString script; ///< Empty for none.
    QString report; ///< Where it is told how the script went; empty for nowhere.
    QString record; ///< File for the session; empty for none.
    QString from;   ///< Report that the unit's folder is made from; empty for none.
    QString language;
    double speed = 1.0;
    double scale = 1.0; ///< Of the window.
    bool headless = false;
    bool verbose = false;
    bool stalls = false;
    bool socket = true;
    bool selfTest = false; ///< On a unit of its own.

    /// Reads the command line. False when the program is to end with \a exitStatus: help or the
    /// version was asked for and printed, or something is wrong, as a line on standard error says.
    bool read(int argc, char *argv[], int *exitStatus);
};

} // namespace simulator
