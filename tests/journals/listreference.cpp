#include "listreference.h"

#include "support/firstdifference.h"

#include <QDir>
#include <QFile>

namespace
{

QStringList readLines(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        return {};
    }
    QStringList lines = QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'));
    lines.removeLast(); // behind the last line's end
    return lines;
}

bool isDocument(const QString &name)
{
    return name.endsWith(QLatin1String(".md"));
}

QString fileName(const QString &name)
{
    return isDocument(name) ? name : name + QStringLiteral(".txt");
}

QString referenceOf(const QString &name)
{
    return (isDocument(name) ? QStringLiteral(DOCUMENTS "/") : QStringLiteral(REFERENCES "/"))
        + fileName(name);
}

QString differenceOf(const QString &name)
{
    return QStringLiteral(DIFFERENCES "/") + fileName(name);
}

QString keep(const QString &name, const QStringList &lines)
{
    QFile file(differenceOf(name));
    const QByteArray text = lines.join(QLatin1Char('\n')).toUtf8() + '\n';
    return QDir().mkpath(QStringLiteral(DIFFERENCES)) && file.open(QIODevice::WriteOnly)
            && file.write(text) == text.size()
        ? QStringLiteral("all of it: ") + file.fileName()
        : file.errorString();
}

} // namespace

QString listComplaint(const QString &name, const QStringList &lines)
{
    const QStringList expected = readLines(referenceOf(name));
    if (lines == expected) {
        QFile::remove(differenceOf(name)); // of an earlier run
        return QString();
    }
    return QStringLiteral("%1 (%2)").arg(firstDifference(lines, expected), keep(name, lines));
}
