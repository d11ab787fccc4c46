#include "tablefile.h"

#include <QFile>
#include <QTextStream>

#include <algorithm>

namespace hardware
{

bool TableFile::read(const QString &fileName, QString *error)
{
    m_fileName = fileName;
    m_lines.clear();
    m_sections.clear();
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text)) {
        *error = QStringLiteral("%1 cannot be read: %2.").arg(fileName, file.errorString());
        return false;
    }
    QTextStream stream(&file);
    stream.setCodec("UTF-8");
    QString text;
    bool isEmpty = true;
    while (stream.readLineInto(&text)) {
        m_lines.append(text);
        text = text.trimmed();
        isEmpty = isEmpty && text.isEmpty();
        if (!readLine(text, m_lines.size(), error)) {
            return false;
        }
    }
    if (isEmpty) {
        *error = QStringLiteral("%1 is empty. A file that is removed is made anew at the next "
                                "start.")
                     .arg(fileName);
    }
    return !isEmpty;
}

const QVector<TableSection> &TableFile::sections() const
{
    return m_sections;
}

QString TableFile::fileName() const
{
    return m_fileName;
}

const QStringList &TableFile::lines() const
{
    return m_lines;
}

QString TableFile::place(int line) const
{
    return QStringLiteral("%1, line %2: ").arg(m_fileName).arg(line);
}

bool TableFile::readLine(const QString &text, int line, QString *error)
{
    if (text.contains(QChar(QChar::Null))) {
        *error = place(line) + QStringLiteral("a zero byte is not allowed; allowed is text.");
        return false;
    }
    if (text.isEmpty() || text.startsWith(QLatin1Char(';')) || text.startsWith(QLatin1Char('#'))) {
        return true;
    }
    if (text.startsWith(QLatin1Char('[')) && text.endsWith(QLatin1Char(']'))) {
        return beginSection(text.mid(1, text.size() - 2).trimmed(), line, error);
    }
    const int equals = text.indexOf(QLatin1Char('='));
    if (equals > 0) {
        return addField(text.left(equals).trimmed(), text.mid(equals + 1).trimmed(), line, error);
    }
    *error = place(line)
        + QStringLiteral("\"%1\" is neither \"[name]\" nor \"field = value\".").arg(text);
    return false;
}

bool TableFile::beginSection(const QString &name, int line, QString *error)
{
    if (name.isEmpty()) {
        *error = place(line) + QStringLiteral("\"[]\" is not allowed; allowed is \"[name]\".");
        return false;
    }
    const auto earlier =
        std::find_if(m_sections.cbegin(), m_sections.cend(),
                     [&](const TableSection &other) { return other.name == name; });
    if (earlier != m_sections.cend()) {
        *error = place(line)
            + QStringLiteral("[%1] is there already, in line %2.").arg(name).arg(earlier->line);
        return false;
    }
    TableSection section;
    section.name = name;
    section.line = line;
    m_sections.append(section);
    return true;
}

bool TableFile::addField(const QString &name, const QString &value, int line, QString *error)
{
    if (m_sections.isEmpty()) {
        *error =
            place(line) + QStringLiteral("\"%1\" stands before the first \"[name]\".").arg(name);
        return false;
    }
    QHash<QString, TableSection::Field> &fields = m_sections.last().fields;
    const auto earlier = fields.constFind(name);
    if (earlier != fields.constEnd()) {
        *error = place(line)
            + QStringLiteral("%1 is there already, in line %2.").arg(name).arg(earlier->line);
        return false;
    }
    TableSection::Field &field = fields[name];
    field.value = value;
    field.line = line;
    return true;
}

} // namespace hardware
