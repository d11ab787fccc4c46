#pragma once

#include <QByteArray>
#include <QFileDevice>
#include <QString>

namespace hardware
{

/// Files that are written whole or not at all, so that a full disk leaves none half-made. All
/// functions are false with the system's \a reason when the file cannot be written.
namespace wholefile
{

/// Makes a file that was not there; with \a added to its usual permissions. Does not wait for the
/// disk: what is lost with the power is made anew.
bool make(const QString &file, const QByteArray &content, QString *reason,
          QFileDevice::Permissions added = QFileDevice::Permissions());

/// Makes a file or replaces what it held, and waits for the disk.
bool replace(const QString &file, const QByteArray &content, QString *reason);

/// Removes what a program that was killed has left of such files in a folder. Their names.
QStringList removeParts(const QString &folder);

} // namespace wholefile

} // namespace hardware
