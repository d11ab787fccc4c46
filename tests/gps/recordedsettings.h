#pragma once

#include <QStringList>

/// The calls of tcgetattr() and tcsetattr() of this process, in order: "get", and "set" with when
/// it applies and the two speeds.
class RecordedSettings
{
public:
    static QStringList calls();

    /// Forgets the calls, and has the given ones from now on fail, the first one being 1; 0 is
    /// none.
    static void restart(int failingGet = 0, int failingSet = 0);
};
