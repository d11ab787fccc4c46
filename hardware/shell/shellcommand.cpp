#include "shellcommand.h"

#include "hardware/unit/unitpath.h"

#include <QList>

#include <fnmatch.h>

#include <algorithm>
#include <iterator>

namespace hardware
{

namespace
{

/// Whether ".." takes a path, which begins in some folder, out of that folder.
bool climbsOut(const QByteArray &path)
{
    int depth = 0;
    const QList<QByteArray> names = path.split('/');
    return std::any_of(names.cbegin(), names.cend(), [&depth](const QByteArray &name) {
        if (name == "..") {
            --depth;
        } else if (!name.isEmpty() && name != ".") {
            ++depth;
        }
        return depth < 0;
    });
}

/// Whether the shell may make one of the host's folders of the first name of a plain path.
bool mayBecomeHostPath(const UnitPath &path)
{
    const QByteArray name = QByteArray(path.text() + 1).split('/').first();
    const char *const folders[] = {"dev", "media", "proc", "sys"};
    return name.contains(ShellWords::Computed)
        || std::any_of(std::begin(folders), std::end(folders), [&name](const char *folder) {
               return fnmatch(name.constData(), folder, 0) == 0;
           });
}

bool isForbidden(const UnitPath &path)
{
    switch (path.place()) {
    case UnitPath::OfUnit:
        return false;
    case UnitPath::Elsewhere:
        return qstrcmp(path.text(), "/") == 0 || mayBecomeHostPath(path);
    case UnitPath::OfHost:
        return qstrcmp(path.text(), "/dev/null") != 0;
    case UnitPath::Astray:
    case UnitPath::TooLong:
        break;
    }
    return true;
}

/// The unit's folder as the shell reads it between letters that are quoted that way.
QByteArray unitFolder(ShellLetter::Quote quote)
{
    switch (quote) {
    case ShellLetter::InSingle:
        return "'\"$UNIT\"'";
    case ShellLetter::InDouble:
        return "$UNIT";
    case ShellLetter::Unquoted:
        break;
    }
    return "\"$UNIT\"";
}

/// Text of a command that stands in a word which is quoted that way.
QByteArray quoted(const QByteArray &text, ShellLetter::Quote quote)
{
    QByteArray result;
    for (const char character : text) {
        if (quote == ShellLetter::InSingle) {
            result += character == '\'' ? QByteArray("'\\''") : QByteArray(1, character);
        } else {
            if (character == '"' || character == '$'
                || (character == '\'' && quote == ShellLetter::Unquoted)) {
                result += '\\';
            }
            result += character;
        }
    }
    return result;
}

/// One byte for each letter of an absolute path: 0 for those that ".." takes away.
QByteArray keptLetters(const QByteArray &path)
{
    QByteArray kept(path.size(), '\1');
    QVector<int> names;
    for (int begin = 0; begin < path.size();) {
        const int slash = path.indexOf('/', begin + 1);
        const int end = slash < 0 ? path.size() : slash;
        const QByteArray name = path.mid(begin + 1, end - begin - 1);
        if (name == "..") {
            const int from = names.isEmpty() ? begin : names.takeLast();
            std::fill(kept.begin() + from, kept.begin() + end, '\0');
        } else if (!name.isEmpty() && name != ".") {
            names.append(begin);
        }
        begin = end;
    }
    return kept;
}

bool holdsQuotedSeparator(const ShellWord &word)
{
    return std::any_of(word.cbegin(), word.cend(), [](const ShellLetter &letter) {
        return (letter.quote != ShellLetter::Unquoted || letter.isEscaped())
            && ShellWords::isSeparator(letter.character);
    });
}

/// Whether a path begins at that place of a word: after "=", and, in a list, before a slash. In
/// "-C/media" it begins after the option.
bool beginsPath(const QByteArray &word, int at)
{
    const char before = word.at(at - 1);
    const bool isSlash = word.at(at) == '/';
    return before == '=' || (isSlash && (before == ':' || before == ','))
        || (isSlash && at == 2 && word.startsWith('-'));
}

} // namespace

ShellCommand::ShellCommand(const QByteArray &text, const QByteArray &currentFolder)
    : m_text(text)
    , m_currentFolder(currentFolder)
{
    const ShellWords words(text);
    m_leavesUnit = words.isTooDeep();
    for (const ShellWord &word : words.all()) {
        m_word = word.first().at;
        const QByteArray wordText = ShellWords::text(word);
        if (!holdsQuotedSeparator(word) || !editAsCommand(word, wordText)) {
            editPaths(word, wordText);
        }
        m_changesFolder = m_changesFolder || wordText == "cd";
    }
    std::stable_sort(m_edits.begin(), m_edits.end(),
                     [](const Edit &left, const Edit &right) { return left.at < right.at; });
}

QByteArray ShellCommand::mapped() const
{
    QByteArray result;
    int at = 0;
    for (const Edit &edit : m_edits) {
        result += m_text.mid(at, edit.at - at) + edit.text;
        at = edit.at + edit.length;
    }
    return result + m_text.mid(at);
}

bool ShellCommand::leavesUnit() const
{
    return m_leavesUnit;
}

bool ShellCommand::editAsCommand(const ShellWord &word, const QByteArray &text)
{
    const ShellCommand command(text, m_currentFolder);
    // What stands first may as well be a path with a blank in it.
    if (command.m_lastFinding <= 0) {
        return false;
    }
    for (const Edit &edit : command.m_edits) {
        const ShellLetter &letter = word.at(edit.at);
        m_edits.append({letter.at, 0, quoted(edit.text, letter.quote)});
        for (int i = edit.at; i < edit.at + edit.length; ++i) {
            m_edits.append({word.at(i).at, word.at(i).length, QByteArray()});
        }
    }
    m_leavesUnit = m_leavesUnit || command.m_leavesUnit;
    m_lastFinding = m_word;
    return true;
}

void ShellCommand::editPaths(const ShellWord &word, const QByteArray &text)
{
    int begin = 0;
    for (int at = 1; at < text.size(); ++at) {
        if (beginsPath(text, at)) {
            editPath(word.mid(begin, at - begin), text.mid(begin, at - begin));
            begin = at;
        }
    }
    editPath(word.mid(begin), text.mid(begin));
}

void ShellCommand::editPath(const ShellWord &word, const QByteArray &path)
{
    if (path.startsWith('/')) {
        const UnitPath unitPath(path);
        if (unitPath.place() == UnitPath::OfUnit) {
            lead(word);
        } else if (isForbidden(unitPath)) {
            refuse();
        }
    } else if (path.startsWith(ShellWords::UnitFolder)) {
        if (climbsOut(path.mid(1))) {
            refuse();
        }
    } else if (path.startsWith(ShellWords::Computed)) {
        // The letter may come to nothing, or to a single slash.
        if (UnitPath('/' + path.mid(1)).place() != UnitPath::Elsewhere) {
            refuse();
        }
    } else if (m_changesFolder ? climbsOut(path) : leavesFrom(m_currentFolder, path)) {
        refuse();
    }
}

void ShellCommand::lead(const ShellWord &path)
{
    m_lastFinding = m_word;
    m_edits.append({path.first().at, 0, unitFolder(path.first().quote)});

    // ".." after a mount root would lead to where the stick really is.
    const QByteArray kept = keptLetters(ShellWords::text(path));
    for (int i = 0; i < path.size(); ++i) {
        if (kept.at(i) == '\0') {
            m_edits.append({path.at(i).at, path.at(i).length, QByteArray()});
        }
    }
}

void ShellCommand::refuse()
{
    m_lastFinding = m_word;
    m_leavesUnit = true;
}

bool ShellCommand::leavesFrom(const QByteArray &folder, const QByteArray &relativePath) const
{
    // A plain name is more often a word than a path.
    if (folder.isEmpty() || !(relativePath.contains('/') || relativePath == "..")) {
        return false;
    }
    // Work in a folder that itself lies below the host's /media is the user's own choice.
    if (UnitPath(folder).place() != UnitPath::Elsewhere) {
        return false;
    }
    const UnitPath path(folder + '/' + relativePath);
    return path.place() == UnitPath::OfUnit || isForbidden(path);
}

} // namespace hardware
