#include "consolesession.h"

#include <QDir>

namespace simulator
{

ConsoleSession::ConsoleSession(hardware::JournalReader &reader)
    : m_reader(reader)
    , m_directory(QDir::currentPath())
{
}

hardware::JournalReader &ConsoleSession::reader() const
{
    return m_reader;
}

void ConsoleSession::setDirectory(const QString &directory)
{
    m_directory = QDir::cleanPath(path(directory));
}

QString ConsoleSession::path(const QString &name) const
{
    return QDir(m_directory).absoluteFilePath(name);
}

} // namespace simulator
