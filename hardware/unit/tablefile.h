#pragma once

#include <QHash>
#include <QString>
#include <QStringList>
#include <QVector>

namespace hardware
{

/// One section of a table file with its fields, by name.
struct TableSection
{
    struct Field
    {
        QString value;
        int line = 0; ///< counted from 1
    };

    QString name;
    int line = 0;
    QHash<QString, Field> fields;
};

/// A table of the unit that people edit, UTF-8 text: "[name]" begins a section, "field = value"
/// lines follow, lines that begin with ";" or "#" are comments. Unlike an ini file read by
/// QSettings it keeps the sections' order and every character of a value.
class TableFile
{
public:
    /// False with a sentence in \a error that names the file, the line and what is wrong with it.
    /// A file without any text is refused: it is what a full disk leaves.
    bool read(const QString &fileName, QString *error);

    /// In the order of the file; no two have the same name.
    const QVector<TableSection> &sections() const;

    QString fileName() const;

    /// The whole text, line by line.
    const QStringList &lines() const;

    /// The beginning of a sentence about a line: "<file>, line <number>: ".
    QString place(int line) const;

private:
    bool readLine(const QString &text, int line, QString *error);
    bool beginSection(const QString &name, int line, QString *error);
    bool addField(const QString &name, const QString &value, int line, QString *error);

    QString m_fileName;
    QStringList m_lines;
    QVector<TableSection> m_sections;
};

} // namespace hardware
