#include "openunit.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

OpenUnit::OpenUnit(double timeFactor, const QString &name)
    : m_unit(m_temporary.filePath(name), timeFactor)
{
    QString error;
    if (!m_unit.open(&error)) {
        qFatal("The test's unit cannot be opened: %s", qPrintable(error));
    }
}

QString OpenUnit::path(const QString &unitPath) const
{
    return m_unit.folder().path(unitPath);
}

QString OpenUnit::beside(const QString &name) const
{
    return m_temporary.filePath(name);
}

void writeFile(const QString &path, const QByteArray &content)
{
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size()) {
        qFatal("The test's file %s cannot be written.", qPrintable(path));
    }
}

QByteArray readFile(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}
