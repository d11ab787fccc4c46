#pragma once

#include <QByteArray>
#include <QTemporaryFile>

/// Collects what the process writes to its standard output.
class StdoutCapture
{
public:
    StdoutCapture();
    ~StdoutCapture();
    Q_DISABLE_COPY(StdoutCapture)

    /// Everything so far.
    QByteArray text() const;

private:
    QTemporaryFile m_file;
    int m_stdout;
};
