#include "saturationwalk.h"

#include <QProcess>
#include <QStringList>

QList<SaturationStep> saturationWalk(int down, int up)
{
    QProcess program;
    program.start(QStringLiteral("python3"),
                  {QStringLiteral(SATURATION_WALK), QString::number(down), QString::number(up)});
    program.waitForFinished();
    QList<SaturationStep> steps;
    const QStringList lines = QString::fromLatin1(program.readAllStandardOutput())
                                  .split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    for (const QString &line : lines) {
        const QStringList fields = line.split(QLatin1Char(' '));
        steps.append({fields.value(0), fields.value(1).toDouble(), fields.value(2).toInt()});
    }
    return steps;
}
