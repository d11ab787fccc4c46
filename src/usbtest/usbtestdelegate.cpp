#include "usbtestdelegate.h"

#include "usbtestmodel.h"
#include "usbteststate.h"

#include "common/trace.h"

namespace
{

QString currentMode()
{
    switch (usbTestListType) {
    case UsbTestUsb0BcModes:
        return curUsb0BCMode;
    case UsbTestUsb1BcModes:
        return curUsb1BCMode;
    default:
        return curTestMode;
    }
}

} // namespace

USBTestDelegate::USBTestDelegate(QObject *parent)
    : ListRowDelegate(parent)
{
}

ListRowDelegate::Row USBTestDelegate::row(const QModelIndex &index) const
{
    FACTORY_TRACE << "usbTestListType:" << usbTestListType << ", row:" << index.row();
    const QString rowTitle = title(index);
    if (usbTestListType == UsbTestTopList) {
        const QString value = index.data(USBTestModel::ValueRole).toString();
        FACTORY_TRACE << "title:" << rowTitle << ", value:" << value;
        return {rowTitle, false, value, true};
    }
    FACTORY_TRACE << "title:" << rowTitle;
    return {rowTitle, rowTitle == currentMode(), QString(), false};
}
