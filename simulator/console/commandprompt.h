#pragma once

#include <QStringList>

#include <functional>

namespace simulator
{

/// Reads lines from the terminal, which can be edited, recalled and completed. One at a time.
class CommandPrompt
{
public:
    using Completer = std::function<QStringList(const QString &line)>;

    /// \a completer says what the last word of a line can become. What was typed is kept in
    /// \a historyFile, of which the folder is made, from one prompt to the next.
    CommandPrompt(const Completer &completer, const QString &historyFile);
    ~CommandPrompt();
    Q_DISABLE_COPY(CommandPrompt)

    /// The next line; false at the end, which Ctrl+D makes.
    bool readLine(QByteArray *line);

private:
    static char **complete(const char *word, int start, int end);
    static char *nextMatch(const char *word, int number);

    static CommandPrompt *current; // The library calls back without a word of whose it is.

    const Completer m_completer;
    const QByteArray m_historyFile;
    QStringList m_matches;
};

} // namespace simulator
