#pragma once

#include <QString>
#include <QStringList>

/// Writes an update package with the script that people use: \a options are its own, \a file is a
/// host path. Ends the test program when that fails.
void makeUpdatePackage(const QString &file, const QStringList &options = QStringList(),
                       const QString &customerVersion = QStringLiteral("CUST 2.10.0"),
                       const QString &sdkVersion = QStringLiteral("SDK 7.4.1"));
