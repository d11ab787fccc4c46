#include "service/datadefault.h"

#include "hardware/unit/unit.h"
#include "unitlink/calls.h"
#include "unitlink/simulatedunit.h"

QVariant DataDefault::getDefault(QString key)
{
    const auto ask = [&key] { return unitlink::unit().defaults().value(key); };
    return unitlink::answer("DataDefault::getDefault", QVariant(), ask, key);
}
