#include "support/testmain.h"

#include <QFileInfo>
#include <QProcess>

#include <cstdio>

namespace
{

const RegisteredTest *first = nullptr;

void choose(const char *variable, const char *value)
{
    if (!qEnvironmentVariableIsSet(variable)) {
        qputenv(variable, value);
    }
}

} // namespace

void startAnother(QProcess *process, const QStringList &arguments)
{
    QStringList command = QString::fromLatin1(EMULATOR).split(QLatin1Char(' '), Qt::SkipEmptyParts);
    command += QCoreApplication::applicationFilePath();
    command += arguments;
    process->start(command.takeFirst(), command);
}

void prepareScreen()
{
    choose("QT_QPA_PLATFORM", "offscreen");
    choose("QT_FONT_DPI", "72");
}

RegisteredTest::RegisteredTest(const char *source, Run run)
    : m_source(source)
    , m_run(run)
    , m_next(first)
{
    first = this;
}

const RegisteredTest *RegisteredTest::find(const QString &name)
{
    const RegisteredTest *test = first;
    const auto isCalled = [&name](const RegisteredTest *each) {
        return QFileInfo(QString::fromLocal8Bit(each->m_source)).completeBaseName() == name;
    };
    const bool isOnlyOne = test && !test->m_next;
    while (test && !isOnlyOne && !isCalled(test)) {
        test = test->m_next;
    }
    return test;
}

int RegisteredTest::run(int argc, char **argv) const
{
    return m_run(argc, argv);
}

int main(int argc, char *argv[])
{
    const QString name = QFileInfo(QString::fromLocal8Bit(argv[0])).fileName();
    const RegisteredTest *const test = RegisteredTest::find(name);
    if (!test) {
        std::fprintf(stderr, "The program has no test of the name %s.\n", qPrintable(name));
        return 1;
    }
    prepareScreen();
    return test->run(argc, argv);
}
