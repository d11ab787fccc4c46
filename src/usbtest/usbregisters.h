#pragma once

/// The registers of the USB controllers and their PHYs, by physical address, and what is written
/// to them. Registers that each port has of its own are portDistance bytes apart.
namespace usbregisters
{

constexpr unsigned int role = 0x9C00018C;
constexpr unsigned int roleHost = 0x00070007;
constexpr unsigned int roleDevice = 0x00070004;

/// Cleared on the way to the device role.
constexpr unsigned int deviceControl = 0x9C102900;

/// A byte for each port, from the lowest; the upper two bytes are always written.
constexpr unsigned int phySwing = 0x9C000190;
constexpr unsigned int phySwingUpperBytes = 0x7F7F0000;

constexpr unsigned int portDistance = 128;
constexpr unsigned int phyDisconnect = 0x9C004A9C;
constexpr unsigned int testMode = 0x9C004A90;

/// What opens a port's PHY to changes of its disconnect value, in this order.
constexpr unsigned int debugAccess = 0x9C004A8C;
constexpr unsigned int debugAccessOn = 1;
constexpr unsigned int debugTestMode = 7; // in testMode
constexpr unsigned int debugGate = 0x9C000088;
constexpr unsigned int debugGateOpen = 0;
constexpr unsigned int debugSelect = 0x9C0000A0;
constexpr unsigned int debugSelectPort0 = 0x0004100C;
constexpr unsigned int debugSelectPort1 = 0x0008100C;

/// A register of a port, 0 or 1, by that of port 0.
unsigned int ofPort(unsigned int address, int port);

/// The word there; 0 when it cannot be read.
unsigned int read(unsigned int address);
void write(unsigned int address, unsigned int value);

} // namespace usbregisters
