#include "usbtestmodel.h"

#include "usbteststate.h"

#include "common/storedsetting.h"
#include "common/trace.h"

#include "service/setupstridconst.h"

namespace
{

constexpr int modeRows = 3;

constexpr const char *topTitles[modeRows] = {
    QT_TRANSLATE_NOOP("USBTestModel", "USB0 BC Mode"),
    QT_TRANSLATE_NOOP("USBTestModel", "USB1 BC Mode"),
    QT_TRANSLATE_NOOP("USBTestModel", "TEST Mode"),
};

constexpr const char *modeTexts[modeRows][modeRows] = {
    {"USB 0 CDP MODE", "USB 0 DCP MODE", "USB 0 SDP MODE"},
    {"USB 1 CDP MODE", "USB 1 DCP MODE", "USB 1 SDP MODE"},
    {"Normal Mode", "USB-IF Mode", "MFI Mode"},
};

constexpr const QString *settingKeys[modeRows] = {
    &SetupStrIdConst::setupU0BCMode,
    &SetupStrIdConst::setupU1BCMode,
    &SetupStrIdConst::setupTestMode,
};

bool isRow(int row)
{
    return row >= 0 && row < modeRows;
}

} // namespace

USBTestModel::USBTestModel(QObject *parent)
    : ListRowModel(modeRows, parent)
{
}

int USBTestModel::rowCount(const QModelIndex &parent) const
{
    const int count = ListRowModel::rowCount(parent);
    FACTORY_TRACE << "dataCount:" << count;
    return count;
}

QVariant USBTestModel::data(const QModelIndex &index, int role) const
{
    const QString shown = text(index.row(), role);
    FACTORY_TRACE << "usbTestListType:" << usbTestListType << ", row:" << index.row()
                  << ", role:" << role << ", data:" << shown;
    return shown;
}

QString USBTestModel::modeText(int list, int row)
{
    const int setting = list - UsbTestUsb0BcModes;
    return isRow(setting) && isRow(row) ? QString::fromLatin1(modeTexts[setting][row]) : QString();
}

QString USBTestModel::topText(int row, int role)
{
    if (isRow(row) && role == TitleRole) {
        return tr(topTitles[row]);
    }
    if (isRow(row) && role == ValueRole) {
        return storedSetting(*settingKeys[row]).toString();
    }
    return QString();
}

QString USBTestModel::text(int row, int role)
{
    return usbTestListType == UsbTestTopList ? topText(row, role) : modeText(usbTestListType, row);
}
