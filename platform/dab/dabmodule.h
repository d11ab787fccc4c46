#pragma once

#include "kvappframework/module.h"
#include "kvglobal/kvglobal.h"

#include <QObject>
#include <QString>

/// The service behind the DAB tuner. Graphical thread only, but for the signal.
class KV_API DabModule : public QObject
{
    Q_OBJECT

public:
    ~DabModule() override;

    /// The status code of a firmware update: 7 running, 8 failed, 9 succeeded, anything else none.
    virtual unsigned char m_DAB_GetCurrentStatus() = 0;

    /// Version text of the tuner's software; empty while unknown.
    virtual QString DAB_GetSdkVersion() = 0;

    /// Begins to write the firmware that lies on the storage with that mount root, and returns at
    /// once: 0, or -1 while an update runs. How it goes is told by dabMsgToOtherModule().
    virtual int m_DAB_FwUpdate(const char *rootPath) = 0;

signals:
    /// A status code as above. Sent from the service's own thread, never from a call of this class.
    void dabMsgToOtherModule(unsigned char code);

protected:
    DabModule();
    Q_DISABLE_COPY(DabModule)
};

/// The "dab" module of the framework, which holds the service.
class KV_API DabModulePlugin : public kvappframework::Module
{
public:
    ~DabModulePlugin() override;

    /// Null in a unit without a tuner.
    virtual DabModule *getDabModule() = 0;
};
