#include "journalpattern.h"

namespace hardware
{

JournalPattern::JournalPattern(const QString &text)
    : m_text(text)
    , m_isExpression(text.size() >= 2 && text.startsWith(QLatin1Char('/'))
                     && text.endsWith(QLatin1Char('/')))
{
    if (m_isExpression) {
        m_expression.setPattern(text.mid(1, text.size() - 2));
    }
    static const QRegularExpression firstWord(QStringLiteral("^/?\\^?(\\w+) "));
    m_hearsQuietSources = isQuietSource(firstWord.match(text).captured(1));
}

bool JournalPattern::isValid() const
{
    return m_expression.isValid();
}

QString JournalPattern::error() const
{
    return isValid() ? QString()
                     : QStringLiteral("%1 is no regular expression: %2 at character %3.")
                           .arg(m_text, m_expression.errorString())
                           .arg(m_expression.patternErrorOffset());
}

bool JournalPattern::matches(const QString &line) const
{
    if (m_isExpression) {
        return m_expression.isValid() && m_expression.match(line).hasMatch();
    }
    return line.contains(m_text);
}

bool JournalPattern::hearsQuietSources() const
{
    return m_hearsQuietSources;
}

bool isQuietSource(const QString &source)
{
    return source == QLatin1String("touch") || source == QLatin1String("console")
        || source == QLatin1String("asked") || source == QLatin1String("gate")
        || source == QLatin1String("stall");
}

} // namespace hardware
