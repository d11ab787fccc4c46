#include "service/kvplatformcontrol.h"

#include "hardware/unit/unit.h"
#include "unitlink/simulatedunit.h"

using hardware::NcmTest;

namespace kvplfctrl
{

namespace
{

int start(NcmTest::Kind kind)
{
    return unitlink::unit().ncmTest().start(kind) ? 0 : -1;
}

} // namespace

KVPlatformControl::KVPlatformControl() = default;

KVPlatformControl *KVPlatformControl::GetInstance()
{
    return unitlink::service<KVPlatformControl>([] { return new KVPlatformControl; });
}

int KVPlatformControl::startTcpTestServer()
{
    return start(NcmTest::TcpServer);
}

int KVPlatformControl::startUdpTestServer()
{
    return start(NcmTest::UdpServer);
}

int KVPlatformControl::stopTest()
{
    return unitlink::unit().ncmTest().stop() ? 0 : -1;
}

int KVPlatformControl::startUdpTestClient50()
{
    return start(NcmTest::UdpClient50);
}

int KVPlatformControl::startUdpTestClient100()
{
    return start(NcmTest::UdpClient100);
}

int KVPlatformControl::startTcpTestClient()
{
    return start(NcmTest::TcpClient);
}

} // namespace kvplfctrl
