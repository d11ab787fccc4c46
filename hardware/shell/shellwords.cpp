#include "shellwords.h"

#include <cctype>
#include <cstring>

namespace hardware
{

namespace
{

const char specialParameters[] = "?#@*!$-0123456789";
const char defaultOperators[] = ":-=+?#%";
const char escapableInDouble[] = "\"$`\\";

/// Each level takes some of the thread's stack.
const int deepest = 100;

bool isOneOf(char character, const char *characters)
{
    return character != '\0' && std::strchr(characters, character) != nullptr;
}

char valueOf(const QByteArray &name)
{
    return name == "UNIT" ? ShellWords::UnitFolder : ShellWords::Computed;
}

} // namespace

ShellWords::ShellWords(const QByteArray &command)
    : m_command(command)
{
    readCommand('\0');
}

const QVector<ShellWord> &ShellWords::all() const
{
    return m_words;
}

bool ShellWords::isTooDeep() const
{
    return m_isTooDeep;
}

QByteArray ShellWords::text(const ShellWord &word)
{
    QByteArray text;
    text.reserve(word.size());
    for (const ShellLetter &letter : word) {
        text += letter.character;
    }
    return text;
}

bool ShellWords::isSeparator(char character)
{
    return isOneOf(character, " \t\n;&|<>()");
}

bool ShellWords::isAtEnd(char end) const
{
    return m_at >= m_command.size() || (end != '\0' && m_command.at(m_at) == end);
}

char ShellWords::next(int ahead) const
{
    return m_at + ahead < m_command.size() ? m_command.at(m_at + ahead) : '\0';
}

void ShellWords::readCommand(char end)
{
    ShellWord word;
    while (!isAtEnd(end)) {
        if (next() == '(') {
            finish(&word);
            readNested(&word, ShellLetter::Unquoted, 1, ')');
            word.clear();
        } else if (isSeparator(next())) {
            finish(&word);
            ++m_at;
        } else if (next() == '#' && word.isEmpty()) {
            while (!isAtEnd('\n')) {
                ++m_at;
            }
        } else if (next() == '~' && word.isEmpty()) {
            word.append({Computed, ShellLetter::Unquoted, m_at++, 1});
        } else {
            readPart(&word, ShellLetter::Unquoted);
        }
    }
    finish(&word);
}

void ShellWords::readPart(ShellWord *word, ShellLetter::Quote quote)
{
    const char character = next();
    if (character == '\\') {
        readEscape(word, quote);
    } else if (character == '$') {
        readExpansion(word, quote);
    } else if (character == '`') {
        readNested(word, quote, 1, '`');
    } else if (character == '\'' && quote == ShellLetter::Unquoted) {
        readQuoted(word, ShellLetter::InSingle);
    } else if (character == '"' && quote == ShellLetter::Unquoted) {
        readQuoted(word, ShellLetter::InDouble);
    } else {
        readPlain(word, quote);
    }
}

void ShellWords::readQuoted(ShellWord *word, ShellLetter::Quote quote)
{
    const char end = next();
    ++m_at;
    while (!isAtEnd(end)) {
        if (quote == ShellLetter::InSingle) {
            readPlain(word, quote);
        } else {
            readPart(word, quote);
        }
    }
    ++m_at;
}

void ShellWords::readEscape(ShellWord *word, ShellLetter::Quote quote)
{
    if (next(1) == '\n') {
        m_at += 2;
    } else if (isOneOf(next(1), escapableInDouble)
               || (quote == ShellLetter::Unquoted && next(1) != '\0')) {
        word->append({next(1), quote, m_at, 2});
        m_at += 2;
    } else {
        readPlain(word, quote);
    }
}

void ShellWords::readExpansion(ShellWord *word, ShellLetter::Quote quote)
{
    if (next(1) == '(') {
        readNested(word, quote, 2, ')');
        return;
    }
    if (next(1) == '{') {
        readBraces(word, quote);
        return;
    }
    const int begin = m_at;
    ++m_at;
    const QByteArray name = readName();
    if (name.isEmpty()) {
        m_at = begin;
        readPlain(word, quote);
    } else {
        word->append({valueOf(name), quote, begin, m_at - begin});
    }
}

void ShellWords::readBraces(ShellWord *word, ShellLetter::Quote quote)
{
    const int begin = m_at;
    m_at += 2;
    const QByteArray name = readName();
    while (isOneOf(next(), defaultOperators)) {
        ++m_at;
    }
    const bool isPlain = next() == '}' && m_at == begin + 2 + name.size();
    word->append({isPlain ? valueOf(name) : Computed, quote, begin, m_at - begin});
    if (goDeeper()) {
        while (!isAtEnd('}')) {
            readPart(word, quote);
        }
        --m_depth;
    }
    ++m_at;
}

void ShellWords::readNested(ShellWord *word, ShellLetter::Quote quote, int opening, char end)
{
    const int begin = m_at;
    m_at += opening;
    if (goDeeper()) {
        readCommand(end);
        --m_depth;
    }
    ++m_at;
    word->append({Computed, quote, begin, m_at - begin});
}

void ShellWords::readPlain(ShellWord *word, ShellLetter::Quote quote)
{
    word->append({next(), quote, m_at, 1});
    ++m_at;
}

QByteArray ShellWords::readName()
{
    const int begin = m_at;
    if (isOneOf(next(), specialParameters)) {
        ++m_at;
    } else {
        while (next() == '_' || std::isalnum(static_cast<unsigned char>(next()))) {
            ++m_at;
        }
    }
    return m_command.mid(begin, m_at - begin);
}

bool ShellWords::goDeeper()
{
    if (m_depth == deepest) {
        m_isTooDeep = true;
        m_at = m_command.size();
        return false;
    }
    ++m_depth;
    return true;
}

void ShellWords::finish(ShellWord *word)
{
    if (!word->isEmpty()) {
        m_words.append(*word);
        word->clear();
    }
}

} // namespace hardware
