#pragma once

#include <QStringList>

/// Mount roots of the storage that the menu's actions work with, the one plugged last at the end.
QStringList mountedDevices();

/// Has the media on \a device scanned, and the activity "usb", which plays them, take the screen.
/// A framework may delete the main view meanwhile.
void startUsbMediaTest(const QString &device);
