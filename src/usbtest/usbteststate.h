#pragma once

#include <QString>

/// Which list the USB test page shows.
enum UsbTestList {
    UsbTestTopList = 1,
    UsbTestUsb0BcModes = 2,
    UsbTestUsb1BcModes = 3,
    UsbTestModes = 4,
};

// Of the whole plug-in: the page's classes share them, and the main view asks for the list.

/// The list that is shown, a UsbTestList.
extern int usbTestListType;
/// What the three settings are set to: texts of their lists' rows.
extern QString curUsb0BCMode;
extern QString curUsb1BCMode;
extern QString curTestMode;
