#include "service/datasavecontrol.h"

#include "hardware/unit/unit.h"
#include "unitlink/calls.h"
#include "unitlink/simulatedunit.h"

namespace
{

QString path(const QString &key, const QString &group)
{
    return group.isEmpty() ? key : group + QLatin1Char('/') + key;
}

} // namespace

QVariant DataSaveControl::readSettingData(const QString &key, const QVariant &defaultValue,
                                          const QString &group)
{
    const auto ask = [&] {
        return unitlink::unit().settings().value(path(key, group), defaultValue);
    };
    return unitlink::answer("DataSaveControl::readSettingData", defaultValue, ask, key,
                            defaultValue, group);
}

void DataSaveControl::saveSettingData(const QString &key, const QVariant &value,
                                      const QString &group)
{
    if (!unitlink::fails("DataSaveControl::saveSettingData")) {
        unitlink::unit().settings().setValue(path(key, group), value);
    }
}
