"""What the programs that make packages share."""

import argparse
import os
import sys

LARGEST = 1 << 30


def length(word):
    """A number of bytes from the command line."""
    if not (word.isascii() and word.isdigit() and int(word) <= LARGEST):
        raise argparse.ArgumentTypeError(
            f'"{word}" is no number of bytes; allowed is a whole number from 0 to {LARGEST}')
    return int(word)


def write_to(file, content):
    """Writes a file and makes the folders above it; ends the program when that fails."""
    try:
        os.makedirs(os.path.dirname(os.path.abspath(file)), exist_ok=True)
        with open(file, "wb") as stream:
            stream.write(content)
    except OSError as error:
        sys.exit(f"{file} cannot be written: {error.strerror}")
