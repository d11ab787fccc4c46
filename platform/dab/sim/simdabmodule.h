#pragma once

#include "dab/dabmodule.h"

#include <memory>

/// The "dab" module in front of the simulated unit's tuner.
class KV_API SimDabModule : public DabModulePlugin
{
public:
    SimDabModule();
    ~SimDabModule() override;
    Q_DISABLE_COPY(SimDabModule)

    QObject *getReceiver() override;
    DabModule *getDabModule() override;

private:
    class Service;

    // The tuner's thread may still be sending its signal when this module goes.
    std::shared_ptr<Service> m_service;
    QMetaObject::Connection m_connection;
};
