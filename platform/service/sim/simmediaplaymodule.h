#pragma once

#include "service/mediaplaymodule.h"

#include <QObject>

/// The simulated media player: remembers and journals what it is told.
class KV_API SimMediaplayModule : public MediaplayModulePlugin, private MediaplayModule
{
public:
    SimMediaplayModule();
    ~SimMediaplayModule() override;

    QObject *getReceiver() override;
    MediaplayModule *getMediaplayModule() override;

    bool isUSBTesting() const;

private:
    void setUSBTesting(bool testing) override;

    QObject m_receiver;
    bool m_usbTesting = false;
};
