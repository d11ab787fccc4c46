#pragma once

#include "kvglobal/kvglobal.h"

#include <QString>
#include <QStringList>

/// The service behind the unit's two USB ports. Graphical thread only.
class KV_API UsbControl
{
public:
    /// A test selector of USB 2.0 (section 9.4.9, table 9-7).
    enum UsbTestMode : int {};

    static UsbControl *getInstance();

    /// The charging mode that a port, 0 or 1, advertises: 0 is CDP, 1 DCP, 2 SDP.
    void setUsbBcMode(unsigned int port, unsigned int mode);

    /// What the ports are tested for: 'O' nothing, 'T' USB-IF certification, 'M' MFi accessories.
    void setUsbCertification(unsigned int mode);

    /// Puts out a test pattern.
    void setUsbTestMode(UsbTestMode mode);

    /// Mount roots of all storage in the order in which it was mounted, without a trailing slash.
    QStringList getMountDevice();

    /// Number of the controller behind a mount root; -1 where nothing is known of it.
    int getHwCtrlId(QString mountRoot);

private:
    UsbControl();
};
