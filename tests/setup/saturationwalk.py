#!/usr/bin/python3
"""saturationwalk.py STEPS...: prints what the panel page's saturation does when it starts at 1.0 and
is stepped so many times, up for a positive number and down for a negative one: one line before the
first and one after each step, with the label's text, the value that the display service is given,
and the integer that the vendor data keeps.

The arithmetic is rational and exact; only what is meant to be rounded is, to the nearest
single-precision number of IEEE 754 (ties to even), by packing it into four bytes."""

import struct
import sys
from fractions import Fraction


def single(exact):
    """The single-precision number nearest to a rational one that a double holds exactly."""
    double = float(exact)
    assert Fraction(double) == exact
    return Fraction(struct.unpack("<f", struct.pack("<f", double))[0])


STEP = single(Fraction(0.01))
LIMIT = Fraction(1.99)  # In double precision.


def down(saturation):
    less = single(saturation - STEP)
    return less if less > 0 else saturation


def up(saturation):
    # The difference is taken in double precision.
    room = Fraction(float(LIMIT - saturation))
    return single(saturation + STEP) if room >= STEP else saturation


def show(saturation):
    stored = int(single(saturation * 100))  # Cuts off toward zero.
    print("%.2f %r %d" % (float(saturation), float(saturation), stored))


saturation = single(Fraction(1))
show(saturation)
for steps in map(int, sys.argv[1:]):
    for _ in range(abs(steps)):
        saturation = up(saturation) if steps > 0 else down(saturation)
        show(saturation)
