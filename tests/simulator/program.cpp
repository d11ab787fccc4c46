#include "program.h"

#include <csignal>

namespace
{
const int patienceMs = 60000;
}

Program::Program(const QString &program, const QStringList &arguments,
                 const QProcessEnvironment &environment)
{
    m_process.setProcessEnvironment(environment);
    m_process.start(program, arguments);
}

Program::~Program()
{
    if (m_process.state() != QProcess::NotRunning) {
        m_process.kill();
        m_process.waitForFinished();
    }
}

void Program::type(const QByteArray &text)
{
    m_process.write(text);
    m_process.waitForBytesWritten();
}

void Program::send(int signal)
{
    kill(pid_t(m_process.processId()), signal);
}

bool Program::isRunning()
{
    return !m_process.waitForFinished(0) && m_process.state() == QProcess::Running;
}

QString Program::outputSoFar()
{
    m_process.waitForReadyRead(10);
    m_output += m_process.readAllStandardOutput();
    return QString::fromUtf8(m_output);
}

Outcome Program::finish()
{
    m_process.closeWriteChannel();
    Outcome outcome;
    if (m_process.waitForFinished(patienceMs) && m_process.exitStatus() == QProcess::NormalExit) {
        outcome.status = m_process.exitCode();
    }
    outcome.output = QString::fromUtf8(m_output + m_process.readAllStandardOutput());
    outcome.error = QString::fromUtf8(m_process.readAllStandardError());
    return outcome;
}

Outcome run(const QString &program, const QStringList &arguments,
            const QProcessEnvironment &environment)
{
    return Program(program, arguments, environment).finish();
}
