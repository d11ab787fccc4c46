#include "service/vendordatacontrol.h"

#include "hardware/unit/unit.h"
#include "unitlink/calls.h"
#include "unitlink/simulatedunit.h"

#include <QtEndian>

int VendorDataControl::getVendorPosOffset(VendorPos position, int &offset, int &length)
{
    const auto ask = [&] {
        return unitlink::unit().vendorData().find(position, &offset, &length) ? 0 : -1;
    };
    return unitlink::answer("VendorDataControl::getVendorPosOffset", -1, ask, int(position));
}

int VendorDataControl::saveVendorDataString(char *data, int offset, int length)
{
    if (unitlink::fails("VendorDataControl::saveVendorDataString") || data == nullptr
        || length < 0) {
        return -1;
    }
    return unitlink::unit().vendorData().write(offset, QByteArray(data, length)) ? 0 : -1;
}

int VendorDataControl::saveVendorDataInt(int *data, int count, int offset, int length)
{
    const int bytes = count * int(sizeof(qint32));
    if (unitlink::fails("VendorDataControl::saveVendorDataInt") || data == nullptr || count < 0
        || bytes > length) {
        return -1;
    }
    QByteArray record(bytes, '\0');
    qToLittleEndian<qint32>(data, count, record.data());
    return unitlink::unit().vendorData().write(offset, record) ? 0 : -1;
}
