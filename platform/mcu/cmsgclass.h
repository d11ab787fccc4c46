#pragma once

#include "kvglobal/kvglobal.h"

#include <QObject>
#include <QString>

/// The number of a key tone.
enum e_clickType : int {};

/// What the unit's other processors tell, and what they are asked to do. Graphical thread only.
class KV_API CMsgClass : public QObject
{
    Q_OBJECT

public:
    static CMsgClass *getInstance();

    /// Version text of the GPS receiver's firmware; empty while unknown.
    QString getGpsVerInfo();
    /// Version text of the Bluetooth module; empty while unknown.
    QString getBluetoothVersion();
    /// Product identifier of the ambient light sensor.
    int getAlsPdtInfo();

    /// Mount root of the USB storage that was plugged in last, without a trailing slash; empty when
    /// there is none.
    void getDevRootPath(QString &path);

    /// Tells the system whether an update may begin at any moment.
    void setUpdateReadyState(bool ready);

    void playBeepTone(e_clickType type);

    /// Restarts the unit. Returns; the restart comes from outside.
    void setSysReboot();

signals:
    /// USB storage came or went; \a path is what getDevRootPath() gives now.
    void sigDevRootPath(QString path);

private:
    CMsgClass();
    Q_DISABLE_COPY(CMsgClass)
};
