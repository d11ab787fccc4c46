#pragma once

#include "kvglobal/kvglobal.h"

#include <string>

namespace kv_usb
{

/// Tells what the unit's USB ports are set to. Graphical thread only.
class KV_API KVUsbManager
{
public:
    /// The manager in the version of this header.
    static KVUsbManager *GetInstance() { return create("2.9"); }

    /// The manager for callers that were built against that version of the interface; null for a
    /// version that the library does not speak.
    static KVUsbManager *create(const std::string &version);

    /// The charging mode of a port, 0 or 1: 0 is CDP, 1 DCP, 2 SDP; -1 for another port.
    int getPortMode(int port);
    /// 'O', 'T' or 'M', as UsbControl::setUsbCertification() takes it.
    int getCertificationMode();

private:
    KVUsbManager();
};

} // namespace kv_usb
