#include "service/datadefault.h"

#include "hardware/unit/unit.h"
#include "simlink/simulatedunit.h"

QVariant DataDefault::getDefault(QString key)
{
    return simlink::unit().defaults().value(key);
}
