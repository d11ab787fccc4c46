#pragma once

namespace hardware
{

class Unit;

/// While one exists, the file calls, system() and, by the unit's time factor, the clock calls of
/// the whole process see the simulated unit: paths of the unit lead into its folder, every other
/// path and call passes through untouched. For executables only: they define the C library's
/// functions ahead of it, and the libraries that they load resolve to those definitions. One at a
/// time; make it before any other thread uses a path of the unit.
class Gate
{
public:
    explicit Gate(const Unit &unit);
    ~Gate();
    Gate(const Gate &) = delete;
    Gate &operator=(const Gate &) = delete;
};

} // namespace hardware
