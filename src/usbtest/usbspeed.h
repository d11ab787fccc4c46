#pragma once

/// Switches a port, 0 or 1, to high speed (\a value 1) or to full speed (0). Any other port is left
/// alone.
void switchUsbSpeed(int port, int value);
