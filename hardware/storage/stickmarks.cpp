#include "stickmarks.h"

#include "hardware/unit/unitfolder.h"
#include "hardware/unit/wholefile.h"

#include <QDir>
#include <QFileInfo>

namespace hardware
{

namespace
{

QString folderOf(StickTrait trait)
{
    switch (trait) {
    case StickTrait::Full:
        return QStringLiteral("/full");
    case StickTrait::WriteProtected:
        return QStringLiteral("/write-protected");
    case StickTrait::Slow:
        break;
    }
    return QStringLiteral("/slow");
}

} // namespace

StickMarks::StickMarks(const UnitFolder &folder)
    : m_folder(folder)
{
}

bool StickMarks::set(StickTrait trait, const QString &mountRoot, int value, QString *error) const
{
    const QString name = file(trait, mountRoot);
    if (value == 0) {
        QFile::remove(name);
        return true;
    }
    QString reason;
    if (QDir().mkpath(QFileInfo(name).path())
        && wholefile::replace(name, QByteArray::number(value) + '\n', &reason)) {
        return true;
    }
    *error = QStringLiteral("\"%1\" cannot be written.").arg(name);
    return false;
}

int StickMarks::value(StickTrait trait, const QString &mountRoot) const
{
    QFile mark(file(trait, mountRoot));
    if (!mark.open(QIODevice::ReadOnly)) {
        return 0;
    }
    const int number = qMax(0, mark.readAll().trimmed().toInt());
    return trait == StickTrait::Slow ? number : qMax(1, number);
}

QString StickMarks::file(StickTrait trait, const QString &mountRoot) const
{
    return m_folder.path(folderOf(trait)) + mountRoot.mid(mountRoot.lastIndexOf(QLatin1Char('/')));
}

} // namespace hardware
