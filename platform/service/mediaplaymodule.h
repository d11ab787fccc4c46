#pragma once

#include "kvappframework/module.h"
#include "kvglobal/kvglobal.h"

/// Plays media from storage. Graphical thread only.
class KV_API MediaplayModule
{
public:
    virtual ~MediaplayModule();

    /// While set, the player treats the next start as a test of the USB storage.
    virtual void setUSBTesting(bool testing) = 0;
};

/// The "mediaplay" module of the framework, which holds the player.
class KV_API MediaplayModulePlugin : public kvappframework::Module
{
public:
    ~MediaplayModulePlugin() override;

    /// Never null.
    virtual MediaplayModule *getMediaplayModule() = 0;
};
