#include "consolesession.h"

#include <QDir>

namespace simulator
{

ConsoleSession::ConsoleSession(JournalPosition &position)
    : m_position(position)
    , m_directory(QDir::currentPath())
{
}

JournalPosition &ConsoleSession::position() const
{
    return m_position;
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
