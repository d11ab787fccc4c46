#include "initext.h"

#include <QStringList>

#include <cctype>

namespace hardware
{

namespace
{

const QLatin1String keptInKeys("_-.");
const QLatin1String keptInText(" _-.:/()+%");

bool isOneOf(QChar character, QLatin1String others)
{
    const ushort code = character.unicode();
    return (code < 0x80 && std::isalnum(code)) || QString(others).contains(character);
}

QString escapedKey(const QString &key)
{
    QString escaped;
    for (const QChar character : key) {
        const ushort code = character.unicode();
        if (isOneOf(character, keptInKeys)) {
            escaped += character;
        } else if (character == QLatin1Char('/')) {
            escaped += QLatin1Char('\\');
        } else if (code < 0x100) {
            escaped += QStringLiteral("%%1").arg(code, 2, 16, QLatin1Char('0'));
        } else {
            escaped += QStringLiteral("%U%1").arg(code, 4, 16, QLatin1Char('0'));
        }
    }
    return escaped;
}

/// In quotes when it holds anything that an ini file could take for something else.
QString escapedText(const QString &text)
{
    bool isPlain = text == text.trimmed();
    bool isBehindNumber = false;
    QString escaped;
    for (const QChar character : text) {
        const ushort code = character.unicode();
        isPlain = isPlain && isOneOf(character, keptInText);
        if (code < 0x20 || code > 0x7e || (isBehindNumber && std::isxdigit(code))) {
            escaped += QStringLiteral("\\x%1").arg(code, 0, 16);
            isBehindNumber = true;
            continue;
        }
        if (character == QLatin1Char('"') || character == QLatin1Char('\\')) {
            escaped += QLatin1Char('\\');
        }
        escaped += character;
        isBehindNumber = false;
    }
    return isPlain ? text : QLatin1Char('"') + escaped + QLatin1Char('"');
}

/// An "@" in front stands for another type.
QString typed(const QVariant &value)
{
    if (value.type() == QVariant::ByteArray) {
        const QByteArray bytes = value.toByteArray();
        return QStringLiteral("@ByteArray(%1)")
            .arg(QString::fromLatin1(bytes.constData(), bytes.size()));
    }
    const QString text = value.toString();
    return text.startsWith(QLatin1Char('@')) ? QLatin1Char('@') + text : text;
}

QString valueText(const QVariant &value)
{
    if (value.type() != QVariant::StringList) {
        return escapedText(typed(value));
    }
    const QStringList values = value.toStringList();
    QStringList texts;
    for (const QString &text : values) {
        texts.append(escapedText(typed(text)));
    }
    return texts.isEmpty() ? QStringLiteral("@Invalid()") : texts.join(QStringLiteral(", "));
}

/// The keys without a slash have a section of their own, whose name another one can have, too.
QString sectionOf(const QString &key)
{
    const QString general = QStringLiteral("General");
    const int slash = key.indexOf(QLatin1Char('/'));
    const QString section = key.left(slash);
    if (slash < 0) {
        return general;
    }
    return section.compare(general, Qt::CaseInsensitive) == 0 ? QLatin1Char('%') + section
                                                              : escapedKey(section);
}

} // namespace

QByteArray iniText(const QMap<QString, QVariant> &values)
{
    QMap<QString, QString> sections;
    for (auto value = values.cbegin(); value != values.cend(); ++value) {
        const QString &key = value.key();
        sections[sectionOf(key)] += escapedKey(key.mid(key.indexOf(QLatin1Char('/')) + 1))
            + QLatin1Char('=') + valueText(*value) + QLatin1Char('\n');
    }
    QString text;
    for (auto section = sections.cbegin(); section != sections.cend(); ++section) {
        text += QStringLiteral("[%1]\n").arg(section.key()) + *section + QLatin1Char('\n');
    }
    return text.toLatin1();
}

} // namespace hardware
