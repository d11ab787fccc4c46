#include "measurement.h"

#include <QElapsedTimer>

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>

Summary summarise(QVector<double> values)
{
    std::sort(values.begin(), values.end());
    return {values.first(), values.at(values.size() / 2), values.last()};
}

void ignoreMessages()
{
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
}

Quiet::Quiet()
    : m_stdout(dup(STDOUT_FILENO))
{
    std::fflush(stdout);
    const int nowhere = open("/dev/null", O_WRONLY | O_CLOEXEC);
    dup2(nowhere, STDOUT_FILENO);
    close(nowhere);
}

Quiet::~Quiet()
{
    std::fflush(stdout);
    dup2(m_stdout, STDOUT_FILENO);
    close(m_stdout);
}

double microseconds(const std::function<void()> &work)
{
    QElapsedTimer clock;
    clock.start();
    work();
    return clock.nsecsElapsed() / 1e3;
}

void printRow(const QString &what, const QVector<double> &values, const QString &unit)
{
    const Summary summary = summarise(values);
    std::printf("%-44s min %10.3f  median %10.3f  max %10.3f  %s\n", qPrintable(what), summary.min,
                summary.median, summary.max, qPrintable(unit));
}

void printRatio(const QString &what, const QVector<double> &values,
                const QVector<double> &counterpart)
{
    QVector<double> ratios;
    for (int index = 0; index < values.size(); ++index) {
        ratios.append(values.at(index) / counterpart.at(index));
    }
    printRow(what, ratios, QStringLiteral("x"));
}
