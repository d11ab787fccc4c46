#include "stdoutcapture.h"

#include <QFile>

#include <unistd.h>

#include <cstdio>

StdoutCapture::StdoutCapture()
    : m_stdout(dup(STDOUT_FILENO))
{
    std::fflush(stdout);
    if (!m_file.open() || dup2(m_file.handle(), STDOUT_FILENO) < 0) {
        qFatal("The standard output cannot be captured.");
    }
}

StdoutCapture::~StdoutCapture()
{
    std::fflush(stdout);
    dup2(m_stdout, STDOUT_FILENO);
    close(m_stdout);
}

QByteArray StdoutCapture::text() const
{
    std::fflush(stdout);
    QFile file(m_file.fileName());
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}
