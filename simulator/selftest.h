#pragma once

#include "hardware/unit/journalreader.h"

#include <QThread>

#include <cstdio>

namespace simulator
{

class Console;
class Simulator;

/// Tries, on a thread of its own, what the unit needs of its installation, and each page of the
/// plug-in, and says of each on standard output whether it works. What the plug-in prints there
/// meanwhile is lost. The unit should be a new one.
class SelfTest : public QThread
{
    Q_OBJECT

public:
    SelfTest(const Console &console, Simulator &simulator);
    /// The console must be closed by then, or the test over.
    ~SelfTest() override;

    /// Waits for the end, which must be near, and tells whether all has been tried and works. What
    /// is tried after an interruption was requested is not told of.
    bool isPassed();

protected:
    void run() override;

private:
    void tell(const QString &name, const QString &works, const QString &failure);
    QString shellFailure() const;
    QString failureOf(const QString &commands);

    const Console &m_console;
    Simulator &m_simulator;
    hardware::JournalReader m_reader;
    const QString m_font;
    FILE *m_output;
    int m_tried = 0;
    int m_failed = 0;
    bool m_isComplete = false;
};

} // namespace simulator
