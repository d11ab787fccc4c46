#pragma once

#include "kvglobal/kvglobal.h"

namespace kvplfctrl
{

/// Control of the unit's platform; here its throughput tests over the USB network link. At most one
/// test runs: a start ends the one before. Any thread.
class KV_API KVPlatformControl
{
public:
    static KVPlatformControl *GetInstance();

    /// All return 0 on success and a negative number otherwise. A server receives what the
    /// connected device sends, a client sends to it until it is stopped.
    int startTcpTestServer();
    int startUdpTestServer();
    /// Ends the test that runs, client or server; negative when none does.
    int stopTest();
    /// At 50 and at 100 Mbit/s.
    int startUdpTestClient50();
    int startUdpTestClient100();
    /// As fast as the link is.
    int startTcpTestClient();

private:
    KVPlatformControl();
};

} // namespace kvplfctrl
