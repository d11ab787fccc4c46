#pragma once

/// The bounded step behind every plus and minus button: \a current moved up or down by \a step, or
/// \a current as it is where less than a step is left to \a max or \a min. Nothing wraps around and
/// nothing is clamped, so a value from outside the range only ever moves back toward it.
int CALCUTELATE_VAL(int min, int max, int current, bool increase, int step);
