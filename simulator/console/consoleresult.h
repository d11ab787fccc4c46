#pragma once

#include <QStringList>

namespace simulator
{

/// What a console command answers: lines of text and, when it failed, one line that says why.
struct ConsoleResult
{
    static ConsoleResult done(const QStringList &lines = QStringList())
    {
        return {lines, QString(), false};
    }

    static ConsoleResult failed(const QString &error, const QStringList &lines = QStringList())
    {
        return {lines, error, false};
    }

    bool isOk() const { return error.isEmpty(); }

    QStringList lines;
    QString error;
    bool endsSession = false; ///< No further command of this session is to be run.
};

} // namespace simulator
