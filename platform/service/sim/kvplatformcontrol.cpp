#include "service/kvplatformcontrol.h"

#include "hardware/unit/unit.h"
#include "unitlink/calls.h"
#include "unitlink/simulatedunit.h"

using hardware::NcmTest;

namespace kvplfctrl
{

namespace
{

int start(const char *call, NcmTest::Kind kind)
{
    return !unitlink::fails(call) && unitlink::unit().ncmTest().start(kind) ? 0 : -1;
}

} // namespace

KVPlatformControl::KVPlatformControl() = default;

KVPlatformControl *KVPlatformControl::GetInstance()
{
    // Told, unlike the look-up of services that are fetched for each call: who keeps it asks once.
    unitlink::tellOfQuestion("KVPlatformControl::GetInstance", QString(),
                             QStringLiteral("an object"));
    return unitlink::service<KVPlatformControl>([] { return new KVPlatformControl; });
}

int KVPlatformControl::startTcpTestServer()
{
    return start("KVPlatformControl::startTcpTestServer", NcmTest::TcpServer);
}

int KVPlatformControl::startUdpTestServer()
{
    return start("KVPlatformControl::startUdpTestServer", NcmTest::UdpServer);
}

int KVPlatformControl::stopTest()
{
    return !unitlink::fails("KVPlatformControl::stopTest") && unitlink::unit().ncmTest().stop()
        ? 0
        : -1;
}

int KVPlatformControl::startUdpTestClient50()
{
    return start("KVPlatformControl::startUdpTestClient50", NcmTest::UdpClient50);
}

int KVPlatformControl::startUdpTestClient100()
{
    return start("KVPlatformControl::startUdpTestClient100", NcmTest::UdpClient100);
}

int KVPlatformControl::startTcpTestClient()
{
    return start("KVPlatformControl::startTcpTestClient", NcmTest::TcpClient);
}

} // namespace kvplfctrl
