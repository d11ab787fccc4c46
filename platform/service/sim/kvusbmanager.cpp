#include "service/kvusbmanager.h"

#include "hardware/unit/unit.h"
#include "unitlink/calls.h"
#include "unitlink/simulatedunit.h"

namespace kv_usb
{

KVUsbManager::KVUsbManager() = default;

KVUsbManager *KVUsbManager::create(const std::string &version)
{
    const auto ask = [&version]() -> KVUsbManager * {
        return version == "2.9" ? unitlink::service<KVUsbManager>([] { return new KVUsbManager; })
                                : nullptr;
    };
    return unitlink::answer("KVUsbManager::create", static_cast<KVUsbManager *>(nullptr), ask,
                            QString::fromStdString(version));
}

int KVUsbManager::getPortMode(int port)
{
    const auto ask = [port] {
        return port == 0 || port == 1 ? unitlink::unit().usbPorts().bcMode(unsigned(port)) : -1;
    };
    return unitlink::answer("KVUsbManager::getPortMode", -1, ask, port);
}

int KVUsbManager::getCertificationMode()
{
    return unitlink::answer("KVUsbManager::getCertificationMode", -1,
                            [] { return unitlink::unit().usbPorts().certification(); });
}

} // namespace kv_usb
