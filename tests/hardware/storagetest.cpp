#include "storagetest.h"

#include <QtTest>

using hardware::Journal;
using hardware::Storage;
using hardware::UnitFolder;

void StorageTest::switchOn()
{
    m_storage.reset();
    m_folder.reset();
    m_temporary.reset(new QTemporaryDir);
    m_root = m_temporary->filePath(QStringLiteral("unit"));
    start();
}

void StorageTest::start()
{
    m_storage.reset();
    m_folder.reset();
    m_folder.reset(new UnitFolder(m_root));
    m_journal.reset(new Journal);
    m_storage.reset(new Storage(*m_folder, *m_journal));
    QString error;
    QVERIFY2(m_folder->open(&error), qPrintable(error));
    QVERIFY2(m_storage->open(&error), qPrintable(error));
}

void StorageTest::plug(const QString &slot, const QString &folder)
{
    QString error;
    QVERIFY2(m_storage->plug(slot, folder, &error), qPrintable(error));
}

void StorageTest::pull(const QString &slot)
{
    QString error;
    QVERIFY2(m_storage->pull(slot, &error), qPrintable(error));
}
