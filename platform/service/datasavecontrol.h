#pragma once

#include "kvglobal/kvglobal.h"

#include <QString>
#include <QVariant>

/// The settings store. What is saved is there after a restart. Any thread.
class KV_API DataSaveControl
{
public:
    /// The stored value, or \a defaultValue. An empty \a group is the store's own.
    static QVariant readSettingData(const QString &key, const QVariant &defaultValue,
                                    const QString &group);
    static void saveSettingData(const QString &key, const QVariant &value, const QString &group);
};
