#pragma once

#include <QtGlobal>

namespace hardware
{
class Journal;
}

namespace simulator
{

/// While it lives, every debug line of Qt's default category, which is where the unit's software
/// traces, goes into the journal too, with the source "trace". One at a time; lines may come from
/// any thread.
class TraceJournal
{
public:
    explicit TraceJournal(hardware::Journal &journal);
    ~TraceJournal();
    Q_DISABLE_COPY(TraceJournal)
};

} // namespace simulator
