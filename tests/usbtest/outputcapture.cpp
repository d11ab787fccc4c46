#include "outputcapture.h"

#include <QFile>

#include <cstdio>

#include <fcntl.h>
#include <unistd.h>

OutputCapture::OutputCapture(const QString &file)
    : m_file(file)
    , m_standardOutput(dup(STDOUT_FILENO))
{
    std::fflush(stdout);
    const int descriptor =
        open(QFile::encodeName(file).constData(), O_WRONLY | O_CREAT | O_APPEND, 0600);
    if (descriptor < 0 || dup2(descriptor, STDOUT_FILENO) < 0) {
        qFatal("Standard output cannot be led into %s.", qPrintable(file));
    }
    close(descriptor);
}

OutputCapture::~OutputCapture()
{
    std::fflush(stdout);
    dup2(m_standardOutput, STDOUT_FILENO);
    close(m_standardOutput);
}

QByteArray OutputCapture::text() const
{
    std::fflush(stdout);
    QFile file(m_file);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}
