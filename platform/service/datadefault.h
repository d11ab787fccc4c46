#pragma once

#include "kvglobal/kvglobal.h"

#include <QString>
#include <QVariant>

/// The values that settings have before they are first saved. Any thread.
class KV_API DataDefault
{
public:
    /// The platform's default for a key of the settings store; invalid for a key without one.
    static QVariant getDefault(QString key);
};
