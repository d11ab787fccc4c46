#pragma once

#include "hardware/unit/unit.h"

#include <QTemporaryDir>

/// An opened simulated unit in a temporary folder, without a screen and without a gate.
class OpenUnit
{
public:
    /// \a name is that of the unit's folder inside the temporary one.
    explicit OpenUnit(double timeFactor = 1.0, const QString &name = QStringLiteral("unit"));

    hardware::Unit &operator*() { return m_unit; }
    hardware::Unit *operator->() { return &m_unit; }

    /// Host path of a path of the unit.
    QString path(const QString &unitPath) const;

    /// Host path beside the unit's folder.
    QString beside(const QString &name) const;

private:
    QTemporaryDir m_temporary;
    hardware::Unit m_unit;
};

/// Writes a file and the folders above it; ends the test program when that fails.
void writeFile(const QString &path, const QByteArray &content);

/// The whole content; empty when the file cannot be read.
QByteArray readFile(const QString &path);
