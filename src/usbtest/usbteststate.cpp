#include "usbteststate.h"

int usbTestListType = UsbTestTopList;
QString curUsb0BCMode;
QString curUsb1BCMode;
QString curTestMode;
