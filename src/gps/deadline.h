#pragma once

#include <ctime>

/// The end of a wait for the receiver, by the calendar clock's whole seconds: it passes between 10
/// and 11 seconds after it was made.
class Deadline
{
public:
    static const int seconds = 10;

    Deadline();

    bool hasPassed() const;

private:
    std::time_t m_lastSecond;
};
