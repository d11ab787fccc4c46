#pragma once

#include <QProcess>
#include <QProcessEnvironment>
#include <QString>

/// How a program ended and what it said.
struct Outcome
{
    int status = -1; ///< -1 for one that did not end by itself
    QString output;
    QString error;
};

/// A program that runs; killed when it is still there in the end.
class Program
{
public:
    Program(const QString &program, const QStringList &arguments,
            const QProcessEnvironment &environment = QProcessEnvironment::systemEnvironment());
    ~Program();

    void type(const QByteArray &text);
    /// Sends it a signal.
    void send(int signal);
    bool isRunning();

    /// What it has said on standard output so far.
    QString outputSoFar();

    /// Waits, up to a minute, for its end.
    Outcome finish();

private:
    QProcess m_process;
    QByteArray m_output;
};

/// Runs a program to its end.
Outcome run(const QString &program, const QStringList &arguments,
            const QProcessEnvironment &environment = QProcessEnvironment::systemEnvironment());
