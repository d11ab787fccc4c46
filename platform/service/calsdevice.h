#pragma once

#include "kvglobal/kvglobal.h"

#include <QObject>

/// The service behind the ambient light sensor and the automatic change between day and night mode.
/// Graphical thread only.
class KV_API CALSDevice : public QObject
{
    Q_OBJECT

public:
    static CALSDevice *getInstance();

    /// The threshold of day mode, or of night mode.
    int getCirticalValue(bool day);
    /// A reading above \a value makes it day.
    void setCriticalValueAsDay(int value);
    /// A reading below \a value makes it night.
    void setCriticalValueAsNight(int value);

    /// Has the mode follow the readings, or leaves it as it is.
    void autoDetectSwitch(bool on);

signals:
    /// A new reading. Readings that come while the graphical thread is too busy to hear of them are
    /// passed over for the newest.
    void sigSensorValue(int value);

private:
    CALSDevice();
    Q_DISABLE_COPY(CALSDevice)

    void passReadingOn();
};
