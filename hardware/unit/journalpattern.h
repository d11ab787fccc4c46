#pragma once

#include <QRegularExpression>
#include <QString>

namespace hardware
{

/// What a reader of the journal looks for: plain text found anywhere in a line, or, written
/// between slashes ("/^mcu .* FF$/"), a regular expression.
class JournalPattern
{
public:
    explicit JournalPattern(const QString &text);

    /// False when the regular expression does not compile; error() then says why.
    bool isValid() const;
    QString error() const;
    bool matches(const QString &line) const;

    /// Whether it begins with one of the journal's quiet sources ("gate open", "/^asked .*/"), and
    /// so looks at their lines too.
    bool hearsQuietSources() const;

private:
    QString m_text;
    QRegularExpression m_expression;
    bool m_isExpression = false;
    bool m_hearsQuietSources = false;
};

/// Whether the journal keeps lines of that source from readers who do not ask for them.
bool isQuietSource(const QString &source);

} // namespace hardware
