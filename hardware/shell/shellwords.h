#pragma once

#include <QByteArray>
#include <QVector>

namespace hardware
{

/// One character of a word as the shell will see it, and what it is written as.
struct ShellLetter
{
    enum Quote { Unquoted, InSingle, InDouble };

    char character;
    Quote quote;
    int at;     ///< where it is written in the command
    int length; ///< how much of the command writes it, 2 for an escaped character

    bool isEscaped() const { return quote == Unquoted && length == 2; }
};

using ShellWord = QVector<ShellLetter>;

/// The words of a shell command with quotes and escapes resolved, those of commands in "$(…)",
/// "`…`" and "(…)" included, operators and comments left out. What only the running shell knows
/// stands in a word as one letter, Computed.
class ShellWords
{
public:
    static constexpr char Computed = '\x01';
    static constexpr char UnitFolder = '\x02'; ///< the value of "$UNIT"

    explicit ShellWords(const QByteArray &command);

    /// A word inside another one's "$(…)" comes before it.
    const QVector<ShellWord> &all() const;

    /// Whether commands stand in one another more than 100 deep. The rest of them is in no word.
    bool isTooDeep() const;

    /// The characters of a word, one byte for each letter.
    static QByteArray text(const ShellWord &word);

    /// Whether the character ends an unquoted word.
    static bool isSeparator(char character);

private:
    bool isAtEnd(char end = '\0') const;
    char next(int ahead = 0) const;
    void readCommand(char end);
    void readPart(ShellWord *word, ShellLetter::Quote quote);
    void readQuoted(ShellWord *word, ShellLetter::Quote quote);
    void readEscape(ShellWord *word, ShellLetter::Quote quote);
    void readExpansion(ShellWord *word, ShellLetter::Quote quote);
    void readBraces(ShellWord *word, ShellLetter::Quote quote);
    void readNested(ShellWord *word, ShellLetter::Quote quote, int opening, char end);
    void readPlain(ShellWord *word, ShellLetter::Quote quote);
    QByteArray readName();
    bool goDeeper();
    void finish(ShellWord *word);

    const QByteArray m_command;
    int m_at = 0;
    int m_depth = 0;
    bool m_isTooDeep = false;
    QVector<ShellWord> m_words;
};

} // namespace hardware
