#pragma once

#include <QMap>
#include <QStringList>

#include <functional>

namespace hardware
{
class JournalReader;
}

namespace simulator
{

/// Where one user of the console stands: in the journal, in the host's folders, and in a script.
/// Used by one thread at a time; several sessions may share a reader.
class ConsoleSession
{
public:
    explicit ConsoleSession(hardware::JournalReader &reader);

    /// Where the session goes on reading the journal.
    hardware::JournalReader &reader() const;

    /// The folder from which relative file names count; the program's own at first.
    void setDirectory(const QString &directory);

    /// Gives a name a value, for later lines.
    void setValue(const QString &name, const QString &value);
    const QMap<QString, QString> &values() const;

    /// Who takes lines that a command has to say before it ends; without one they are lost. One
    /// that can go away says with \a isThere whether it still listens.
    void setListener(const std::function<void(const QStringList &lines)> &listener,
                     const std::function<bool()> &isThere = {});
    void tell(const QStringList &lines) const;

    /// Whether there is a listener that can go away, and it did not.
    bool isListenedTo() const;

    /// Counts, as long as it lives, one more script or command that runs within another.
    class Depth
    {
    public:
        explicit Depth(ConsoleSession &session)
            : m_depth(session.m_depth)
        {
            ++m_depth;
        }
        ~Depth() { --m_depth; }
        Q_DISABLE_COPY(Depth)

        int value() const { return m_depth; }

    private:
        int &m_depth;
    };

    /// Absolute form of a file's or folder's name.
    QString path(const QString &name) const;

private:
    hardware::JournalReader &m_reader;
    QString m_directory;
    QMap<QString, QString> m_values;
    std::function<void(const QStringList &lines)> m_listener;
    std::function<bool()> m_isListenerThere;
    int m_depth = 0;
};

} // namespace simulator
