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

void ConsoleSession::setValue(const QString &name, const QString &value)
{
    m_values.insert(name, value);
}

const QMap<QString, QString> &ConsoleSession::values() const
{
    return m_values;
}

void ConsoleSession::setListener(const std::function<void(const QStringList &lines)> &listener,
                                 const std::function<bool()> &isThere)
{
    m_listener = listener;
    m_isListenerThere = isThere;
}

bool ConsoleSession::isListenedTo() const
{
    return m_isListenerThere && m_isListenerThere();
}

void ConsoleSession::tell(const QStringList &lines) const
{
    if (m_listener && !lines.isEmpty()) {
        m_listener(lines);
    }
}

QString ConsoleSession::path(const QString &name) const
{
    return QDir(m_directory).absoluteFilePath(name);
}

} // namespace simulator
