#include "saturationwalk.h"

#include <QProcess>
#include <QStringList>

QList<SaturationStep> saturationWalk(const QList<int> &steps)
{
    QStringList arguments;
    for (const int count : steps) {
        arguments.append(QString::number(count));
    }
    QProcess program;
    program.start(QStringLiteral(SATURATION_WALK), arguments);
    program.waitForFinished();

    QList<SaturationStep> walk;
    const QStringList lines = QString::fromLatin1(program.readAllStandardOutput())
                                  .split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    for (const QString &line : lines) {
        const QStringList fields = line.split(QLatin1Char(' '));
        walk.append({fields.value(0), fields.value(1).toDouble(), fields.value(2).toInt()});
    }
    return walk;
}
