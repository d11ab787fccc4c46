#include "simdabmodule.h"

#include "hardware/unit/unit.h"
#include "unitlink/calls.h"
#include "unitlink/simulatedunit.h"

class SimDabModule::Service : public DabModule
{
public:
    unsigned char m_DAB_GetCurrentStatus() override
    {
        return static_cast<unsigned char>(
            unitlink::answer("DabModule::m_DAB_GetCurrentStatus", 0,
                             [] { return unitlink::unit().dabTuner().status(); }));
    }

    QString DAB_GetSdkVersion() override
    {
        return unitlink::answer("DabModule::DAB_GetSdkVersion", QString(),
                                [] { return unitlink::unit().versions().dabSdk(); });
    }

    int m_DAB_FwUpdate(const char *rootPath) override
    {
        return !unitlink::fails("DabModule::m_DAB_FwUpdate")
                && unitlink::unit().dabTuner().startUpdate(rootPath)
            ? 0
            : -1;
    }
};

SimDabModule::SimDabModule()
    : m_service(std::make_shared<Service>())
{
    const std::shared_ptr<Service> service = m_service;
    // Without a receiver: runs on the tuner's thread, and keeps the service until it has run.
    m_connection = QObject::connect(
        &unitlink::unit().dabTuner(), &hardware::DabTuner::statusTold, [service](int status) {
            emit service->dabMsgToOtherModule(static_cast<unsigned char>(status));
        });
}

SimDabModule::~SimDabModule()
{
    QObject::disconnect(m_connection);
}

QObject *SimDabModule::getReceiver()
{
    return m_service.get();
}

DabModule *SimDabModule::getDabModule()
{
    return m_service.get();
}
