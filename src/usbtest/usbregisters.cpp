#include "usbregisters.h"

#include "devmem.h"

namespace
{

constexpr unsigned int offsetMask = 0xFFF; // within a page of the memory

} // namespace

unsigned int usbregisters::ofPort(unsigned int address, int port)
{
    return address + portDistance * static_cast<unsigned int>(port);
}

unsigned int usbregisters::read(unsigned int address)
{
    unsigned int value = 0;
    devmem_main(address & ~offsetMask, address & offsetMask, 0, &value);
    return value;
}

void usbregisters::write(unsigned int address, unsigned int value)
{
    devmem_main(address & ~offsetMask, address & offsetMask, 1, &value);
}
