#pragma once

#include <QStringList>

namespace simulator
{

/// How a script went, for programs that read JUnit's XML.
struct ScriptReport
{
    QString script; ///< What the script is called.
    double seconds = 0;
    QString failure;  ///< "FILE:LINE: what was wrong"; empty when nothing was.
    QStringList more; ///< What else was said of the failure.

    /// Writes it whole or not at all; false with a sentence in \a error.
    bool write(const QString &file, QString *error) const;
};

} // namespace simulator
