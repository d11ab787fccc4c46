#pragma once

#include <QStringList>

namespace simulator
{

/// What a console command answers: lines of text and, when it failed, one line that says why.
struct ConsoleResult
{
    static ConsoleResult done(const QStringList &lines = QStringList())
    {
        return {lines, QString()};
    }

    static ConsoleResult failed(const QString &error, const QStringList &lines = QStringList())
    {
        return {lines, error};
    }

    /// Nothing was run.
    static ConsoleResult refused(const QString &error)
    {
        ConsoleResult result = failed(error);
        result.isRefused = true;
        return result;
    }

    bool isOk() const { return error.isEmpty(); }

    QStringList lines;
    QString error;
    bool endsSession = false; ///< No further command of this session is to be run.
    bool isRefused = false;   ///< The line is wrong, or the unit goes down: nothing was run.
};

} // namespace simulator
