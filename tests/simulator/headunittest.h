#pragma once

#include "program.h"

#include <QScopedPointer>
#include <QStringList>
#include <QTemporaryDir>

/// These arguments behind those for the test activity without a display.
QStringList withTestActivity(const QStringList &arguments);

Outcome headunit(const QStringList &arguments);

/// What tests of the program "headunit" have alike: a folder for its unit.
class HeadunitTest
{
protected:
    void makeFolder();
    /// Writes a script and gives its name.
    QString script(const QByteArray &content) const;
    Outcome control(const QStringList &command) const;
    bool waitForUnit() const;

    QScopedPointer<QTemporaryDir> m_folder;
    QString m_unit;
};
