#pragma once

#include <QString>
#include <QStringList>

/// These write a package with the script that people use, and make the folders above it: \a file is
/// a host path. They end the test program when that fails.
void makeUpdatePackage(const QString &file, const QStringList &options = QStringList(),
                       const QString &customerVersion = QStringLiteral("CUST 2.10.0"),
                       const QString &sdkVersion = QStringLiteral("SDK 7.4.1"));

/// \a kind is one that the script lists; a valid package tells the receiver \a version and has a
/// payload of \a size bytes.
void makeGpsPackage(const QString &file, const QString &kind = QStringLiteral("valid"),
                    const QString &version = QStringLiteral("GNSS 2.00.0"), int size = 3000);

/// "gps_bootloader.pkg" and "gps_firmware.pkg" in a folder, valid ones with payloads of so many
/// bytes.
void makeGpsPackages(const QString &folder, int bootloader, int firmware);
