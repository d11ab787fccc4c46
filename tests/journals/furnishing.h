#pragma once

class HeadunitRun;

/// Puts on the unit what its pages work with: packages for the receiver on the stick of "usb0", one
/// with the user's data on that of "usb1", and logs to copy.
void furnish(const HeadunitRun &run);
