#pragma once

#include <QByteArray>
#include <QString>

/// Leads standard output into a file for as long as it lives, unbuffered, so that it lies there in
/// step with what else is written to the file.
class OutputCapture
{
public:
    /// Appends to \a file.
    explicit OutputCapture(const QString &file);
    ~OutputCapture();
    Q_DISABLE_COPY(OutputCapture)

    /// What the file holds now.
    QByteArray text() const;

private:
    const QString m_file;
    int m_standardOutput;
};
