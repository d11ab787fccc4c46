#pragma once

#include "kvglobal/kvglobal.h"

#include <QString>

/// Keys of the settings store, and values with a meaning of their own.
class KV_API SetupStrIdConst
{
public:
    static const QString setupU0BCMode;
    static const QString setupU1BCMode;
    static const QString setupTestMode;
    static const QString setupSysLang;
    static const QString setupDimmerItem;
    /// The value of setupDimmerItem with which the day and night modes follow the light sensor.
    static const QString setupDimmerItemAuto;
    static const QString sysCtrlCertificationSwitch;
};
