#pragma once

#include "hardware/storage/storage.h"
#include "hardware/unit/journal.h"
#include "hardware/unit/unitfolder.h"
#include "support/openunit.h"

#include <QScopedPointer>
#include <QTemporaryDir>

const QString usb0 = QStringLiteral("usb0");
const QString usb1 = QStringLiteral("usb1");
const QString sd0 = QStringLiteral("sd0");
const QString usb0Root = QStringLiteral("/media/usb0");
const QString usb1Root = QStringLiteral("/media/usb1");
const QString sd0Root = QStringLiteral("/media/sd0");

/// What tests of the storage have alike: a unit's folder, and the storage on it.
class StorageTest
{
protected:
    void switchOn();
    /// The storage of the unit's folder as a new start of the simulator opens it.
    void start();
    QString path(const QString &unitPath) const { return m_root + unitPath; }
    void plug(const QString &slot, const QString &folder = QString());
    void pull(const QString &slot);

    QScopedPointer<QTemporaryDir> m_temporary;
    QString m_root;
    QScopedPointer<hardware::UnitFolder> m_folder;
    QScopedPointer<hardware::Journal> m_journal;
    QScopedPointer<hardware::Storage> m_storage;
};
