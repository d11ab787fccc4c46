#pragma once

#include <ctime>

/// The end of a wait for the receiver, by the calendar clock's whole seconds: it passes between 10
/// and 11 seconds after it was made.
class ReceiverDeadline
{
public:
    static constexpr int seconds = 10;

    ReceiverDeadline();

    bool hasPassed() const;

private:
    std::time_t m_lastSecond;
};
