#include "conversation.h"

#include "stdoutcapture.h"

#include <QDir>

#include <sys/time.h>

Conversation converse(const std::function<int()> &talk)
{
    const int filesBefore = openFiles();
    const double begin = unitTime();
    Conversation conversation = {};
    {
        const StdoutCapture output;
        conversation.result = talk();
        conversation.output = output.text();
    }
    conversation.seconds = unitTime() - begin;
    conversation.filesLeftOpen = openFiles() - filesBefore;
    return conversation;
}

double unitTime()
{
    timeval time;
    gettimeofday(&time, nullptr);
    return time.tv_sec + time.tv_usec / 1e6;
}

int openFiles()
{
    int files = 0;
    const QFileInfoList descriptors =
        QDir(QStringLiteral("/proc/self/fd")).entryInfoList(QDir::Files | QDir::System);
    for (const QFileInfo &descriptor : descriptors) {
        // What has no name on the host seems to lie below /proc, in this very folder.
        const QString target = descriptor.symLinkTarget();
        const bool isHosts =
            target.startsWith(QLatin1String("/proc/")) || target.startsWith(QLatin1String("/sys/"));
        files += isHosts ? 0 : 1;
    }
    return files;
}
