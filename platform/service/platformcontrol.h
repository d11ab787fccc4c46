#pragma once

#include "kvglobal/kvglobal.h"

#include <QByteArray>
#include <QObject>
#include <QString>

/// Updates of the unit's software, and its restart.
class KV_API PlatformControl : public QObject
{
    Q_OBJECT

public:
    /// Where an update comes from.
    enum DevType {
        DevSd0 = 0,
        DevSd1 = 1,
        DevUsb0 = 2,
        DevUsb1 = 3,
        DevAuto = 5, ///< whichever storage has a package
    };

    static PlatformControl *getInstance();
    ~PlatformControl() override;

    /// Versions in an update package; empty when the file is none.
    QString getCustomerVer(QString package);
    QString getSDKVer(QString package);

    /// Has a package's checksum verified. Returns at once; ChecksumVerified() tells how it ended.
    void startVerifyChecksum(QString package);

    /// What the vendor data has to hold for an update to begin with the next start; empty when
    /// there is nothing to update from. \a language is that of the update's screen, such as
    /// "en_GB".
    QByteArray getUserUpdateData(DevType device, QString language);

    /// Restarts the unit. Returns; the restart comes from outside.
    void softWareReset();

signals:
    /// 0 when the package is good. Sent from a thread of the platform.
    void ChecksumVerified(int result);

private:
    PlatformControl();
    Q_DISABLE_COPY(PlatformControl)
};
