#pragma once

class QByteArray;

/// Copies the Bluetooth logs of the unit's flash ("userdata/btsnoop.log", "nvm/btsnoop.log") to
/// folders of the same names on a storage device, replacing older copies. Blocks until the shell
/// is done; the result of no command is looked at. \a device is the device's mount root; one that
/// the shell would interpret, or too long for a command of 255 bytes, is traced and nothing is run.
void copyBtsnoopLogs(const QByteArray &device);
