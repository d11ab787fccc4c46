#pragma once

/// Reads a 32-bit word of the physical memory, at \a base + \a offset; \a base is a multiple of
/// 4096 and \a offset lies within the page. With \a write not 0, *\a value is stored there first.
/// *\a value becomes the word as it was read, which is also printed on standard output; when the
/// memory cannot be opened or mapped, a message is printed and *\a value stays as it is.
void devmem_main(unsigned int base, unsigned int offset, char write, unsigned int *value);
