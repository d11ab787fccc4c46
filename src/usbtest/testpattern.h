#pragma once

/// The test patterns that the eye-diagram page offers, in the order of its buttons.
namespace testpattern
{

enum Pattern { Eye, J, K, Se0, None };

/// What a port's testMode register takes for a pattern at high or full speed; 0, which ends a test,
/// for None and for what is no pattern.
unsigned int code(int pattern, bool isHighSpeed);

} // namespace testpattern
