#include "scriptinput.h"

#include "commandline.h"

#include <QFile>

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

namespace simulator
{

ScriptInput::ScriptInput()
{
    if (pipe2(m_wakeUp, O_CLOEXEC) != 0) {
        qFatal("No pipe: %s", std::strerror(errno));
    }
}

ScriptInput::~ScriptInput()
{
    if (m_input > STDIN_FILENO) {
        close(m_input);
    }
    close(m_wakeUp[0]);
    close(m_wakeUp[1]);
}

bool ScriptInput::open(const QString &file, QString *error)
{
    m_name = file;
    m_input = file == QLatin1String("-")
        ? STDIN_FILENO
        : ::open(QFile::encodeName(file).constData(), O_RDONLY | O_CLOEXEC);
    struct stat status;
    if (m_input < 0 || fstat(m_input, &status) != 0) {
        *error = unreadable(errno);
        return false;
    }
    if (S_ISDIR(status.st_mode)) {
        *error = unreadable(EISDIR);
        return false;
    }
    return true;
}

bool ScriptInput::readLine(QByteArray *line)
{
    while (!takeLine(line)) {
        if (m_buffer.size() > commandline::maxLineBytes || !fill()) {
            *line = m_buffer;
            m_buffer.clear();
            return !line->isEmpty();
        }
    }
    return true;
}

QString ScriptInput::error() const
{
    return m_error;
}

void ScriptInput::interrupt()
{
    const char byte = 0;
    while (write(m_wakeUp[1], &byte, 1) < 0 && errno == EINTR) { }
}

bool ScriptInput::fill()
{
    pollfd ready[] = {{m_input, POLLIN, 0}, {m_wakeUp[0], POLLIN, 0}};
    while (poll(ready, 2, -1) < 0 && errno == EINTR) { }
    if (ready[1].revents != 0) {
        m_buffer.clear();
        return false;
    }
    char bytes[4096];
    const ssize_t count = read(m_input, bytes, sizeof bytes);
    if (count < 0) {
        m_error = unreadable(errno);
        m_buffer.clear();
    }
    if (count <= 0) {
        return false;
    }
    m_buffer.append(bytes, int(count));
    return true;
}

bool ScriptInput::takeLine(QByteArray *line)
{
    const int end = m_buffer.indexOf('\n');
    if (end < 0) {
        return false;
    }
    *line = m_buffer.left(end);
    m_buffer.remove(0, end + 1);
    return true;
}

QString ScriptInput::unreadable(int reason) const
{
    return QStringLiteral("The script \"%1\" cannot be read: %2.")
        .arg(m_name, QString::fromLocal8Bit(std::strerror(reason)));
}

} // namespace simulator
