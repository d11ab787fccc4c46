#include "storedsetting.h"

#include "service/datadefault.h"
#include "service/datasavecontrol.h"

QVariant storedSetting(const QString &key)
{
    return DataSaveControl::readSettingData(key, DataDefault::getDefault(key), QString());
}
