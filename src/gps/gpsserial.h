#pragma once

// The serial line to the GPS receiver, on a plain descriptor. All functions block their thread for
// as long as they take.

#include <termios.h>

/// How wait_readable() waits: 0 asks the driver again and again, anything else leaves it to
/// select(). Chosen by check_select() and upgradeStart(); shared by all threads without a lock.
extern int use_select_wait;

/// Waits a moment for bytes: at most two rounds of 100 us with select(), else 1 ms. 1 or more when
/// there are some; 0 or less when not, and the caller asks again.
int wait_readable(int fd);

/// Reads 1 to \a maximum bytes and returns their number; waits for the first one. When the line
/// fails or is hung up, it ends the process with the status -5: without the line, a receiver whose
/// flash is being written must be left alone.
int deal_read(int fd, void *buffer, unsigned int maximum);

/// Measures how late select() comes back from a wait of 100 us, and sets use_select_wait: 0 when it
/// is precise enough to wait with, -1 when not.
int check_select();

/// Makes the line raw and blocking, 8 data bits, no parity, 1 stop bit, at \a speed (B230400,
/// B115200 or B9600). 0 or -1.
int set_baudrate(int fd, speed_t speed);

/// Opens the receiver's line at 230400 baud: its descriptor or -1.
int initial_serialPort();
