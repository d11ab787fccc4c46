#pragma once

// Sender side of XMODEM-1K with CRC. A frame has 1029 bytes:
//
//     offset  size  field
//          0     1  STX (0x02)
//          1     1  number of the block modulo 256; the first one is 1
//          2     1  the number's one's complement
//          3  1024  data; the last block is filled up with 0x1A
//       1027     2  CRC-16/XMODEM of the data, high byte first
//
// The receiver asks for the first frame with 'C' and answers each with ACK (0x06) or NAK (0x15);
// EOT (0x04) ends the transfer.

/// Sends a file over the line \a fd, and prints how it goes. 0 or -1; also 0, on purpose, when a
/// block has been refused twelve times in a row. Waits 10 to 11 s for an answer, but without end
/// for that to EOT. An answer that is none of the protocol's leaves the file open.
int xmodem_send(int fd, const char *path);
