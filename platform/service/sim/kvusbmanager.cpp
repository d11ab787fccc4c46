#include "service/kvusbmanager.h"

#include "hardware/unit/unit.h"
#include "unitlink/simulatedunit.h"

namespace kv_usb
{

KVUsbManager::KVUsbManager() = default;

KVUsbManager *KVUsbManager::create(const std::string &version)
{
    return version == "2.9" ? unitlink::service<KVUsbManager>([] { return new KVUsbManager; })
                            : nullptr;
}

int KVUsbManager::getPortMode(int port)
{
    return port == 0 || port == 1 ? unitlink::unit().usbPorts().bcMode(unsigned(port)) : -1;
}

int KVUsbManager::getCertificationMode()
{
    return unitlink::unit().usbPorts().certification();
}

} // namespace kv_usb
