#include "consolesession.h"

#include <QDir>

#include <algorithm>

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

void ConsoleSession::setValue(const QString &name, const QString &value)
{
    m_values.insert(name, value);
}

const QMap<QString, QString> &ConsoleSession::values() const
{
    return m_values;
}

void ConsoleSession::setListener(const std::function<void(const QString &line)> &listener)
{
    m_listener = listener;
}

void ConsoleSession::tell(const QStringList &lines) const
{
    if (m_listener) {
        std::for_each(lines.cbegin(), lines.cend(), m_listener);
    }
}

QString ConsoleSession::path(const QString &name) const
{
    return QDir(m_directory).absoluteFilePath(name);
}

} // namespace simulator
