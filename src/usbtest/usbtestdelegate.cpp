#include "usbtestdelegate.h"

#include "usbtestmodel.h"
#include "usbteststate.h"

#include "factorydebug/trace.h"

#include <QPainter>

namespace
{

const int valueRightMargin = 137; // The arrow and what is beside it.

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

void USBTestDelegate::paintRow(QPainter *painter, const QRect &rect, const QModelIndex &index) const
{
    FACTORY_TRACE << "usbTestListType:" << usbTestListType << ", row:" << index.row();
    if (usbTestListType == UsbTestTopList) {
        paintTopRow(painter, rect, index);
    } else {
        paintModeRow(painter, rect, index);
    }
}

void USBTestDelegate::paintTopRow(QPainter *painter, const QRect &rect,
                                  const QModelIndex &index) const
{
    const QString rowTitle = title(index);
    const QString value = index.data(USBTestModel::ValueRole).toString();
    FACTORY_TRACE << "title:" << rowTitle << ", value:" << value;
    drawTitle(painter, rect, rowTitle, normalColor);
    painter->setPen(currentColor);
    painter->drawText(rect.left(), rect.top(), rect.right() - 2 * rect.left() - valueRightMargin,
                      rect.height(), Qt::AlignRight | Qt::AlignVCenter, value);
    drawArrow(painter, rect);
}

void USBTestDelegate::paintModeRow(QPainter *painter, const QRect &rect, const QModelIndex &index)
{
    const QString rowTitle = title(index);
    FACTORY_TRACE << "title:" << rowTitle;
    drawTitle(painter, rect, rowTitle, rowTitle == currentMode() ? currentColor : normalColor);
}
