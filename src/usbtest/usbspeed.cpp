#include "usbspeed.h"

#include "common/runcommand.h"

namespace
{

/// By port, then by the value to write.
constexpr const char *speedCommands[2][2] = {
    {"echo 0 > /sys/devices/platform/ehci-platform.1/usb_speed_switch",
     "echo 1 > /sys/devices/platform/ehci-platform.1/usb_speed_switch"},
    {"echo 0 > /sys/devices/platform/ehci-platform.2/usb_speed_switch",
     "echo 1 > /sys/devices/platform/ehci-platform.2/usb_speed_switch"},
};

} // namespace

void switchUsbSpeed(int port, int value)
{
    if (port == 0 || port == 1) {
        runCommand(speedCommands[port][value]);
    }
}
