#include "service/datadefault.h"

#include "hardware/unit/unit.h"
#include "unitlink/simulatedunit.h"

QVariant DataDefault::getDefault(QString key)
{
    return unitlink::unit().defaults().value(key);
}
