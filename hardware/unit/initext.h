#pragma once

#include <QByteArray>
#include <QMap>
#include <QString>
#include <QVariant>

namespace hardware
{

/// The text of an ini file from which QSettings reads these values: text, bytes, numbers, switches,
/// and lists of text, by their keys. QSettings itself does not see it when what it writes finds no
/// room on the disk, and leaves half a file.
QByteArray iniText(const QMap<QString, QVariant> &values);

} // namespace hardware
