#pragma once

#include <QByteArray>
#include <QString>

namespace simulator
{

/// Lines of a script, from a file or from standard input, where another thread may interrupt the
/// wait for more.
class ScriptInput
{
public:
    ScriptInput();
    ~ScriptInput();
    Q_DISABLE_COPY(ScriptInput)

    /// \a file "-" stands for standard input. False with a sentence in \a error.
    bool open(const QString &file, QString *error);

    /// The next line without its end, or as much of one as is longer than the console takes; false
    /// at the end of the script, when interrupted, and when it cannot be read on.
    bool readLine(QByteArray *line);

    /// The sentence that says why it could not be read on; empty when that was not so.
    QString error() const;

    /// From any thread: readLine() has nothing more from now on.
    void interrupt();

private:
    bool fill();
    bool takeLine(QByteArray *line);
    QString unreadable(int reason) const;

    QString m_name;
    QString m_error;
    int m_input = -1;
    int m_wakeUp[2] = {-1, -1};
    QByteArray m_buffer;
};

} // namespace simulator
