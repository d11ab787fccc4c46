#pragma once

// Packages of the GPS receiver's boot loader and firmware: sections, each a header of 32 bytes and
// its payload. All fields are little-endian.
//
//     offset  size  field
//          0     4  magic: which part of the receiver it is for; not compared
//          4     4  sum of the payload's 32-bit words, the last one padded with zero bytes
//         12     4  length of the payload in bytes
//         28     2  CRC-16/XMODEM of the header's bytes 0 to 27
//
// The other bytes of the header have no meaning here. Up to 32 bytes behind the last section are
// ignored.

#include <cstdint>

/// CRC-16/XMODEM: polynomial 0x1021, initial value 0, most significant bit first.
std::uint16_t get_crc16(const void *data, std::uint16_t length);

/// Prints a hex dump to the standard output, 16 bytes a line.
void dump(const void *data, int length);

/// Size of a file in bytes; -1 when there is none.
int get_file_size(const char *path);

/// Checks every section's header and payload, and prints what it finds: 0 when the file is a
/// package, -1 when not. The \a magic is not compared. Takes time with the file's size, but no
/// memory.
int check_file(const char *path, std::uint32_t magic);
