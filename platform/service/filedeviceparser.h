#pragma once

#include "kvglobal/kvglobal.h"

#include <QString>
#include <QStringList>

/// Knows the storage that is plugged in and scans it for media. Graphical thread only.
class KV_API FileDeviceParser
{
public:
    /// Kinds of storage; which sockets are of which kind is a matter of the unit's configuration.
    enum MediaType {
        MediaType1 = 1,
        MediaType2 = 2,
    };

    static FileDeviceParser *getInstance();

    /// Mount roots of that kind, without a trailing slash, in the order in which they were mounted.
    QStringList getMountDeviceByType(MediaType type);

    /// Starts scanning the media below a mount root.
    void startParser(const QString &mountRoot);

private:
    FileDeviceParser();
};
