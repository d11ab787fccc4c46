#pragma once

#include <QtTest>

class QProcess;

/// Starts the program that runs once more, with other arguments, by the emulator if need be.
void startAnother(QProcess *process, const QStringList &arguments);

/// Has Qt draw into memory, and give texts the size that they have on the unit's screen, whatever
/// the host's screen is like. What whoever started the program has chosen stands.
void prepareScreen();

/// A test class that the program has. It goes by the name of its source, tst_<class>.
class RegisteredTest
{
public:
    using Run = int (*)(int argc, char **argv);

    /// Of \a source, a path. \a run returns what QTest::qExec() does.
    RegisteredTest(const char *source, Run run);

    /// The test that goes by the name, or the only one that the program has; null if there is none.
    static const RegisteredTest *find(const QString &name);
    int run(int argc, char **argv) const;

private:
    const char *m_source;
    Run m_run;
    const RegisteredTest *m_next;
};

template <typename Application, typename Test> int runTest(int argc, char **argv)
{
    Application application(argc, argv);
    application.setAttribute(Qt::AA_Use96Dpi); // as QTEST_MAIN does
    Test test;
    return QTest::qExec(&test, argc, argv);
}

/// Has the program run the class, with an application of that kind. It needs no environment.
#define FACTORY_TEST_APPLICATION_MAIN(Application, Class)                                          \
    static const RegisteredTest registered##Class(__FILE__, runTest<Application, Class>);

/// The same with Qt's own: with a screen, and without one.
#define FACTORY_TEST_MAIN(Class) FACTORY_TEST_APPLICATION_MAIN(QApplication, Class)
#define FACTORY_TEST_GUILESS_MAIN(Class) FACTORY_TEST_APPLICATION_MAIN(QCoreApplication, Class)
