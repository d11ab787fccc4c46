#!/usr/bin/python3
"""Prints what the check of two GPS packages is to print, with Python's own CRC-16/XMODEM.

Arguments: the boot loader's and the firmware's path on the host, each with its name in the text.
The lines about the thread and the user ahead of it are the caller's, and the measurement of select()
at the end is different each time.
"""
import binascii
import struct
import sys


def dump(data):
    for start in range(0, len(data), 16):
        octets = ["%02x" % octet for octet in data[start:start + 16]]
        halves = [" ".join(octets[:8]), " ".join(octets[8:])]
        print("%04x: %s" % (start, " - ".join(half for half in halves if half)))


def check(path):
    with open(path, "rb") as file:
        content = file.read()
    print("file size [%d]" % len(content))
    offset = 0
    while len(content) - offset > 32:
        header = content[offset:offset + 32]
        total, length = struct.unpack("<4xI4xI", header[:16])
        crc = binascii.crc_hqx(header[:28], 0)
        dump(header)
        print("crc16  [%08x]" % crc)
        if crc != struct.unpack("<H", header[28:30])[0]:
            return False
        payload = content[offset + 32:offset + 32 + length]
        padded = payload + bytes(-len(payload) % 4)
        words = struct.unpack("<%dI" % (len(padded) // 4), padded)
        print("checksum  [%08x]\n" % (sum(words) % 2**32))
        if sum(words) % 2**32 != total:
            return False
        offset += 32 + length
    return len(content) > 0


bootloader, bootloader_name, firmware, firmware_name = sys.argv[1:]
print("===== LODESTAR FIRMWARE UPGRADE =====")
print("checking file: " + bootloader_name)
if not check(bootloader):
    print("bootloader file error!")
    sys.exit()
print("checking file: " + firmware_name)
# Once for each magic, of which none is compared.
if not check(firmware) and not check(firmware):
    print("firmware file error!")
