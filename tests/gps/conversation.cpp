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
    return QDir(QStringLiteral("/proc/self/fd")).entryList(QDir::Files | QDir::System).size();
}
