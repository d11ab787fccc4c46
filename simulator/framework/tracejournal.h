#pragma once

#include <QtGlobal>

namespace hardware
{
class Journal;
}

namespace simulator
{

/// While it lives, every debug line of Qt's default category, which is where the unit's software
/// traces, goes into the journal, with the source "trace". One at a time; lines may come from any
/// thread.
class TraceJournal
{
public:
    /// Where such lines are to be read.
    enum Place {
        JournalOnly,
        JournalAndOutput ///< where Qt's lines go as well: on standard error
    };

    TraceJournal(hardware::Journal &journal, Place place);
    ~TraceJournal();
    Q_DISABLE_COPY(TraceJournal)
};

} // namespace simulator
