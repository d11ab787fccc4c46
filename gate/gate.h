#pragma once

#include <QByteArray>

namespace hardware
{

class Unit;

/// While one exists, the file calls, system() and, by the unit's time factor, the clock calls of
/// the whole process see the simulated unit: paths of the unit lead into its folder, every other
/// path and call passes through untouched. For executables only: they define the C library's
/// functions ahead of it, and the libraries that they load resolve to those definitions. One at a
/// time; make it before any other thread uses a path of the unit, and end it after all of them.
///
/// A path of the unit that ".." leads out of the unit's folder fails with EACCES. Paths that are
/// inside the unit's folder already, relative paths, and all paths of a thread with GateBypass
/// pass through.
class Gate
{
public:
    explicit Gate(const Unit &unit);
    ~Gate();
    Gate(const Gate &) = delete;
    Gate &operator=(const Gate &) = delete;

    /// The living one, or null. Any thread.
    static const Gate *current();

    const Unit &unit() const { return m_unit; }

    /// The unit's folder in the encoding of file names.
    const QByteArray &root() const { return m_root; }

private:
    const Unit &m_unit;
    const QByteArray m_root;
};

} // namespace hardware
