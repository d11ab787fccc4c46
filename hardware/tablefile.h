#pragma once

#include <QHash>
#include <QString>
#include <QVector>

namespace hardware
{

/// One section of a table file with its fields, by name.
struct TableSection
{
    struct Field
    {
        QString value;
        int line;
    };

    QString name;
    int line;
    QHash<QString, Field> fields;
};

/// A table of the unit that people edit, UTF-8 text: "[name]" begins a section, "field = value"
/// lines follow, lines that begin with ";" or "#" are comments. Unlike an ini file read by
/// QSettings it keeps the sections' order and every character of a value.
class TableFile
{
public:
    /// False with a sentence in \a error that names the file, the line and what is wrong with it.
    bool read(const QString &fileName, QString *error);

    /// In the order of the file; no two have the same name.
    const QVector<TableSection> &sections() const;

    /// The beginning of a sentence about a line: "<file>, line <number>: ".
    QString place(int line) const;

private:
    bool readLine(const QString &text, int line, QString *error);
    bool beginSection(const QString &name, int line, QString *error);
    bool addField(const QString &name, const QString &value, int line, QString *error);

    QString m_fileName;
    QVector<TableSection> m_sections;
};

} // namespace hardware
