#include "commandline.h"

#include "nearest.h"

#include <QRegularExpression>

namespace simulator
{

namespace commandline
{

namespace
{

/// Takes one line apart, character by character.
class Splitter
{
public:
    Splitter(const QString &line, const QMap<QString, QString> &values)
        : m_line(line)
        , m_values(values)
    {
    }

    bool run()
    {
        while (m_at < m_line.size()) {
            const QChar character = m_line.at(m_at);
            if (!m_inWord && character == QLatin1Char('#')) {
                return true;
            }
            if (!take(character)) {
                return false;
            }
        }
        endWord();
        return true;
    }

    QStringList words() const { return m_words; }
    QString error() const { return m_error; }

private:
    bool take(QChar character)
    {
        if (character.isSpace()) {
            endWord();
            ++m_at;
            return true;
        }
        m_inWord = true;
        if (character == QLatin1Char('\'') || character == QLatin1Char('"')) {
            return takeQuoted(character);
        }
        if (character == QLatin1Char('\\')) {
            return takeEscaped(false);
        }
        if (character == QLatin1Char('$')) {
            return takeValue();
        }
        m_word += character;
        ++m_at;
        return true;
    }

    bool takeQuoted(QChar quote)
    {
        const int start = m_at++;
        while (m_at < m_line.size()) {
            const QChar character = m_line.at(m_at);
            if (character == quote) {
                ++m_at;
                return true;
            }
            if (character == QLatin1Char('\\') && quote == QLatin1Char('"')) {
                if (!takeEscaped(true)) {
                    return false;
                }
            } else if (character == QLatin1Char('$') && quote == QLatin1Char('"')) {
                if (!takeValue()) {
                    return false;
                }
            } else {
                m_word += character;
                ++m_at;
            }
        }
        m_error = QStringLiteral("the quote at column %1 is not closed").arg(start + 1);
        return false;
    }

    bool takeEscaped(bool quoted)
    {
        if (m_at + 1 == m_line.size()) {
            m_error = QStringLiteral("nothing follows the backslash at the end");
            return false;
        }
        const QChar character = m_line.at(m_at + 1);
        m_word += quoted && character == QLatin1Char('n') ? QChar(QLatin1Char('\n')) : character;
        m_at += 2;
        return true;
    }

    /// A $ that no name follows stands for itself.
    bool takeValue()
    {
        static const QRegularExpression reference(
            QStringLiteral("\\$(?:\\{([^}]*)\\}|([A-Za-z_][A-Za-z0-9_]*))"));
        const QRegularExpressionMatch match = reference.match(
            m_line, m_at, QRegularExpression::NormalMatch, QRegularExpression::AnchoredMatchOption);
        if (!match.hasMatch()) {
            return takeBareDollar();
        }
        const QString name = match.captured(1) + match.captured(2);
        if (!m_values.contains(name)) {
            m_error = QStringLiteral("nothing was set for \"%1\"").arg(name)
                + nearHint(name, m_values.keys());
            return false;
        }
        m_word += m_values.value(name);
        m_at += match.capturedLength();
        return true;
    }

    bool takeBareDollar()
    {
        m_word += m_line.at(m_at++);
        if (m_line.midRef(m_at).startsWith(QLatin1Char('{'))) {
            m_error = QStringLiteral("the brace at column %1 is not closed").arg(m_at + 1);
            return false;
        }
        return true;
    }

    void endWord()
    {
        if (m_inWord) {
            m_words.append(m_word);
        }
        m_word.clear();
        m_inWord = false;
    }

    const QString m_line;
    const QMap<QString, QString> m_values;
    int m_at = 0;
    bool m_inWord = false;
    QString m_word;
    QStringList m_words;
    QString m_error;
};

QString quoted(const QString &word)
{
    static const QRegularExpression plain(QStringLiteral("^[\\w./:=+,@%-]+$"));
    if (plain.match(word).hasMatch()) {
        return word;
    }
    QString escaped = word;
    escaped.replace(QLatin1Char('\\'), QLatin1String("\\\\"));
    escaped.replace(QLatin1Char('"'), QLatin1String("\\\""));
    escaped.replace(QLatin1Char('$'), QLatin1String("\\$"));
    escaped.replace(QLatin1Char('\n'), QLatin1String("\\n"));
    return QLatin1Char('"') + escaped + QLatin1Char('"');
}

} // namespace

QString tooLong()
{
    return QStringLiteral("a command is longer than %1 bytes").arg(maxLineBytes);
}

bool isName(const QString &word)
{
    static const QRegularExpression name(
        QRegularExpression::anchoredPattern(QStringLiteral("[A-Za-z_][A-Za-z0-9_]*")));
    return name.match(word).hasMatch();
}

bool split(const QString &line, const QMap<QString, QString> &values, QStringList *words,
           QString *error)
{
    Splitter splitter(line, values);
    if (!splitter.run()) {
        *error = splitter.error();
        return false;
    }
    *words = splitter.words();
    return true;
}

QString join(const QStringList &words)
{
    QStringList parts;
    for (const QString &word : words) {
        parts.append(quoted(word));
    }
    return parts.join(QLatin1Char(' '));
}

} // namespace commandline

} // namespace simulator
