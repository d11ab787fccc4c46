#pragma once

/// The registers of the USB controllers and their PHYs, by physical address, and what is written
/// to them. Registers that each port has of its own are portDistance bytes apart.
namespace usbregisters
{

const unsigned int role = 0x9C00018C;
const unsigned int roleHost = 0x00070007;
const unsigned int roleDevice = 0x00070004;

/// Cleared on the way to the device role.
const unsigned int deviceControl = 0x9C102900;

/// A byte for each port, from the lowest; the upper two bytes are always written.
const unsigned int phySwing = 0x9C000190;
const unsigned int phySwingUpperBytes = 0x7F7F0000;

const unsigned int portDistance = 128;
const unsigned int phyDisconnect = 0x9C004A9C;
const unsigned int testMode = 0x9C004A90;

/// What opens a port's PHY to changes of its disconnect value, in this order.
const unsigned int debugAccess = 0x9C004A8C;
const unsigned int debugAccessOn = 1;
const unsigned int debugTestMode = 7; // in testMode
const unsigned int debugGate = 0x9C000088;
const unsigned int debugGateOpen = 0;
const unsigned int debugSelect = 0x9C0000A0;
const unsigned int debugSelectPort0 = 0x0004100C;
const unsigned int debugSelectPort1 = 0x0008100C;

/// Codes in testMode.
const unsigned int testNone = 0;
const unsigned int testEyeHighSpeed = 1;
const unsigned int testEyeFullSpeed = 4;
const unsigned int testSe0 = 7;
const unsigned int testJHighSpeed = 9;
const unsigned int testKHighSpeed = 10;
const unsigned int testJFullSpeed = 11;
const unsigned int testKFullSpeed = 12;

} // namespace usbregisters
